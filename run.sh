#!/usr/bin/env bash
# Installs what is missing, builds, and opens the workbench with the File Explorer on a folder:
#   ./run.sh [FOLDER]        without FOLDER: the sample folder
# With a display the window stays open until you close it. Without one the workbench runs on a virtual display, and the
# last line says where the picture of its window lies.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. tools/display.sh
. tools/wine-env.sh

folder=${1:-samples}
mkdir -p "samples/Empty folder"  # kept by no version control
if [ ! -d "$folder" ]; then
  echo "There is no folder $folder." >&2
  exit 2
fi
folder=$(cd "$folder" && pwd)

tools/install-dependencies.sh
preset=windows-release
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" -j "$(nproc)" --target runnable

bin=build/$preset/bin
has_display=${DISPLAY:-}
finish() {
  if [ -z "$has_display" ]; then
    WINEPREFIX="$PWD/build/$preset/wineprefix" "$WINESERVER" -k 2>/dev/null || true
    stop_virtual_display
  fi
}
trap finish EXIT
[ -n "$has_display" ] || start_virtual_display 1600x1000
wine_env_for "$bin"

# Wine shows the machine's root folder as drive Z.
windows_folder="Z:${folder//\//\\}"
if [ -n "$has_display" ]; then
  wine_managed_windows Y
  "$WINE" "$bin/workbench.exe" "$windows_folder"
  exit
fi

wine_managed_windows N
picture=$PWD/build/$preset/workbench.png
state=$(mktemp)
"$WINE" "$bin/workbench.exe" --size 1560x960 --ready-file "Z:${state//\//\\}" "$windows_folder" >/dev/null 2>&1 &
workbench_pid=$!
for _ in $(seq 6000); do  # as long as it runs, ten minutes at most
  grep -q ready "$state" 2>/dev/null && break
  kill -0 "$workbench_pid" 2>/dev/null || break
  sleep 0.1
done
if ! grep -q ready "$state" 2>/dev/null; then
  echo "The workbench did not show the folder: $(cat "$state")" >&2
  rm -f "$state"
  exit 1
fi
rm -f "$state"
import -window root "$picture"
kill "$workbench_pid" 2>/dev/null || true
echo "picture: $picture"
