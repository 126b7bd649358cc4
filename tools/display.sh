# shellcheck shell=bash
# Sourced: virtual displays for programs with windows.

# start_virtual_display [WIDTHxHEIGHT]: starts Xvfb on a free display number and exports DISPLAY. May be called several
# times; stop_virtual_display ends them all.
start_virtual_display() {
  local size=${1:-1600x1000} number_file
  number_file=$(mktemp)
  Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp 3>"$number_file" >/dev/null 2>&1 &
  display_pid=$!
  display_pids="${display_pids:-} $display_pid"
  for _ in $(seq 1800); do  # three minutes; a moment is enough unless the machine is very busy
    [ -s "$number_file" ] && break
    kill -0 "$display_pid" 2>/dev/null || break
    sleep 0.1
  done
  if [ ! -s "$number_file" ]; then
    echo "The virtual display could not be started." >&2
    return 1
  fi
  DISPLAY=":$(tr -d '[:space:]' <"$number_file")"
  export DISPLAY
  rm -f "$number_file"
}

stop_virtual_display() {
  local pid
  for pid in ${display_pids:-}; do
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
  done
  display_pid=
  display_pids=
}
