# Sourced by the example tests: the simulator of the build as a background
# process, and orvanta_cli on PATH as a user would have it.
#   start_sim [FLAGS...]   in $work/sim, on the fixed port; returns once listening
#   stop_sim
work=$(mktemp -d)
mkdir -p "$work/bin" "$work/sim" "$work/run"
ln -s "$build/orvanta_cli" "$work/bin/orvanta_cli"
export PATH=$work/bin:$PATH
sim_pid=
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

start_sim() {
  rm -f "$work/ready"
  (cd "$work/sim" && exec "$build/orvanta_desktop_sim" --ready-file "$work/ready" --log "$work/requests.log" "$@") \
    2>"$work/sim.err" &
  sim_pid=$!
  for _ in $(seq 100); do
    [ -s "$work/ready" ] && return 0
    kill -0 "$sim_pid" 2>/dev/null || break
    sleep 0.1
  done
  echo "the simulator did not start: $(cat "$work/sim.err")"
  exit 1
}

stop_sim() {
  [ -n "$sim_pid" ] && kill "$sim_pid" 2>/dev/null && wait "$sim_pid" 2>/dev/null
  sim_pid=
  rm -f "$work/requests.log"
}

trap 'stop_sim; rm -rf "$work"' EXIT

# expect NAME WANT_STDOUT WANT_STATUS COMMAND...: runs in $work/run.
expect() {
  local name=$1 want=$2 want_status=$3
  shift 3
  local got status
  got=$(cd "$work/run" && "$@" 2>"$work/stderr")
  status=$?
  [ "$got" = "$want" ] || fail "$name: stdout '$got', want '$want' (stderr: $(cat "$work/stderr"))"
  [ "$status" = "$want_status" ] || fail "$name: status $status, want $want_status"
}
