#!/usr/bin/env bash
# Runs a Windows program through Wine in the prefix of the build folder that the program lies in:
#   tools/run-in-wine.sh build/windows-debug/bin/program.exe [arguments]
# The prefix is made at the first use; its windows need no window manager. WINE_TIMEOUT (seconds, default 2400) ends a
# program that hangs; what its windows look like is kept as a picture in the folder test-failures of the build folder.
# The test programs end themselves much earlier, with a report; see tests/support/watchdog.h.
set -u
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tools/wine-env.sh
. "$here/wine-env.sh"
program=$1
shift
[ -z "${EXPLORER_IS_TEST:-}" ] || take_lane "$program"
wine_env_for "$program" 8>&- || exit 1
wine_managed_windows N 8>&-
EXPLORER_FAILURES=$(dirname "$WINEPREFIX")/test-failures
export EXPLORER_FAILURES
mkdir -p "$EXPLORER_FAILURES"

# Through a file, not a pipe: Wine's background processes inherit the output and would keep a pipe open for seconds.
output=$(mktemp)
guard=
# shellcheck disable=SC2317  # called by the trap
finish() {
  [ -z "$guard" ] || kill "$guard" 2>/dev/null
  rm -f "$output"
}
trap finish EXIT

# end_when_overdue PID: what a hanging program shows is of use only while it runs.
end_when_overdue() {
  local picture
  picture=$EXPLORER_FAILURES/$(basename "$program" .exe)-hangs.png
  sleep "${WINE_TIMEOUT:-2400}" &
  # shellcheck disable=SC2064  # this sleep
  trap "kill $! 2>/dev/null; exit" TERM
  wait $!
  echo "$(basename "$program") does not end." >>"$output"
  if timeout 60 import -window root "$picture" 2>/dev/null; then echo "picture: $picture" >>"$output"; fi
  kill "$1" 2>/dev/null
  sleep 10
  kill -KILL "$1" 2>/dev/null
}

"$WINE" "$program" "$@" >"$output" 2>&1 8>&- &
running=$!
end_when_overdue "$running" >/dev/null 2>&1 8>&- &
guard=$!
wait "$running"
result=$?
sed 's/\r$//' "$output"
exit "$result"
