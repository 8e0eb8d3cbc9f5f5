#!/usr/bin/env bash
# What README.md promises about --format json, tried against the simulator:
# every command it lists between the json-commands markers prints one valid
# JSON line on stdout. The exceptions it names are pinned byte for byte by
# the command tests.
#   readme_json_test.sh BUILD_DIR SOURCE_DIR
set -uo pipefail
build=$1
readme=$2/README.md
source "$(dirname "$0")/sim.sh"

# One invocation per command that may be listed, run in the order below on
# the state the earlier ones left; @episode@, @show@ and @second@ stand for
# what pod upload, pod shows create and pod episodes create made.
declare -A run=(
  [status]="status" [version]="version" [search]="search tide" [taste]="taste"
  [lookup]="lookup orvanta:track:glasstide"
  [history top]="history top" [history recent]="history recent" [now-playing]="now-playing"
  [devices list]="devices list" [library list]="library list"
  [library contains]="library contains orvanta:track:glasstide"
  [playlist get]="playlist get orvanta:playlist:morningferry" [folder list]="folder list"
  [queue list]="queue list" [rondo status]="rondo status" [rondo members]="rondo members"
  [rondo permissions]="rondo permissions"
  [pod upload]="pod upload $work/run/a.mp3 --name A --description B"
  [pod shows]="pod shows" [pod shows create]="pod shows create --name S"
  [pod shows delete]="pod shows delete @show@"
  [pod episodes]="pod episodes"
  [pod episodes create]="pod episodes create --name E --file $work/run/a.mp3 --description D"
  [pod episodes status]="pod episodes status @episode@"
  [pod timeline set]="pod timeline set --episode-id @episode@ --from-file $work/run/t.json"
  [pod timeline get]="pod timeline get @episode@"
  [pod timeline delete]="pod timeline delete @episode@"
  [pod episodes delete]="pod episodes delete @second@"
)
order=(status version search taste lookup "history top" "history recent" now-playing "devices list"
  "library list" "library contains" "playlist get" "folder list" "queue list" "rondo status"
  "rondo members" "rondo permissions" "pod upload" "pod shows" "pod shows create" "pod episodes"
  "pod episodes create" "pod episodes status" "pod timeline set" "pod timeline get"
  "pod timeline delete" "pod episodes delete" "pod shows delete")

mapfile -t listed < <(sed -n '/<!-- json-commands -->/,/<!-- \/json-commands -->/p' "$readme" |
  grep -o '`[a-z -]*`' | tr -d '`')
[ ${#listed[@]} -ge 20 ] || fail "README lists only ${#listed[@]} JSON commands"
for command in "${listed[@]}"; do
  [ -n "${run[$command]:-}" ] || fail "README lists '$command', which this test cannot run"
done

head -c 4096 /dev/zero | tr '\0' x >"$work/run/a.mp3"
echo '{"items":[{"chapter":{"title":"A","start_time_ms":0}},{"chapter":{"title":"B","start_time_ms":60000}}]}' \
  >"$work/run/t.json"
start_sim
orvanta_cli rondo create >/dev/null
episode= show= second=
for command in "${order[@]}"; do
  printf '%s\n' "${listed[@]}" | grep -qx -- "$command" || continue
  invocation=${run[$command]//@episode@/$episode}
  invocation=${invocation//@show@/$show}
  invocation=${invocation//@second@/$second}
  out=$(orvanta_cli $invocation --format json 2>"$work/stderr")
  status=$?
  case $command in
    "pod upload") episode=$(jq -r .episode_uri <<<"$out") ;;
    "pod shows create") show=$(jq -r .show_uri <<<"$out") ;;
    "pod episodes create") second=$(jq -r .episode_uri <<<"$out") ;;
  esac
  [ $status -eq 0 ] || fail "$command: status $status ($(cat "$work/stderr"))"
  [ "$(wc -l <<<"$out")" = 1 ] || fail "$command: want one line, got: $out"
  jq -e . <<<"$out" >/dev/null 2>&1 || fail "$command: not JSON: $out"
done

echo "$failures failure(s)"
[ "$failures" -eq 0 ]
