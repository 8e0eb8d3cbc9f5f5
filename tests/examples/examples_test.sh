#!/usr/bin/env bash
# Runs every script of examples/ against the simulator, as a user would.
#   examples_test.sh BUILD_DIR SOURCE_DIR
set -uo pipefail
build=$1
examples=$2/examples
source "$(dirname "$0")/sim.sh"

# status-line: playing, logged out, and no desktop client at all.
start_sim
expect status-line "▶ Harbour Lights — Nimbus Ferry" 0 "$examples/status-line"
orvanta_cli pause
expect status-line-paused "⏸ Harbour Lights — Nimbus Ferry" 0 "$examples/status-line"
stop_sim
start_sim --logged-out
expect status-line-logged-out "♪ logged out" 0 "$examples/status-line"
stop_sim
expect status-line-off "♪ off" 0 "$examples/status-line"

# save-search: every track found is saved, over one connection.
start_sim
expect save-search \
  '{"index":0,"op":"library_add","ok":true,"result":{"count":1}}
{"index":1,"op":"library_add","ok":true,"result":{"count":1}}
{"summary":true,"total":2,"ok":2,"failed":0,"skipped":0}' 0 "$examples/save-search" tide 2
[ "$(grep -c '"method":"authorize_connection"' "$work/requests.log")" = 2 ] ||
  fail "save-search: want one connection for the search and one for the batch"
stop_sim

# publish-episode: relative names in, a timeline with the chapters out. The
# simulator runs elsewhere, so a name passed on as typed would not be found.
start_sim
head -c 4096 /dev/zero | tr '\0' x >"$work/run/talk.mp3"
printf '0 Intro\n95 The interview\n' >"$work/run/chapters.txt"
expect publish-episode "Timeline set (2 items)
orvanta:episode:podroom1" 0 "$examples/publish-episode" talk.mp3 "Ep 3" "Third" chapters.txt
expect publish-episode-timeline "orvanta:chapter:podroom1-0	Intro	0
orvanta:chapter:podroom1-1	The interview	95000" 0 orvanta_cli pod timeline get orvanta:episode:podroom1
stop_sim

# queue-all: a failure goes on, a hang stops, no client stops at once.
start_sim
expect queue-all "Added to queue
Added to queue
queued 2, failed 1" 1 "$examples/queue-all" \
  < <(printf 'orvanta:track:glasstide\norvanta:track:nosuch\n\norvanta:track:slowsnow\n')
stop_sim
start_sim --hang queue_add
QUEUE_ALL_TIMEOUT=1 expect queue-all-hang "" 2 "$examples/queue-all" < <(echo orvanta:track:glasstide)
grep -q "no answer for orvanta:track:glasstide after 1s" "$work/stderr" || fail "queue-all-hang: $(cat "$work/stderr")"
stop_sim
expect queue-all-off "" 2 "$examples/queue-all" < <(echo orvanta:track:glasstide)

echo "$failures failure(s)"
[ "$failures" -eq 0 ]
