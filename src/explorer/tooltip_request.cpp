#include "src/explorer/tooltip_request.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <string>

#include "base/text/code_page.h"
#include "src/explorer/pattern_help.h"

namespace file_explorer {
namespace {

// Texts are handed out by pointer; one buffer a form serves all requests.
std::array<char, kTooltipTextSize> narrowText = {};
std::array<wchar_t, kTooltipTextSize> wideText = {};

bool IsWide(const NMHDR& request) {
  return request.code == static_cast<UINT>(TTN_GETDISPINFOW);
}

UINT FlagsOf(const NMHDR& request) {
  return IsWide(request) ? reinterpret_cast<const NMTTDISPINFOW&>(request).uFlags
                         : reinterpret_cast<const NMTTDISPINFOA&>(request).uFlags;
}

template <typename Request, typename Text, typename Buffer>
void HandOut(NMHDR& header, const Text& text, Buffer& buffer) {
  const size_t length = std::min(text.size(), buffer.size() - 1);
  std::copy_n(text.begin(), length, buffer.begin());
  buffer[length] = {};
  auto& request = reinterpret_cast<Request&>(header);
  request.lpszText = buffer.data();
  request.szText[0] = {};
  request.hinst = nullptr;
}

}  // namespace

bool IsTooltipRequest(const NMHDR& header) {
  return header.code == static_cast<UINT>(TTN_GETDISPINFOA) || IsWide(header);
}

bool AsksForToolOf(const NMHDR& request, HWND window) {
  return window != nullptr && (FlagsOf(request) & TTF_IDISHWND) != 0 &&
         request.idFrom == reinterpret_cast<UINT_PTR>(window);
}

void AnswerTooltipRequest(HINSTANCE instance, NMHDR& request) {
  std::array<wchar_t, kTooltipTextSize> text = {};
  // The number of a window's tool is its handle, whose lower half may well be a command's.
  const bool isCommand = (FlagsOf(request) & TTF_IDISHWND) == 0;
  const int length =
      isCommand ? LoadStringW(instance, static_cast<UINT>(request.idFrom), text.data(), kTooltipTextSize) : 0;
  AnswerTooltipRequest(request, {text.data(), static_cast<size_t>(length)});
}

void AnswerTooltipRequest(NMHDR& request, std::wstring_view text) {
  if (IsWide(request)) {
    HandOut<NMTTDISPINFOW>(request, text, wideText);
  } else {
    HandOut<NMTTDISPINFOA>(request, base::DisplayNarrow(text), narrowText);
  }
}

}  // namespace file_explorer
