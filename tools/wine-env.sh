# shellcheck shell=bash
# Sourced: the Wine that this project uses, with a prefix of its own for each build folder.
# The user's own ~/.wine is never touched.

WINE=/usr/lib/wine/wine64
WINESERVER=/usr/lib/wine/wineserver
export WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="mscoree=;mshtml=;winedbg.exe=d;winemenubuilder.exe=d"

# wine_env_for PATH: exports WINEPREFIX for the build folder that PATH lies in (or WINEPREFIX as it is, when set),
# making the prefix when it is missing.
wine_env_for() {
  local build
  build=$(cd "$(dirname "$1")" && pwd)
  while [ "$build" != / ] && [ ! -f "$build/CMakeCache.txt" ]; do build=$(dirname "$build"); done
  if [ "$build" = / ]; then
    echo "wine-env: $1 does not lie in a build folder" >&2
    return 1
  fi
  export WINEPREFIX="${EXPLORER_WINEPREFIX:-$build/wineprefix}"
  # What is deleted to the recycle bin lands in the prefix, not in the user's own bin.
  export XDG_DATA_HOME="$WINEPREFIX/xdg-data"
  [ -f "$WINEPREFIX/.ready-2" ] || make_wine_prefix || return 1
  # Wine has a bin only where this folder exists.
  mkdir -p "$XDG_DATA_HOME"
  # The server stays for a minute after its last program, so that the next one starts at once.
  "$WINESERVER" -p60 </dev/null >/dev/null 2>&1 || true
}

# take_lane PATH: tests with windows disturb each other on one desktop. This waits for a display of EXPLORER_DISPLAYS
# (numbers as in DISPLAY, separated by blanks; DISPLAY alone when it is not set) that no other test of the build folder
# uses, and exports DISPLAY and EXPLORER_WINEPREFIX, a prefix for each display. The display is held through file
# descriptor 8, which programs that stay behind must not inherit.
take_lane() {
  local build displays lane
  read -ra displays <<<"${EXPLORER_DISPLAYS:-${DISPLAY:-none}}"
  build=$(cd "$(dirname "$1")/.." && pwd)
  while true; do
    for lane in "${!displays[@]}"; do
      exec 8>"$build/lane-$lane.lock"
      if flock -n 8; then
        [ "${displays[lane]}" = none ] || export DISPLAY=${displays[lane]}
        [ "$lane" = 0 ] || export EXPLORER_WINEPREFIX=$build/wineprefix-$lane
        return 0
      fi
    done
    sleep 0.1
  done
}

# Creates WINEPREFIX: no crash dialogs, no desktop links into the user's home.
make_wine_prefix() {
  mkdir -p "$WINEPREFIX"
  (
    flock 9
    [ -f "$WINEPREFIX/.ready-2" ] && exit 0
    timeout 1200 "$WINE" wineboot -i >/dev/null 2>&1
    timeout 600 "$WINE" reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >/dev/null 2>&1
    # The pictures of caption buttons come from a font; smooth outline fonts instead of bitmaps for the texts.
    cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null || true
    # This one is drawn exactly as wide as it is measured, and smooth at the size of dialogs.
    local font
    for font in Tahoma "MS Shell Dlg" "MS Shell Dlg 2" "MS Sans Serif" "Segoe UI"; do
      timeout 600 "$WINE" reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$font" /t REG_SZ /d 'DejaVu Sans Condensed' /f \
        >/dev/null 2>&1
    done
    timeout 600 "$WINE" reg add 'HKCU\Control Panel\Desktop' /v FontSmoothing /t REG_SZ /d 2 /f >/dev/null 2>&1
    timeout 600 "$WINE" reg add 'HKCU\Control Panel\Desktop' /v FontSmoothingType /t REG_DWORD /d 1 /f >/dev/null 2>&1
    # The user's folders become real folders of the prefix instead of links to the home directory.
    local folder
    for folder in "$WINEPREFIX"/drive_c/users/*/*; do
      if [ -L "$folder" ]; then rm "$folder" && mkdir "$folder"; fi
    done
    "$WINESERVER" -w
    touch "$WINEPREFIX/.ready-2"
  ) 9>"$WINEPREFIX/.lock"
}

# wine_managed_windows Y|N: whether windows of WINEPREFIX are handed to a window manager. On a virtual display there is
# none, and each window that is hidden would wait two seconds for its answer.
wine_managed_windows() {
  [ "$(cat "$WINEPREFIX/.managed" 2>/dev/null)" = "$1" ] && return
  timeout 600 "$WINE" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /t REG_SZ /d "$1" /f >/dev/null 2>&1
  echo "$1" >"$WINEPREFIX/.managed"
}
