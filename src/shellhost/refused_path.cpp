#include "src/shellhost/refused_path.h"

#include "base/text/display_name.h"
#include "base/text/narrow_path.h"

namespace file_explorer {

void RefusePath(HWND owner, std::wstring_view path, const wchar_t* reason) {
  const std::wstring text = L"'" + base::HarmlessText(path) + L"' " + reason +
                            L". Nothing was done.\n\nPlease rename it and try again.";
  // The wide call: the name is the one text that must not be bent here.
  MessageBoxW(owner, text.c_str(), L"Error", MB_OK);
}

bool RefuseInexpressible(HWND owner, const ShellItem& item) {
  const std::wstring path = item.GetWidePath();
  if (path.empty() || base::NarrowPath(path)) return false;
  RefusePath(owner, path);
  return true;
}

std::optional<std::string> PathOrRefusal(HWND owner, const ShellItem& item) {
  if (!item || item.HasAttributes(SFGAO_FILESYSTEM) == 0) return std::string();
  const std::wstring path = item.GetWidePath();
  auto narrow = base::NarrowPath(path);
  if (!narrow) RefusePath(owner, path);
  return narrow;
}

}  // namespace file_explorer
