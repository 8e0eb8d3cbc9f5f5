#!/usr/bin/env bash
# Security checks on the shipped binary, run by `scripts/soak --security`
# inside a network namespace of its own (it takes port 7768):
#   - orvanta_cli connects nowhere but 127.0.0.1;
#   - a peer announcing a 4 GiB frame is refused under a tight RLIMIT_AS;
#   - the crash handler does not hold the CLI's stdout: a reader sees
#     end-of-file when the CLI exits;
#   - file arguments are opened read-only.
# Prints one line per check and ends with "N passed, M failed".
set -uo pipefail
build=$(cd "${1:?BUILD}" && pwd)
cli=$build/orvanta_cli
source "$(dirname "$0")/../support/sim_checks.sh"
result() {
  if [ "$2" = ok ]; then passed=$((passed + 1)); echo "ok      $1"; else failed=$((failed + 1)); echo "FAILED  $1: $2"; fi
}

# 1. connect() only ever to 127.0.0.1: with the simulator, and with a
#    desktop client process that listens outside the port range (the
#    whole connect schedule over the range).
for port in 7768 7790; do
  sim_port=$port start_sim
  strace -f -qq -e trace=connect -o "$work/connect$port" "$cli" status >/dev/null 2>&1
  stop_sim
done
others=$(cat "$work"/connect7* | grep 'connect(' | grep -v 'inet_addr("127.0.0.1")' | grep -v 'sa_family=AF_UNIX' || true)
count=$(cat "$work"/connect7* | grep -c 'inet_addr("127.0.0.1")')
if [ -z "$others" ] && [ "$count" -gt 1 ]; then result "connects only to 127.0.0.1 ($count connects)" ok
else result "connects only to 127.0.0.1" "${others:-no connect seen}"; fi

# 2. A peer that answers the hello with a header announcing 4 GiB, under a
#    256 MiB address space limit.
python3 - "$work/peer-ready" <<'PY' &
import ctypes, socket, sys
# Named as the desktop client, so that the CLI's running check finds it.
ctypes.CDLL(None).prctl(15, b"Orvanta", 0, 0, 0)
s = socket.socket(); s.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
s.bind(("127.0.0.1", 7768)); s.listen(8); open(sys.argv[1], "w").write("1")
s.settimeout(15)
try:
    while True:
        c, _ = s.accept(); c.recv(65536); c.sendall(b"\x1d\xff\xff\xff\xff" + b"x" * 64); c.close()
except OSError:
    pass
PY
peer=$!
for _ in $(seq 100); do [ -s "$work/peer-ready" ] && break; sleep 0.02; done
start=$(date +%s)
prlimit --as=$((256 * 1024 * 1024)) "$cli" status >"$work/out" 2>"$work/err"
status=$?
kill $peer 2>/dev/null; wait $peer 2>/dev/null
if [ $status -ge 128 ] || grep -q "bad_alloc\|terminate\|not running" "$work/err"; then result "4 GiB frame under RLIMIT_AS" "status $status: $(head -1 "$work/err")"
else result "4 GiB frame under RLIMIT_AS refused (status $status in $(( $(date +%s) - start )) s)" ok; fi

# 3. The handler does not keep the CLI's stdout open: the reader's end-of-file
#    comes when the CLI exits, not when the handler does.
if timeout 5 bash -c "\"$cli\" version | cat >/dev/null"; then result "stdout reaches end-of-file when the CLI exits" ok
else result "stdout reaches end-of-file when the CLI exits" "the pipe stayed open"; fi

# 4. File arguments are opened read-only.
echo '{"ops":[]}' >"$work/manifest.json"
printf '\x89PNG\r\n\x1a\n' >"$work/cover.png"
printf 'ID3' >"$work/episode.mp3"
start_sim
writes=""
for words in "library batch --from-file $work/manifest.json" \
             "playlist create --name soak --image-file $work/cover.png" \
             "pod upload $work/episode.mp3"; do
  strace -f -qq -e trace=open,openat,creat -o "$work/open" $cli $words >/dev/null 2>&1 </dev/null
  [ "${words%% *}" = library ] && cp "$work/open" "$work/open.batch"
  writes+=$(grep "$work/\(manifest\|cover\|episode\)" "$work/open" | grep -E 'O_WRONLY|O_RDWR|O_CREAT|O_TRUNC|creat\(' || true)
done
# The manifest at least is read by the CLI itself (the others may only be
# named to the desktop client).
grep -q "$work/manifest" "$work/open.batch" || writes+="the manifest was not opened; "
stop_sim
if [ -z "$writes" ]; then result "file arguments opened read-only" ok; else result "file arguments opened read-only" "$writes"; fi

echo "$passed passed, $failed failed"
[ $failed -eq 0 ]
