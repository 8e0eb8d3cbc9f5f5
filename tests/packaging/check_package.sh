#!/usr/bin/env bash
# Installs a built tree into a DESTDIR and runs the installed programs, then
# builds the .deb and looks inside it. Run by scripts/test --all after the
# build of the ci preset, whose tree it reuses.
#   check_package.sh BUILD_DIR
set -uo pipefail
cd "$(dirname "$0")/../.."
build=$1
work=$(mktemp -d)
sim_pid=
trap '[ -n "$sim_pid" ] && kill "$sim_pid" 2>/dev/null; rm -rf "$work"' EXIT
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

expected_files() {  # the files and links of an installation under PREFIX, sorted
  local p=$1
  printf '%s\n' \
    "$p/bin/orvanta_cli" "$p/bin/orvanta_desktop_sim" \
    "$p/lib/orvanta_cli/crashpad_handler" "$p/lib/orvanta_cli/orvanta_cli" \
    "$p/share/bash-completion/completions/orvanta_cli" \
    "$p/share/doc/orvanta-cli/changelog.gz" "$p/share/doc/orvanta-cli/copyright" \
    "$p/share/doc/orvanta-cli/examples/publish-episode" "$p/share/doc/orvanta-cli/examples/queue-all" \
    "$p/share/doc/orvanta-cli/examples/save-search" "$p/share/doc/orvanta-cli/examples/status-line" \
    "$p/share/fish/vendor_completions.d/orvanta_cli.fish" \
    "$p/share/lintian/overrides/orvanta-cli" \
    "$p/share/man/man1/orvanta_cli.1.gz" "$p/share/man/man1/orvanta_desktop_sim.1.gz" \
    "$p/share/zsh/vendor-completions/_orvanta_cli" | sort
}

# --- cmake --install into a DESTDIR ---------------------------------------
DESTDIR=$work/root cmake --install "$build" --prefix /usr >/dev/null || fail "cmake --install"
got=$(cd "$work/root" && find . ! -type d | sed 's|^\.||' | sort)
[ "$got" = "$(expected_files /usr)" ] || fail "installed files differ:
$(diff <(echo "$got") <(expected_files /usr))"
[ "$(readlink "$work/root/usr/bin/orvanta_cli")" = ../lib/orvanta_cli/orvanta_cli ] ||
  fail "bin/orvanta_cli is not a link to ../lib/orvanta_cli/orvanta_cli"

# The installed program through its link: versions print, and a crash is
# reported, which needs the handler found beside the link's target.
export XDG_DATA_HOME=$work/data
cli=$work/root/usr/bin/orvanta_cli
"$cli" version | grep -qx "cli: 1.2.93.667" || fail "installed orvanta_cli version: $("$cli" version 2>&1)"
[ -d "$work/data/com.orvanta.client/Crashpad" ] || fail "no crash database after a run"
"$work/root/usr/bin/orvanta_desktop_sim" --hang playback_pause --ready-file "$work/ready" \
  --log "$work/requests.log" 2>/dev/null &
sim_pid=$!
for _ in $(seq 100); do [ -s "$work/ready" ] && break; sleep 0.1; done
"$cli" pause &
cli_pid=$!
for _ in $(seq 100); do grep -q playback_pause "$work/requests.log" 2>/dev/null && break; sleep 0.1; done
kill -SEGV "$cli_pid"
{ wait "$cli_pid"; status=$?; } 2>/dev/null   # bash would announce the expected segfault
[ $status -eq $((128 + 11)) ] || fail "the installed orvanta_cli did not end by SIGSEGV"
reports=$(find "$work/data/com.orvanta.client/Crashpad" -type f \( -path '*/new/*' -o -path '*/pending/*' -o -path '*/completed/*' \) | wc -l)
[ "$reports" -ge 1 ] || fail "no crash report: the handler was not found beside the installed program"
kill "$sim_pid"; wait "$sim_pid" 2>/dev/null; sim_pid=

# --- the .deb -------------------------------------------------------------
deb=$(scripts/package "$build" | tail -1) || fail "scripts/package"
dpkg -x "$deb" "$work/deb" || fail "dpkg -x $deb"
got=$(cd "$work/deb" && find . ! -type d | sed 's|^\.||' | sort)
[ "$got" = "$(expected_files /usr)" ] || fail "files of the .deb differ:
$(diff <(echo "$got") <(expected_files /usr))"
depends=$(dpkg-deb -f "$deb" Depends)
grep -q 'libc6' <<<"$depends" || fail "Depends lacks libc6: '$depends'"
"$work/deb/usr/bin/orvanta_cli" --version >/dev/null || fail "orvanta_cli of the .deb does not run"
lintian_out=$(lintian --tag-display-limit 0 "$deb" 2>&1)
echo "$lintian_out"
grep -q '^E:' <<<"$lintian_out" && fail "lintian reports errors"

echo "$failures failure(s)"
[ "$failures" -eq 0 ]
