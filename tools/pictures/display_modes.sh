# shellcheck shell=bash
# The file view in its five display modes.
mode_picture() {
  click "$(place_of_button 32000 "$2")"
  park_mouse
  # The mode's button shows checked.
  wait_for "mode $1" mode_is_checked "$2"
  [ -z "${3:-}" ] || wait_for "the previews" has_colors "$(place_of_window HalvoFileViewClass '*' '*')" "$3"
  picture "mode-$1" "$(place_of_window HalvoFileViewClass '*' '*')" 255
}
mode_is_checked() { [ $(($(probe button 32000 "$1" | cut -d ' ' -f 5) & 1)) -eq 1 ]; }

start_workbench 1240x820
mode_picture list 114
mode_picture large-icons 115
mode_picture small-icons 116
mode_picture thumbnails 117 800
mode_picture details 113
