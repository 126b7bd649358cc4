#!/usr/bin/env bash
# Makes the pictures of the documentation (docs/pictures) from the running program:
#   tools/make-pictures.sh [SCENE...]       without SCENE: all of them
# Each scene is a file tools/pictures/SCENE.sh, which uses the helpers of tools/pictures/helpers.sh and runs in a shell
# of its own, with a fresh profile. PICTURES_PRESET chooses the build (windows-release when it is not set); with
# PICTURES_BUILD=no it is taken as it stands.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/display.sh
. tools/wine-env.sh
. tools/pictures/helpers.sh

preset=${PICTURES_PRESET:-windows-release}
bin=$PWD/build/$preset/bin
scenes=("$@")
if [ ${#scenes[@]} -eq 0 ]; then
  for file in tools/pictures/*.sh; do
    name=$(basename "$file" .sh)
    [ "$name" = helpers ] || scenes+=("$name")
  done
fi
for scene in "${scenes[@]}"; do
  [ -f "tools/pictures/$scene.sh" ] || { echo "There is no scene $scene." >&2; exit 2; }
done

if [ "${PICTURES_BUILD:-yes}" = yes ]; then
  tools/install-dependencies.sh
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$(nproc)" --target runnable window_probe >/dev/null
fi
[ -f "$bin/window_probe.exe" ] || { echo "build/$preset has not been built." >&2; exit 2; }

# A prefix of its own: its desktop lies on this display, and nobody else's settings show.
export EXPLORER_WINEPREFIX=$PWD/build/$preset/pictures-wineprefix
work=$(mktemp -d)
finish() {
  local result=$?
  trap - EXIT
  [ -z "${WINEPREFIX:-}" ] || "$WINESERVER" -k 2>/dev/null || true
  stop_virtual_display
  rm -rf "$work"
  exit "$result"
}
trap finish EXIT
start_virtual_display 1600x1000
wine_env_for "$bin"
wine_managed_windows N
mkdir -p docs/pictures

for scene in "${scenes[@]}"; do
  # Not as part of a condition: that would let a scene go on behind its first failure.
  set +e
  (
    set -e
    trap stop_workbench EXIT
    # shellcheck disable=SC1090  # each scene is checked by itself
    . "tools/pictures/$scene.sh"
  )
  result=$?
  set -e
  [ "$result" -eq 0 ] || { echo "The scene $scene failed." >&2; exit "$result"; }
done
