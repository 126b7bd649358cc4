#!/usr/bin/env bash
# Texts are converted between 8-bit and wide by base/text alone, which bends no letter. This fails, naming the places,
# when a conversion of its own comes back, or a call of the system by which 8-bit text from outside arrives bent or cut,
# or is drawn in another code page than the process's.
#   tests/checks/text_conversions.sh ROOT
set -u
cd "$1" || exit 2

# The calls and messages that are not used outside base/text, each a word of its own. Tests may ask for 8-bit text: they
# look at what the program says.
conversions='WideCharToMultiByte|MultiByteToWideChar|mbstowcs|wcstombs|wctomb|mbtowc'
calls=$conversions
calls+='|CharLowerA|CharLowerBuffA|CharUpperA|CharUpperBuffA|CharNextA|CharPrevA'
calls+='|TextOutA|ExtTextOutA|PolyTextOutA|TabbedTextOutA|DrawTextA|DrawTextExA|DrawStateA|GrayStringA'
calls+='|GetTextExtentPointA|GetTextExtentPoint32A|GetTextExtentExPointA|GetCharWidthA|GetCharWidth32A'
calls+='|GetTextMetricsA|CreateFontA|CreateFontIndirectA'
calls+='|GetWindowTextA|GetDlgItemTextA|LVM_GETITEMTEXTA|LVM_GETITEMA|TCM_GETITEMA|HDM_GETITEMA'
calls+='|GetEnvironmentVariableA|GetEnvironmentStringsA|ExpandEnvironmentStringsA|getenv'
calls+='|GetTempPathA|GetModuleFileNameA|GetCurrentDirectoryA|GetFullPathNameA|GetLongPathNameA|GetShortPathNameA'
calls+='|GetWindowsDirectoryA|GetSystemDirectoryA|GetCommandLineA|FindFirstFileA|FindFirstFileExA|FindNextFileA'
calls+='|SHGetPathFromIDListA|SHGetFolderPathA|SHGetSpecialFolderPathA|DragQueryFileA|GetOpenFileNameA|GetSaveFileNameA'
calls+='|RegQueryValueExA|RegGetValueA|RegEnumKeyExA|RegEnumValueA|SearchPathA'

# Texts of list and combo boxes, asked by the 8-bit call.
boxes='SendMessageA\([^;]*(LB_GETTEXT\b|CB_GETLBTEXT\b|WM_GETTEXT\b)'

found=0
report() {
  echo "$1" >&2
  sed 's/^/  /' <<<"$2" >&2
  found=1
}
look_for() {
  local places
  places=$(grep -rnE "\b($1)\b" --include='*.cpp' --include='*.h' "${@:2}" |
    grep -vE '^base/text/|^[^:]*:[0-9]+: *//' || true)
  [ -z "$places" ] || report "Text that base/text should convert (see base/text/code_page.h):" "$places"
}
look_for "$calls" base src workbench tools
look_for "$conversions" tests bench
# A call may go over several lines: each file is read as one.
while IFS= read -r -d '' file; do
  place=$(tr '\n' ' ' <"$file" | grep -oE "$boxes" | head -n 1)
  [ -z "$place" ] || report "Texts of boxes that are asked by the 8-bit call:" "$file: ${place: -40}"
done < <(find base src workbench tools \( -name '*.cpp' -o -name '*.h' \) -print0)
exit "$found"
