# shellcheck shell=bash
# Files by kind: ten categories in ten colours, a mask that hides half of them, a pattern that selects three.
kinds=("Castle.3ds" "Cottage.obj" "Windmill.ply" "Bricks.png" "Grass.bmp" "Logo.svg" "Read me.txt" "Textures.zip"
  "Flight.avi" "Bell.wav" "Parts list.csv" "Stock.mdb" "Talk.ppt" "Unknown.xyz")

explorer() { place_of_window HalvoFileViewClass '*' '*'; }
row_is_gone() { [ -z "$(probe row "$1")" ]; }
window_is_gone() { [ -z "$(probe find "$@")" ]; }

start_workbench 1240x1000
folder=$WINEPREFIX/drive_c/Samples/Kinds
mkdir "$folder" "$folder/More models"
for name in "${kinds[@]}"; do echo "a sample" >"$folder/$name"; done
touch -d '2024-05-17 10:30' "$folder"/*
double_click "$(place_of_row Kinds)"
park_mouse
place_of_row Talk.ppt >/dev/null
picture file-colors "$(explorer)" 255

# The names that end in an s.
click "$(place_of_window Edit 32003 '*')"
type_text '*s.*'
park_mouse
picture pattern-selection "$(explorer)" 255

click "$(place_of_button 32000 104)"
wait_for "the masks dialog" probe_answers find '#32770' '*' 'File Selection Masks'
press ctrl+a
type_text '*.3ds,*.obj,*.ply,*.png,*.bmp,*.svg,*.txt'
park_mouse
picture masks-dialog "$(place_of_window '#32770' '*' 'File Selection Masks')"
press Return
wait_for "the dialog to close" window_is_gone '#32770' '*' 'File Selection Masks'
wait_for "the mask" row_is_gone Talk.ppt
park_mouse
picture file-masks "$(explorer)" 255
