#!/usr/bin/env bash
# The check of times in tests finds what it should, and nothing else.
set -u
check=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/real_time.sh
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
mkdir -p "$tree"/tests/{support,unit,integration/documents}
failed=0

# expect STATUS FILE TEXT
expect() {
  printf '%s\n' "$3" >"$tree/tests/$2"
  bash "$check" "$tree" >/dev/null
  local status=$?
  rm "$tree/tests/$2"
  if [ "$status" != "$1" ]; then
    echo "status $status instead of $1 for $2: $3" >&2
    failed=1
  fi
}

expect 1 unit/a_test.cpp '  Sleep(5);'
expect 1 unit/a_test.cpp '  std::this_thread::sleep_for(std::chrono::seconds(1));'
expect 1 unit/a_test.h '  const auto start = std::chrono::steady_clock::now();'
expect 1 support/a.cpp '  const ULONGLONG end = GetTickCount64() + 30;'
expect 1 unit/a_test.cpp '  while (WaitForSingleObject(gate, 500) == WAIT_TIMEOUT) {'
expect 0 support/wait_until.cpp '  const ULONGLONG end = GetTickCount64() + patience;'
expect 0 integration/documents/dialog_driver.cpp '  deadline_ = GetTickCount64();'
expect 0 unit/a_test.cpp '  // Sleep(5) would not do.'
expect 0 unit/a_test.cpp '  EXPECT_EQ(WaitForSingleObject(process, INFINITE), WAIT_OBJECT_0);'
expect 0 unit/a_test.cpp '  while (WaitForSingleObject(gate, 5) == WAIT_TIMEOUT) {'
exit "$failed"
