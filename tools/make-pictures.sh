#!/usr/bin/env bash
# Makes the pictures of the documentation (docs/pictures) from the running program. ./run.sh has been run before.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/display.sh
. tools/wine-env.sh
bin=build/windows-release/bin
start_virtual_display 1600x1000
trap 'WINEPREFIX="$PWD/build/windows-release/wineprefix" "$WINESERVER" -k 2>/dev/null || true; stop_virtual_display' EXIT
wine_env_for "$bin"
wine_managed_windows N

# The samples as a user of Windows would have them, not in this machine's folders.
rm -rf "$WINEPREFIX/drive_c/Samples"
cp -r samples "$WINEPREFIX/drive_c/Samples"
ready=$WINEPREFIX/drive_c/ready.txt
rm -f "$ready"
"$WINE" "$bin/workbench.exe" --size 1240x820 --profile 'C:\pictures.ini' --ready-file 'C:\ready.txt' 'C:\Samples' \
  >/dev/null 2>&1 &
for _ in $(seq 300); do
  grep -q ready "$ready" 2>/dev/null && break
  sleep 0.1
done
window=$(xdotool search --onlyvisible --name '^Workbench' | head -n 1)
mkdir -p docs/pictures
import -window "$window" docs/pictures/workbench.png
echo "docs/pictures/workbench.png"
