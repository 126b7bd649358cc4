# shellcheck shell=bash
# shellcheck disable=SC2154  # preset, bin and work come from tools/make-pictures.sh
# Sourced by tools/make-pictures.sh: what scenes are made with. A place is "X Y WIDTH HEIGHT" in pixels of the screen.
#
#   start_workbench [WIDTHxHEIGHT [FOLDER]]   the workbench with the File Explorer on a fresh copy of the samples;
#                                             FOLDER (a Windows path below C:\Samples) instead of C:\Samples;
#                                             the user's directory gets the files of the folder user_data, when set
#   stop_workbench                            ends it (done by itself at the end of a scene)
#   wait_for WHAT COMMAND...                  until the command succeeds; the scene fails after 20 seconds
#   place_of_window CLASS ID TEXT             the first visible window that agrees; * agrees with everything
#   place_of_button TOOLBAR COMMAND           a button by the toolbar's control id
#   place_of_row NAME, place_of_item NAME     a row of the file list, an item of the tree in sight
#   join PLACE PLACE...                       the place that holds them all
#   grow PLACE PIXELS                         the place with a margin
#   has_colors PLACE COUNT                    whether it shows at least so many
#   hover PLACE, click PLACE [BUTTON], double_click PLACE, press KEY..., type_text TEXT
#   picture NAME PLACE [COLORS [SCALE]]       writes docs/pictures/NAME.png, SCALE times as large

deadline=20
workbench_pid=

fail() {
  import -window root "$PWD/build/$preset/failed-picture.png" 2>/dev/null || true
  echo "FAILED: $* (the screen: build/$preset/failed-picture.png)" >&2
  exit 1
}

wait_for() {
  local what=$1 end=$((SECONDS + deadline))
  shift
  until "$@" >/dev/null; do
    [ "$SECONDS" -lt "$end" ] || fail "waited $deadline seconds for $what"
    sleep 0.1
  done
}

probe() { timeout 30 "$WINE" "$bin/window_probe.exe" "$@" 2>/dev/null </dev/null | tr -d '\r' | tr '\t' ' '; }
probe_answers() { [ -n "$(probe "$@")" ]; }

is_ready() {
  kill -0 "$workbench_pid" 2>/dev/null || fail "the workbench ended while it started"
  grep -q ready "$WINEPREFIX/drive_c/ready.txt" 2>/dev/null
}

start_workbench() {
  local size=${1:-1240x820} folder=${2:-C:\\Samples} drive=$WINEPREFIX/drive_c
  stop_workbench
  # The samples and the user's files as a user of Windows would have them, not in this machine's folders.
  rm -rf "$drive/Samples" "$drive/User data" "$drive/pictures.ini" "$drive/ready.txt"
  mkdir -p "samples/Empty folder" "$drive/User data"
  cp -r samples "$drive/Samples"
  [ -z "${user_data:-}" ] || cp "$user_data"/* "$drive/User data"
  HALVO_APPLICATION_DIRECTORY='C:\User data' "$WINE" "$bin/workbench.exe" --size "$size" --profile 'C:\pictures.ini' \
    --ready-file 'C:\ready.txt' "$folder" >/dev/null 2>&1 &
  workbench_pid=$!
  wait_for "the workbench" is_ready
  park_mouse
}

stop_workbench() {
  [ -n "$workbench_pid" ] || return 0
  kill "$workbench_pid" 2>/dev/null || true
  wait "$workbench_pid" 2>/dev/null || true
  workbench_pid=
}

# Where the mouse points at nothing.
park_mouse() { xdotool mousemove 1599 999; }

place_of_window() {
  local found
  found=$(probe find "$@")
  [ -n "$found" ] || fail "there is no window $*"
  echo "$found"
}
place_of_button() {
  local found
  found=$(probe button "$@")
  [ -n "$found" ] || fail "there is no button $*"
  cut -d ' ' -f 1-4 <<<"$found"
}
place_of_row() {
  wait_for "the row $1" probe_answers row "$1"
  probe row "$1" | cut -d ' ' -f 1-4
}
place_of_item() {
  wait_for "the item $1" probe_answers item "$1"
  probe item "$1" | cut -d ' ' -f 1-4
}

join() {
  local place left=99999 top=99999 right=0 bottom=0 x y width height
  for place in "$@"; do
    read -r x y width height <<<"$place"
    [ "$x" -ge "$left" ] || left=$x
    [ "$y" -ge "$top" ] || top=$y
    [ $((x + width)) -le "$right" ] || right=$((x + width))
    [ $((y + height)) -le "$bottom" ] || bottom=$((y + height))
  done
  echo "$left $top $((right - left)) $((bottom - top))"
}

grow() {
  local x y width height
  read -r x y width height <<<"$1"
  x=$((x - $2)) y=$((y - $2))
  [ "$x" -ge 0 ] || x=0
  [ "$y" -ge 0 ] || y=0
  echo "$x $y $((width + 2 * $2)) $((height + 2 * $2))"
}

hover() {
  local x y width height
  read -r x y width height <<<"$1"
  x=$((x + width / 2)) y=$((y + height / 2))
  # In two steps: a pointer that appears somewhere has not moved.
  xdotool mousemove $((x - 3)) $((y - 3)) sleep 0.1 mousemove "$x" "$y"
}
click() {
  hover "$1"
  xdotool click "${2:-1}"
}
double_click() {
  hover "$1"
  xdotool click --repeat 2 --delay 60 1
}
press() { xdotool key "$@"; }
type_text() { xdotool type --delay 40 "$1"; }

# has_colors PLACE COUNT: the place shows at least so many colours, as pictures do.
has_colors() {
  local x y width height
  read -r x y width height <<<"$1"
  [ "$(import -window root -crop "${width}x$height+$x+$y" -format %k info:)" -ge "$2" ]
}

# The screen has come to rest: it looks the same a little later (not always at once, a caret may blink).
screen_rests() {
  local before
  before=$(import -window root rgb:- | md5sum)
  for _ in 1 2 3 4; do
    sleep 0.3
    [ "$(import -window root rgb:- | md5sum)" != "$before" ] || return 0
  done
  return 1
}

picture() {
  local x y width height target=docs/pictures/$1.png
  read -r x y width height <<<"$2"
  [ -n "$height" ] || fail "no place for the picture $1"
  wait_for "the screen to rest" screen_rests
  import -window root png:- |
    convert - -crop "${width}x$height+$x+$y" +repage +dither -colors "${3:-128}" -scale "$((${4:-1} * 100))%" -strip \
      -define png:exclude-chunks=date,time -define png:compression-level=9 "$target"
  echo "$target: $(stat -c %s "$target") bytes"
}
