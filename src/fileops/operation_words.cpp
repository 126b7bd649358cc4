#include "src/fileops/operation_words.h"

#include <algorithm>

#include "base/files/paths.h"

namespace file_explorer {
namespace {

constexpr size_t kNamedFailures = 10;

std::wstring Quoted(std::wstring_view path) {
  std::wstring name(base::NameOfPath(path));
  std::replace(name.begin(), name.end(), base::kBackslashInName, L'\\');
  return L"\"" + name + L"\"";
}

std::wstring Items(size_t count) {
  return std::to_wstring(count) + (count == 1 ? L" item" : L" items");
}

}  // namespace

std::wstring ConflictQuestion(const base::Conflict& conflict, const InTheWay& inTheWay) {
  const std::wstring name = Quoted(conflict.target);
  const std::wstring kind = conflict.folders ? L"folder" : L"file";
  const bool many = inTheWay.hasMore || inTheWay.count > 1;
  std::wstring text = L"The folder already contains ";
  if (inTheWay.hasMore) {
    text += kind + L"s of the same names, " + name + L" among them.";
  } else if (many) {
    text += std::to_wstring(inTheWay.count) + L" of these " + kind + L"s, " + name + L" among them.";
  } else {
    text += L"a " + kind + L" named " + name + L".";
  }
  text += conflict.folders ? L"\n\nDo you want to put the contents together?"
          : many           ? L"\n\nDo you want to replace them?"
                           : L"\n\nDo you want to replace it?";
  text += L"\n\nWith No " + (many ? L"these " + kind + L"s are" : L"this " + kind + L" is");
  return text + L" skipped; Cancel ends the whole operation.";
}

std::wstring ReportOfFailures(const base::TransferReport& report, bool move,
                              const std::function<std::wstring(base::SystemError error)>& systemText) {
  if (report.failures.empty()) return {};
  std::wstring text =
      Items(report.failures.size()) + L" could not be " + (move ? L"moved" : L"copied") + L":\n";
  const size_t named = std::min(report.failures.size(), kNamedFailures);
  for (size_t i = 0; i < named; ++i) {
    text +=
        L"\n" + Quoted(report.failures[i].path) + L": " + base::TextOfFailure(report.failures[i], systemText);
  }
  if (report.failures.size() > named) {
    text += L"\n... and " + std::to_wstring(report.failures.size() - named) + L" more.";
  }
  return text + L"\n\n" + Items(report.done) + (move ? L" moved." : L" copied.");
}

}  // namespace file_explorer
