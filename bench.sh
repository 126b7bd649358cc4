#!/usr/bin/env bash
# Builds the benchmarks and runs them: those of the logic on this machine, those with windows under Wine on a virtual
# display. Prints one line a figure, as a ratio against a reference that was measured in the same run.
#   ./bench.sh [NAME...]      for example ./bench.sh matcher
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. tools/display.sh
. tools/wine-env.sh

tools/install-dependencies.sh
tools/install-bench-references.sh

jobs=$(nproc)
for preset in native-release windows-release; do
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$jobs" --target benchmarks >&2  # what is printed is figures
done

wanted() {
  local name
  [ $# -gt 1 ] || return 0
  for name in "${@:2}"; do
    [ "$name" != "$1" ] || return 0
  done
  return 1
}

for program in build/native-release/bin/bench_*; do
  [ -x "$program" ] || continue
  name=${program##*/bench_}
  wanted "$name" "$@" || continue
  if [ "$name" = models ] && [ -d /usr/share/assimp/models ]; then
    "$program" /usr/share/assimp/models
  else
    "$program"
  fi
done

finish() {
  WINEPREFIX="$PWD/build/windows-release/wineprefix" "$WINESERVER" -k 2>/dev/null || true
  stop_virtual_display
}
trap finish EXIT
start_virtual_display 1600x1000
wine_env_for build/windows-release/bin
for program in build/windows-release/bin/bench_*.exe; do
  [ -e "$program" ] || continue
  name=${program##*/bench_}
  if wanted "${name%.exe}" "$@"; then
    tools/run-in-wine.sh "$program"
  fi
done
