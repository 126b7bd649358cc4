# shellcheck shell=bash
# shellcheck disable=SC2154  # preset, bin and work come from tools/make-pictures.sh
# What the user keeps: the history with both kinds of rows, the favorites, the dialog that adds one.

# A time as history.dat holds it: eight 16-bit words, each low byte first, and the sum of the bytes.
history_time() { # YEAR MONTH WEEKDAY DAY HOUR MINUTE
  local word sum=0
  for word in "$@" 0 0; do
    printf '%02X%02X' $((word & 255)) $((word >> 8))
    sum=$((sum + (word & 255) + (word >> 8)))
  done
  printf '%02X' $((sum & 255))
}

history_entry() { # NUMBER PATH TIME...
  local number=$1 path=$2
  shift 2
  printf 'm%d=%s\r\nd%d=%s\r\nf%d=%s\r\n' "$number" "$(history_time "$@")" "$number" "${path##*\\}" "$number" "$path"
}

write_history() {
  printf '[HistoryList]\r\nNumEntries=7\r\n'
  history_entry 0 'C:\Samples\Chess pawn.ply' 2026 11 1 16 14 5
  history_entry 1 'C:\Samples\Landscape.jpg' 2026 11 1 16 9 41
  history_entry 2 'C:\Samples\Models\Gear.stl' 2026 11 5 13 17 30
  history_entry 3 'C:\Samples\Documents\Modelling notes.md' 2026 11 5 13 17 28
  history_entry 4 'C:\Samples\My first village.obj' 2026 11 4 12 11 2
  history_entry 5 'C:\Samples\Models\Ring.3ds' 2026 10 6 31 8 15
  history_entry 6 'C:\Samples\Textures\Colour wheel.png' 2026 10 5 30 16 55
}

favorite() { printf 'K={%s}\r\ns=%s\r\ni=%s\r\nd=%s\r\n%s\r\n' "$@"; } # KEY FLAGS IMAGE NAME LAST-LINES

write_favorites() {
  favorite 0 49 0 Favorites E
  favorite 1 21 0 'Castle project' 'p={0}'
  favorite 2 21 0 Characters 'p={1}'
  favorite 3 4 1 'Chess pawn' $'n=C:\\Samples\\Chess pawn.ply\r\np={2}'
  favorite 4 4 1 'First village' $'n=C:\\Samples\\My first village.obj\r\np={1}'
  favorite 5 21 0 Textures 'p={0}'
  favorite 6 4 1 'Colour wheel' $'n=C:\\Samples\\Textures\\Colour wheel.png\r\np={5}'
  favorite 7 4 1 Wood $'n=C:\\Samples\\Textures\\Wood.jpg\r\np={5}'
  favorite 8 4 1 'All my models' $'n=C:\\Samples\\Models\r\np={0}'
}

# From the heading of the view to the given height.
panel_picture() { # NAME PLACE HEIGHT
  local x y width
  read -r x y width _ <<<"$2"
  picture "$1" "$x $y $width $3" 255
}

user_data=$work/user
mkdir "$user_data"
write_history >"$user_data/history.dat"
write_favorites >"$user_data/favorites.dat"
start_workbench 1240x820

click "$(place_of_button 32001 107)"
wait_for "the history" probe_answers find ListBox 32000 '*'
park_mouse
view=$(join "$(place_of_window ToolbarWindow32 32002 '*')" "$(place_of_window ListBox 32000 '*')")
panel_picture history-compact "$view" 190
click "$(place_of_button 32002 135)"
park_mouse
wait_for "the thumbnails" has_colors "$view" 700
panel_picture history-thumbnails "$view" 498

click "$(place_of_button 32002 108)"
wait_for "the favorites" probe_answers item Wood
click "$(place_of_item 'Castle project')"
park_mouse
view=$(join "$(place_of_window ToolbarWindow32 32003 '*')" "$(place_of_window SysTreeView32 104 '*')")
panel_picture favorites "$view" 230

click "$(place_of_row Pyramid.3ds)"
click "$(place_of_button 32003 132)"
wait_for "the dialog" probe_answers find '#32770' '*' 'Add Favorite'
press ctrl+a
type_text 'Pyramid of the castle'
park_mouse
picture dialog-add-favorite "$(place_of_window '#32770' '*' 'Add Favorite')" 128
press Escape
