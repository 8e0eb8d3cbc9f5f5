#!/usr/bin/env bash
# valgrind memcheck over a dozen commands against the simulator, every
# failure path included: any invalid read or write, use of an uninitialised
# value or definite leak ends the run with status 1.
#   tests/e2e/memcheck.sh BUILD_DIR
# BUILD_DIR holds orvanta_cli_memcheck (the same program as orvanta_cli,
# linked dynamically: memcheck cannot follow a static C library, whose
# thread-local block and allocator look uninitialised to it), the simulator
# and crashpad_handler. Takes port 7768: run it where nothing else does.
# Prints one line per command and ends with "N passed, M failed".
set -uo pipefail
build=$(cd "${1:?BUILD_DIR}" && pwd)
cli=$build/orvanta_cli_memcheck
source "$(dirname "$0")/../support/sim_checks.sh"

check() {
  local log=$work/valgrind.log
  valgrind -q --error-exitcode=99 --leak-check=full --errors-for-leak-kinds=definite,indirect \
    --show-leak-kinds=definite,indirect --track-origins=yes --log-file="$log" \
    "$cli" "$@" >/dev/null 2>&1 </dev/null
  local status=$?
  # Its reports are the lines with "==PID=="; "--PID--" lines are valgrind's
  # own notes (a system call it does not know, which fails with ENOSYS).
  if [ "$status" -ne 99 ] && ! grep -q '^==[0-9]*==' "$log"; then
    passed=$((passed + 1)); echo "ok      orvanta_cli $* (status $status)"
  else
    failed=$((failed + 1)); echo "FAILED  orvanta_cli $* (status $status)"; sed 's/^/        /' "$log"
  fi
}

cat > "$work/manifest.json" <<'JSON'
{"ops": [
  {"op": "library_add", "uris": ["orvanta:track:copperhour"]},
  {"op": "playlist_create", "name": "Memcheck", "description": "", "public": false},
  {"op": "library_contains", "uris": ["orvanta:track:copperhour", "orvanta:track:nosuch"]},
  {"op": "folder_rename", "name": "no folder named"},
  {"op": "nosuch"}
]}
JSON

# No desktop client at all, and a bad command line.
check version --format json
check nosuch --flag
check status

start_sim
check status --format json
check search harbour --type track --limit 2
check lookup orvanta:track:harbourlights
check queue add orvanta:track:copperhour
check devices transfer "Kitchen Speaker"
check folder list
check library batch --from-file "$work/manifest.json" --format json
stop_sim

# The desktop client refuses, drops the connection, or sends garbage.
start_sim --fail playback_play=8 --logged-out
check play orvanta:track:harbourlights
stop_sim
start_sim --close-after 1
check library list
stop_sim
start_sim --garbage-frame now_playing=oversize --wrong-id search
check now-playing
check search harbour
stop_sim

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
