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

std::wstring ConflictQuestion(const base::Conflict& conflict, size_t count) {
  const std::wstring name = Quoted(conflict.target);
  const wchar_t* const kind = conflict.folders ? L"folder" : L"file";
  const bool many = count > 1;
  std::wstring text = L"The folder already contains ";
  text += many ? std::to_wstring(count) + L" of these " + kind + L"s, " + name + L" among them."
               : std::wstring(L"a ") + kind + L" named " + name + L".";
  if (conflict.folders) {
    text += L"\n\nDo you want to put the contents together?\n\nWith No ";
    text += many ? L"these folders are" : L"this folder is";
  } else {
    text += many ? L"\n\nDo you want to replace them?\n\nWith No "
                 : L"\n\nDo you want to replace it?\n\nWith No ";
    text += many ? L"these files are" : L"this file is";
  }
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
