#!/usr/bin/env bash
# A user's way through the workbench, with real mouse and keyboard input on a display of its own: double clicks on
# files load them, a double click on a folder opens it, a single click loads nothing, and the close box ends the
# program, which then has written its history and its favorites.
#   tests/e2e/double_click.sh BIN_FOLDER
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)
# shellcheck source=tools/display.sh
. "$root/tools/display.sh"
# shellcheck source=tools/wine-env.sh
. "$root/tools/wine-env.sh"

# shellcheck source=tests/e2e/session.sh
. "$here/session.sh"
facts=
seen_handover=

report_details() {
  if [ -n "$workbench_pid" ]; then look; fi
  echo "--- what the workbench shows, or showed last"
  echo "$facts"
  if [ -n "${WINEPREFIX:-}" ]; then echo "--- hand-over file: $(hand_over)"; fi
  echo "--- history"
  cat "$work/user/history.dat" 2>/dev/null || true
  echo "--- per-user directory"
  ls -l "$work/user" 2>/dev/null || true
}

# The facts are those of the last look.
look() {
  timeout 180 "$WINE" "$bin/row_probe.exe" >"$work/facts" 2>/dev/null || true
  facts=$(tr -d '\r' <"$work/facts")
}
fact() { awk -F '\t' -v key="$1" '$1 == key { print substr($0, length(key) + 2) }' <<<"$facts"; }
row() { awk -F '\t' -v name="$1" '$1 == "row" && $5 == name { print $2, $3, $4 }' <<<"$facts"; }

shows_title() { look && [ "$(fact title)" = "$1" ]; }
shows_rows() {
  look
  [ "$(awk -F '\t' '$1 == "row" { print $5 }' <<<"$facts" | sort)" = "$(printf '%s\n' "$@" | sort)" ]
}
is_selected() { look && [[ "$(row "$1")" == *" 1" ]]; }

hand_over_files() { find "$WINEPREFIX/drive_c" -name WM_HALVO_AUTOLOAD_FILE.txt; }
# The content with a point behind it: so that a line end would be seen.
hand_over() { hand_over_files | while read -r file; do cat "$file"; done && echo .; }
hands_over() { [ "$(hand_over)" = "$1." ]; }

# click NAME TIMES: on the row of the list.
click() {
  local x y selected
  look
  read -r x y selected <<<"$(row "$1")" || true
  [ -n "${selected:-}" ] || fail "the list has no row \"$1\""
  xdotool mousemove "$x" "$y" click --repeat "$2" --delay 60 1
}

# The document in front is a window of that kind and has painted more than a blank page.
shows_view() {
  local kind x y width height colors
  look
  IFS=$'\t' read -r kind x y width height <<<"$(fact view)" || true
  [ "$kind" = "$1" ] || return 1
  colors=$(import -window root -crop "${width}x$height+$x+$y" -format '%k' info: 2>/dev/null) || return 1
  [ "$colors" -ge 3 ]
}

# loads NAME PATH VIEW: a double click on the row hands the file over, and the document area shows it.
loads() {
  local expected
  expected=$(windows_path "$2")
  step "double click on $1"
  click "$1" 2
  wait_for "the hand-over file names $expected" hands_over "$expected"
  wait_for "the title names $1" shows_title "$1 - Workbench"
  [ "$(fact status)" = "$expected" ] || fail "the status line does not name $expected"
  wait_for "the document area shows a $3" shows_view "$3"
  seen_handover=$expected.
}

# The program has answered the last click: what it does not show now, it has not done.
loaded_nothing() {
  [ "$(hand_over)" = "$1" ] || fail "a file was handed over"
  [ "$(fact title)" = "$2" ] || fail "the title became \"$(fact title)\""
}

begin_session double-click "${1:-}" row_probe.exe
files="$work/My files"
mkdir -p "$files/Inner folder"
cp "$root/samples/Textures/Colour wheel.png" "$root/samples/Read me.txt" "$root/samples/Models/Cube.obj" "$files"
cp "$root/samples/Documents/Modelling notes.md" "$files/Inner folder"

prepare_display
hand_over_files | while read -r file; do rm "$file"; done

open_workbench "$files"
wait_for "the rows of the folder" shows_rows "Colour wheel.png" "Cube.obj" "Inner folder" "Read me.txt"
[ "$(fact title)" = Workbench ] || fail "the title is \"$(fact title)\" before anything is loaded"

step "single click on Cube.obj"
click Cube.obj 1
wait_for "Cube.obj is selected" is_selected Cube.obj
loaded_nothing . Workbench

loads "Colour wheel.png" "$files/Colour wheel.png" WorkbenchPictureView
loads "Read me.txt" "$files/Read me.txt" WorkbenchTextView

step "double click on the folder"
# A link holds its path in one-byte characters, in two-byte ones, or in both.
link_names() { tr -d '\0' <"$work/user/ExploreCurrentDirectory.lnk" 2>/dev/null | grep -aq "$1"; }
link_names "Inner folder" && fail "the link names the inner folder too early"
click "Inner folder" 2
wait_for "the rows of the inner folder" shows_rows "Modelling notes.md"
wait_for "the link to the inner folder" link_names "Inner folder"
loaded_nothing "$seen_handover" "Read me.txt - Workbench"

loads "Modelling notes.md" "$files/Inner folder/Modelling notes.md" WorkbenchTextView

step "click on the close box"
read -r x y <<<"$(fact close)" || true
[ -n "${y:-}" ] || fail "the main window has no close box"
xdotool mousemove "$x" "$y" click 1
workbench_has_ended_well

step "what was written"
history=$(tr -d '\r' <"$work/user/history.dat" | sed -n 's/^f[0-9]*=//p')
expected_history=$(windows_path "$files/Colour wheel.png"
  echo
  windows_path "$files/Read me.txt"
  echo
  windows_path "$files/Inner folder/Modelling notes.md")
[ "$history" = "$expected_history" ] || fail "the history lists"$'\n'"$history"
[ -f "$work/user/favorites.dat" ] || fail "there is no favorites.dat"
step "passed"
