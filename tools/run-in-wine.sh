#!/usr/bin/env bash
# Runs a Windows program through Wine in the prefix of the build folder that the program lies in:
#   tools/run-in-wine.sh build/windows-debug/bin/program.exe [arguments]
# The prefix is made at the first use; its windows need no window manager. WINE_TIMEOUT (seconds, default 300) ends a program that hangs.
set -u
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tools/wine-env.sh
. "$here/wine-env.sh"
program=$1
shift
[ -z "${EXPLORER_IS_TEST:-}" ] || take_lane "$program"
wine_env_for "$program" 8>&- || exit 1
wine_managed_windows N 8>&-
# Through a file, not a pipe: Wine's background processes inherit the output and would keep a pipe open for seconds.
output=$(mktemp)
trap 'rm -f "$output"' EXIT
timeout --kill-after=10 "${WINE_TIMEOUT:-300}" "$WINE" "$program" "$@" >"$output" 2>&1 8>&-
result=$?
sed 's/\r$//' "$output"
exit "$result"
