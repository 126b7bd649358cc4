// Requests of tooltip controls for their texts, in both of their forms: a control asks with 8-bit or with
// wide text as the window that it asks wants it, and that window may be the host's.
#pragma once

#include <windows.h>

#include <string_view>

namespace file_explorer {

// Whether a notification is such a request, TTN_GETDISPINFOA or TTN_GETDISPINFOW.
bool IsTooltipRequest(const NMHDR& header);

// Whether a request is for the tool that is this window; a command's tool is none.
bool AsksForToolOf(const NMHDR& request, HWND window);

// Answers a request from the module's string table, by the tool's command number. An unknown command and a
// tool that is a window get an empty text. The text stays valid until the next request.
void AnswerTooltipRequest(HINSTANCE instance, NMHDR& request);

// Answers with a text of the caller's, cut to kTooltipTextSize characters with the terminator.
void AnswerTooltipRequest(NMHDR& request, std::wstring_view text);

}  // namespace file_explorer
