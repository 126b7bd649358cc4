# shellcheck shell=bash
# Thumbnails of models and pictures.
# Drags the border above the explorer up by that many pixels.
raise_explorer() {
  local x y width
  read -r x y width _ <<<"$(place_of_window HalvoFileViewClass '*' '*')"
  x=$((x + width / 2)) y=$((y - 24))
  xdotool mousemove "$x" "$y" sleep 0.1 mousedown 1 sleep 0.1 mousemove "$x" $((y - $1 / 2)) sleep 0.1 \
    mousemove "$x" $((y - $1)) sleep 0.1 mouseup 1
}

preview_picture() { # NAME FOLDER COLORS
  start_workbench 1240x1000 "C:\\Samples\\$2"
  click "$(place_of_button 32000 117)"
  raise_explorer 35
  park_mouse
  wait_for "the previews of $2" has_colors "$(place_of_window SysListView32 '*' '*')" "$3"
  picture "$1" "$(place_of_window HalvoFileViewClass '*' '*')" 255
}

preview_picture previews-models Models 400
preview_picture previews-pictures Pictures 3000
