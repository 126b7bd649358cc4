#!/usr/bin/env bash
# The check of text conversions finds what it should, and nothing else.
set -u
check=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/text_conversions.sh
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
mkdir -p "$tree"/{base/text,src/part,workbench,tools,tests,bench}
failed=0

# expect STATUS FILE TEXT
expect() {
  printf '%s\n' "$3" >"$tree/$2"
  "$check" "$tree" >/dev/null 2>&1
  local status=$?
  rm "$tree/$2"
  if [ "$status" != "$1" ]; then
    echo "status $status instead of $1 for $2: $3" >&2
    failed=1
  fi
}

expect 1 src/part/a.cpp 'size = WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);'
expect 1 workbench/a.h 'int n = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);'
expect 1 tests/a.cpp 'int n = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);'
expect 1 base/a.cpp 'CharLowerBuffA(text, 3);'
expect 1 src/part/a.cpp 'ExtTextOutA(dc, 0, 0, 0, nullptr, text, 3, nullptr);'
expect 1 src/part/a.cpp 'BOOL (*path)(PCIDLIST_ABSOLUTE, LPSTR) = &SHGetPathFromIDListA;'
expect 1 src/part/a.cpp $'SendMessageA(list, LB_GETTEXT,\n             0, buffer);'
expect 1 src/part/a.cpp 'SendMessageA(combo, CB_GETLBTEXT, 0, buffer);'
expect 0 src/part/a.cpp 'SendMessageA(combo, CB_GETLBTEXTLEN, 0, 0);'
expect 0 src/part/a.cpp 'SendMessageW(combo, CB_GETLBTEXT, 0, buffer);'
expect 0 src/part/a.cpp '  // as GetWindowTextA would'
expect 0 base/text/a.cpp 'MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);'
expect 0 tests/a.cpp 'GetWindowTextA(window, text, 3);'
exit "$failed"
