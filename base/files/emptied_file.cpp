#include "base/files/emptied_file.h"

namespace base {

void RestoreEmptiedFile(const std::string& path, RecoveryCalls& calls) {
  using Reading = RecoveryCalls::Reading;
  const std::string copy = path + ".last";
  std::string content;
  if (calls.Read(path, &content) != Reading::kRead) return;
  std::string last;
  const bool hasCopy = calls.Read(copy, &last) == Reading::kRead;
  if (content.empty() && hasCopy && !last.empty()) ReplaceContent(calls, path, last);
  if (!content.empty() && (!hasCopy || content != last)) ReplaceContent(calls, copy, content);
}

}  // namespace base
