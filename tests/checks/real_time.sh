#!/usr/bin/env bash
# No test sleeps or measures time: on a busy machine it would turn red. Waits are those of tests/support/wait_until.h;
# only what waits there, and the drivers of modal dialogs, look at a clock.
#   tests/checks/real_time.sh ROOT
set -u
cd "${1:?the root of the sources is missing}" || exit 2
calls='\b(Sleep|SleepEx|sleep_for|sleep_until|usleep|nanosleep|GetTickCount|GetTickCount64|QueryPerformanceCounter|timeGetTime)\s*\('
clocks='(steady|system|high_resolution)_clock\s*::\s*now'
waits='WaitFor(SingleObject|MultipleObjects)\s*\([^;]*,\s*[1-9][0-9]+\s*\)'
allowed='^(tests/support/(wait_until|watchdog|dialog_visits)\.cpp|tests/integration/(fileops/modal|documents/dialog)_driver\.cpp):'
# Comments may speak of it.
found=$(grep -rnE "$calls|$clocks|$waits" tests --include='*.cpp' --include='*.h' |
  grep -vE "$allowed" | grep -vE '^[^:]*:[0-9]+:\s*//')
[ -z "$found" ] && exit 0
echo "Tests that sleep or measure time:"
echo "$found"
exit 1
