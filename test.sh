#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: the logic natively with sanitizers and again for Windows, the
# windows under Wine on a virtual display, the end-to-end tests with real mouse and keyboard.
#   ./test.sh [CTest arguments, for example -R settings]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. tools/display.sh
. tools/wine-env.sh

tools/install-dependencies.sh

preset=windows-debug
jobs=$(nproc)
extra=${EXTRA_TESTS_DIR:+$(cd "$EXTRA_TESTS_DIR" && pwd)}
cmake --preset native-sanitized -DEXTRA_TESTS_DIR="$extra" >/dev/null
cmake --build --preset native-sanitized -j "$jobs"
cmake --preset "$preset" -DEXTRA_TESTS_DIR="$extra" >/dev/null
cmake --build --preset "$preset" -j "$jobs"

finish() {
  local prefix
  for prefix in "$PWD/build/$preset"/wineprefix*; do WINEPREFIX=$prefix "$WINESERVER" -k 2>/dev/null || true; done
  stop_virtual_display
}
trap finish EXIT
lanes=$((jobs < 4 ? jobs : 4))  # Windows programs that run side by side, each on a display of its own
EXPLORER_DISPLAYS=
for ((lane = 0; lane < lanes; lane++)); do
  start_virtual_display 1600x1000
  EXPLORER_DISPLAYS="$EXPLORER_DISPLAYS $DISPLAY"
done
export EXPLORER_DISPLAYS

ctest --preset native-sanitized -j "$jobs" "$@"
ctest --preset "$preset" -j "$lanes" "$@"
