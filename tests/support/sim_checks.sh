# Sourced by the shell checks that run orvanta_cli against the simulator,
# once `build` names the build folder: a scratch folder ($work, removed at
# exit with any background job) as HOME, the passed/failed tally, and
# start_sim [FLAGS...] / stop_sim (port $sim_port, 7768 by default).
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; rm -rf "$work"' EXIT
export HOME=$work XDG_DATA_HOME=$work/data
passed=0
failed=0
start_sim() {
  rm -f "$work/ready"
  "$build/orvanta_desktop_sim" --port "${sim_port:-7768}" --ready-file "$work/ready" "$@" >/dev/null 2>&1 &
  sim=$!
  for _ in $(seq 200); do [ -s "$work/ready" ] && return; sleep 0.02; done
}
stop_sim() { kill "$sim" 2>/dev/null; wait "$sim" 2>/dev/null; }
