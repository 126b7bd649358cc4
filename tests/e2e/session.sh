# shellcheck shell=bash
# Sourced by the end-to-end tests: a workbench on a display and in a Wine prefix of its own, and what goes wrong with it.
#   begin_session NAME BIN_FOLDER PROGRAM...   sets root, bin, build, work; the programs must have been built
#   prepare_display                            the display and the prefix
#   open_workbench FOLDER                      with the per-user directory $work/user; returns when the list is filled
#   workbench_has_ended_well                   waits for its end, which must be without an error
#   fail TEXT, step TEXT, wait_for WHAT COMMAND..., windows_path PATH
# A test may define report_details, which prints what helps to understand a failure.

deadline=180  # seconds, of each wait; it ends earlier when the workbench does
workbench_pid=

begin_session() {
  local name=$1 program
  bin=$(cd "${2:?the folder of the built programs is missing}" && pwd)
  shift 2
  build=$(dirname "$bin")
  picture=$build/test-failures/e2e-$name.png
  mkdir -p "$build/test-failures"
  rm -f "$picture"
  # Its desktop lies on this display, and its hand-over file is nobody else's.
  export EXPLORER_WINEPREFIX=$build/e2e-$name-wineprefix
  work=$(mktemp -d)
  mkdir -p "$work/user"
  trap end_session EXIT
  for program in workbench.exe ui_file_explorer.dll "$@"; do
    [ -f "$bin/$program" ] || fail "$bin/$program has not been built"
  done
}

end_session() {
  local result=$?
  trap - EXIT
  if [ "$result" -ne 0 ]; then report_failure; fi
  if [ -n "$workbench_pid" ]; then kill "$workbench_pid" 2>/dev/null || true; fi
  if [ -n "${WINEPREFIX:-}" ]; then "$WINESERVER" -k 2>/dev/null || true; fi
  stop_virtual_display
  rm -rf "$work"
  exit "$result"
}

report_failure() {
  if [ -n "${display_pid:-}" ] && import -window root "$picture" 2>/dev/null; then echo "picture: $picture"; fi
  if [ "$(type -t report_details)" = function ]; then report_details; fi
  echo "--- what the workbench said"
  cat "$work/output" 2>/dev/null || true
}

fail() {
  echo "FAILED: $*"
  exit 1
}

step() { echo "$(date +%T) $*"; }

# wait_for WHAT COMMAND...: until the command succeeds.
wait_for() {
  local what=$1 end=$((SECONDS + deadline))
  shift
  until "$@" >/dev/null; do
    [ "$SECONDS" -lt "$end" ] || fail "waited $deadline seconds for: $what"
    # What it showed just before its end counts.
    if [ -n "$workbench_pid" ] && has_ended && ! "$@" >/dev/null; then fail "the workbench ended before: $what"; fi
    sleep 0.1
  done
}

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

prepare_display() {
  start_virtual_display 1400x900
  step "preparing Wine"
  wine_env_for "$bin"
  wine_managed_windows N
}

has_ended() { ! kill -0 "$workbench_pid" 2>/dev/null; }
is_ready() {
  if has_ended; then fail "the workbench ended while it started"; fi
  grep -q ready "$work/state" 2>/dev/null
}

open_workbench() {
  step "starting the workbench"
  HALVO_APPLICATION_DIRECTORY=$(windows_path "$work/user") "$WINE" "$bin/workbench.exe" --size 1360x860 \
    --ready-file "$(windows_path "$work/state")" "$(windows_path "$1")" >"$work/output" 2>&1 &
  workbench_pid=$!
  wait_for "the list is filled" is_ready
}

workbench_has_ended_well() {
  local result=0
  wait_for "the workbench ends" has_ended
  wait "$workbench_pid" || result=$?
  workbench_pid=
  [ "$result" -eq 0 ] || fail "the workbench ended with $result"
}
