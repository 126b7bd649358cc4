# shellcheck shell=bash
# The five toolbars, twice as large as on the screen. A file is selected, so that every command is available.
toolbar_picture() { picture "$1" "$(place_of_window ToolbarWindow32 "$2" '*')" 64 2; }
history_view=107 favorites_view=108

start_workbench
click "$(place_of_row 'Chess pawn.ply')"
press ctrl+c # for Paste
park_mouse
# The command toolbar is as wide as its window: the picture ends behind the box.
read -r left top _ height <<<"$(place_of_window ToolbarWindow32 32000 '*')"
read -r box _ width _ <<<"$(place_of_window Edit 32003 '*')"
picture toolbar-commands "$left $top $((box + width + 6 - left)) $height" 64 2
toolbar_picture toolbar-folders 32001
toolbar_picture toolbar-selector 32004
click "$(place_of_button 32001 $history_view)"
park_mouse
toolbar_picture toolbar-history 32002
click "$(place_of_button 32002 $favorites_view)"
park_mouse
toolbar_picture toolbar-favorites 32003
