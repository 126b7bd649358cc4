#!/usr/bin/env bash
# full_disk.sh BIN: saves history and favorites on a disk that is really full but for some pages, and prints what is
# there afterwards. Either all old entries or all new ones must be, at once and after the disk has room again.
# Needs the right to mount a small disk; without it the result is 77 (the same cases run with a made-up disk in
# unit_history and unit_favorites).
set -u
bin=$1
run=$(cd "$(dirname "$0")/../../.." && pwd)/tools/run-in-wine.sh
disk=$(mktemp -d)
if ! mount -t tmpfs -o size=96k tmpfs "$disk" 2>/dev/null; then
  rmdir "$disk"
  echo "no disk can be mounted here"
  exit 77
fi
trap 'umount "$disk"; rmdir "$disk"' EXIT
failures=0
long=$(printf 'x%.0s' {1..120})

make_history() {
  printf '[HistoryList]\r\nNumEntries=40\r\n'
  local i
  for i in {0..39}; do
    printf 'm%d=EA070B0001001000020005001E00FF0031\r\nd%d=%s%d.obj\r\nf%d=X:\\%s%d.obj\r\n' "$i" "$i" "$long" "$i" "$i" "$long" "$i"
  done
}
make_favorites() {
  printf 'K={0}\r\ns=49\r\ni=0\r\nd=Favorites\r\nE\r\n'
  local i
  for i in {1..60}; do
    printf 'K={%d}\r\ns=4\r\ni=1\r\nd=%d\r\nn=X:\\%s%d\r\np={0}\r\n' "$i" "$i" "$long" "$i"
  done
}
count_history() { grep -c '^d[0-9]*=' "$disk/history.dat" 2>/dev/null; }
count_favorites() { grep -c '^K=' "$disk/favorites.dat" 2>/dev/null; }

# check WHAT FILE OLD PAGES: OLD entries before, two more when the save succeeds.
check() {
  local what=$1 file=$2 old=$3 pages=$4 free at_once later verdict=whole
  rm -f "$disk"/*
  "make_$what" > "$disk/$file"
  free=$(df --output=avail -k "$disk" | tail -1)
  dd if=/dev/zero of="$disk/fill" bs=4k count=$((free / 4 - pages)) status=none
  "$run" "$bin/${what}_saver.exe" "Z:$disk" kill never >/dev/null || verdict="the saver failed"
  at_once=$("count_$what")
  rm -f "$disk/fill"
  "$run" "$bin/${what}_saver.exe" "Z:$disk" load never >/dev/null || verdict="the saver failed"
  later=$("count_$what")
  case $later in $old | $((old + 2))) ;; *) verdict=LOST ;; esac
  case $what-$at_once in history-$old | history-$((old + 2))) ;; history-*) verdict=LOST ;; esac
  [ -z "$(find "$disk" -name '*.recovery*' -o -name '*.lock' -o -name '*.replaced')" ] || verdict="something is left beside"
  [ "$verdict" = whole ] || failures=$((failures + 1))
  printf '%-10s %2d KB free: %2d entries before, %2s after the save, %2s after the next load: %s\n' \
    "$what" $((4 * pages)) "$old" "${at_once:-0}" "${later:-0}" "$verdict"
}

for pages in 0 1 2 3 4 5 6 8 10 12; do
  check history history.dat 40 "$pages"
  check favorites favorites.dat 61 "$pages"
done
[ "$failures" = 0 ]
