#!/usr/bin/env bash
# Dragging favourites with a real mouse, in the workbench on a display of its own: into a folder, onto a reference, onto
# the protected root; and what must not move: the root, an entry onto itself, a folder onto its own child. Checked in the
# tree and in the favorites.dat that the program leaves.
#   tests/e2e/drag_favorites.sh BIN_FOLDER
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)
# shellcheck source=tools/display.sh
. "$root/tools/display.sh"
# shellcheck source=tools/wine-env.sh
. "$root/tools/wine-env.sh"

# shellcheck source=tests/e2e/session.sh
. "$here/session.sh"

report_details() {
  echo "--- favorites"
  cat "$work/user/favorites.dat" 2>/dev/null || true
}

probe() {
  # Through a file: a pipe would stay open as long as Wine's server.
  timeout 180 "$WINE" "$bin/window_probe.exe" "$@" >"$work/answer" 2>/dev/null </dev/null || true
  tr -d '\r' <"$work/answer" | tr '\t' ' '
}
shows_item() { [ -n "$(probe item "$1")" ]; }

# The middle of a place "X Y WIDTH HEIGHT ...".
middle() { awk '{ print int($1 + $3 / 2), int($2 + $4 / 2) }' <<<"$1"; }
# What stands in the tree below what: the left edge of a label says how deep it is, the top edge in which row.
left_of() { probe item "$1" | cut -d ' ' -f 1; }
top_of() { probe item "$1" | cut -d ' ' -f 2; }
# is_right_below NAME ABOVE: in the next row of the tree.
is_right_below() {
  local top above
  top=$(top_of "$1") above=$(top_of "$2")
  [ -n "$top" ] && [ -n "$above" ] && [ "$top" -gt "$above" ] && [ $((top - above)) -lt 30 ]
}

# drag FROM TO: names of items in the tree.
drag() {
  local x y to_x to_y
  read -r x y <<<"$(middle "$(probe item "$1")")"
  read -r to_x to_y <<<"$(middle "$(probe item "$2")")"
  [ -n "${to_y:-}" ] || fail "the tree does not show \"$1\" and \"$2\""
  xdotool mousemove "$x" "$y" sleep 0.1 mousedown 1 sleep 0.3 \
    mousemove $((x + 3)) "$y" sleep 0.05 mousemove $((x + 7)) "$y" sleep 0.05 \
    mousemove $((x + 12)) "$y" sleep 0.05 mousemove $((x + 16)) $((y + 1)) sleep 0.05 \
    mousemove $((to_x + 2)) "$to_y" sleep 0.1 mousemove "$to_x" "$to_y" sleep 0.1 mouseup 1
}

begin_session drag-favorites "${1:-}" window_probe.exe
mkdir "$work/files"
# Favorites(Models(cube.obj) Scenes(Inner(city.3ds)) wood.png) Archive. The archive is a folder that the root does not
# hold: there is nothing but its protection that keeps the root from being dropped on it.
record() { printf 'K={%s}\r\ns=%s\r\ni=%s\r\nd=%s\r\n%s\r\n' "$1" "$2" "$3" "$4" "$5"; }
{
  record 0 49 0 Favorites E
  record 1 21 0 Models 'p={0}'
  record 2 4 1 cube.obj $'n=X:\\cube.obj\r\np={1}'
  record 3 21 0 Scenes 'p={0}'
  record 4 21 0 Inner 'p={3}'
  record 5 4 1 city.3ds $'n=X:\\city.3ds\r\np={4}'
  record 6 4 1 wood.png $'n=X:\\wood.png\r\np={0}'
  record 7 21 0 Archive E
} >"$work/user/favorites.dat"

prepare_display
open_workbench "$work/files"
folders_toolbar=32001 favorites_view=108
# shellcheck disable=SC2046  # two words
xdotool mousemove $(middle "$(probe button "$folders_toolbar" "$favorites_view")") click 1
wait_for "the favorites" shows_item city.3ds

step "what must not move: the root, an entry onto itself, a folder onto its child"
drag Favorites Archive
drag Models Models
drag Scenes Inner
[ "$(left_of Favorites)" = "$(left_of Archive)" ] || fail "the root moved"
[ "$(left_of Inner)" -gt "$(left_of Scenes)" ] || fail "the folder moved into its own child"
is_right_below Models Favorites || fail "the folder is not where it was"

step "into a folder"
drag wood.png Models
wait_for "wood.png is behind cube.obj" is_right_below wood.png cube.obj
[ "$(left_of wood.png)" = "$(left_of cube.obj)" ] || fail "wood.png is not in the folder"

step "onto a reference"
drag cube.obj city.3ds
wait_for "cube.obj is behind city.3ds" is_right_below cube.obj city.3ds
[ "$(left_of cube.obj)" = "$(left_of city.3ds)" ] || fail "cube.obj is not in the reference's folder"

step "onto the root"
drag city.3ds Favorites
wait_for "city.3ds is behind cube.obj" is_right_below city.3ds cube.obj
[ "$(left_of city.3ds)" = "$(left_of Models)" ] || fail "city.3ds is not directly below the root"

step "closing the workbench"
read -r x y width _ <<<"$(probe find WorkbenchMainWindow '*' '*')"
xdotool mousemove $((x + width / 2)) $((y + 12)) click 1 key alt+F4
workbench_has_ended_well

# "name in parent's name" of each record, in the order of the file.
arrangement=$(tr -d '\r' <"$work/user/favorites.dat" | awk -F = '
  $1 == "K" { key = $2 }
  $1 == "d" { name[key] = $2 }
  $1 == "p" { print name[key] " in " name[$2] }
  $1 == "E" { print name[key] }')
expected="Favorites
Models in Favorites
wood.png in Models
Scenes in Favorites
Inner in Scenes
cube.obj in Inner
city.3ds in Favorites
Archive"
[ "$arrangement" = "$expected" ] || fail "favorites.dat holds"$'\n'"$arrangement"
step "passed"
