#include "src/framework/com/com_error_text.h"

#include "src/framework/com/com_text.h"

namespace file_explorer {

std::string ComErrorText(const char* title, const _com_error& error) {
  std::string text = std::string("Error: ") + title + ". " + error.ErrorMessage() + ".";
  ComPtr<IErrorInfo> details;
  details.Attach(error.ErrorInfo());
  if (!details) return text;
  UniqueBstr description;
  details->GetDescription(description.put());
  return text + " " + DisplayBstr(description.get()).value_or("");
}

void ReportComError(const char* title, const _com_error& error) {
  MessageBoxA(GetFocus(), ComErrorText(title, error).c_str(), "Fatal COM Error", MB_OK);
}

}  // namespace file_explorer
