// The report of a failed automation call to the user.
#pragma once

#include <string>

#include "src/framework/com/com_dispatch.h"

namespace file_explorer {

// "Error: <title>. <message>. <description>", without the description when the error carries no IErrorInfo.
// The message is the system's text of the error's code.
std::string ComErrorText(const char* title, const _com_error& error);

// Shows ComErrorText in a modal message box "Fatal COM Error" with OK, owned by the window that has the
// focus.
void ReportComError(const char* title, const _com_error& error);

}  // namespace file_explorer
