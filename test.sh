#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: the logic natively with sanitizers and again for Windows, the
# windows under Wine on a virtual display, the end-to-end tests with real mouse and keyboard.
#   ./test.sh [CTest arguments, for example -R settings]
# Everything is tried, whatever fails before; the last lines say what failed, and the result is 0 only when nothing did.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. tools/display.sh
. tools/wine-env.sh

tools/install-dependencies.sh

windows='windows-debug'
native='native-sanitized'
jobs=$(nproc)
lanes=$((jobs < 4 ? jobs : 4))  # Windows programs that run side by side, each on a display of its own
extra=${EXTRA_TESTS_DIR:+$(cd "$EXTRA_TESTS_DIR" && pwd)}
native_output=$(mktemp)
native_job=

finish() {
  local prefix
  if [ -n "$native_job" ]; then kill "$native_job" 2>/dev/null || true; fi
  for prefix in "$PWD/build/$windows"/wineprefix*; do WINEPREFIX=$prefix "$WINESERVER" -k 2>/dev/null || true; done
  stop_virtual_display
  rm -f "$native_output"
}
trap finish EXIT

failures=()
# note PRESET STEP RESULT: STEP is "build" or "tests".
note() {
  local log=build/$1/Testing/Temporary/LastTestsFailed.log names=
  [ "$3" -ne 0 ] || return 0
  if [ "$2" = tests ] && [ -s "$log" ]; then names=": $(cut -d : -f 2 "$log" | sort -u | paste -s -d ' ')"; fi
  failures+=("$1, $2$names")
}

build() {
  cmake --preset "$1" -DEXTRA_TESTS_DIR="$extra" >/dev/null && cmake --build --preset "$1" -j "$jobs"
}

# run_tests PRESET JOBS CTEST_ARGUMENTS...
run_tests() {
  rm -f "build/$1/Testing/Temporary/LastTestsFailed.log"
  ctest --preset "$1" -j "$2" "${@:3}"
}

# The result: 1 when the build failed, 2 when a test did.
build_and_test_natively() {
  build "$native" || return 1
  run_tests "$native" "$jobs" "$@" || return 2
}

result=0
build "$windows" || result=$?
note "$windows" build "$result"

# The Windows tests wait for windows most of the time, which the compiler makes use of.
build_and_test_natively "$@" >"$native_output" 2>&1 &
native_job=$!
if [ "$result" -eq 0 ]; then
  EXPLORER_DISPLAYS=
  for ((lane = 0; lane < lanes; lane++)); do
    start_virtual_display 1600x1000
    EXPLORER_DISPLAYS="$EXPLORER_DISPLAYS $DISPLAY"
  done
  export EXPLORER_DISPLAYS
  run_tests "$windows" "$lanes" "$@" || result=$?
  note "$windows" tests "$result"
fi

result=0
wait "$native_job" || result=$?
native_job=
cat "$native_output"
case $result in
  0) ;;
  1) note "$native" build "$result" ;;
  *) note "$native" tests "$result" ;;
esac

if [ ${#failures[@]} -gt 0 ]; then
  printf 'FAILED in %s\n' "${failures[@]}"
  exit 1
fi
echo "Everything passed."
