#!/usr/bin/env bash
# The manual pages and the completions against what the program itself says.
# The commands and flags are gathered from orvanta_cli's own help pages, not
# from the catalogue, so that a command the generator skips is caught.
#   docs_test.sh BUILD_DIR
set -uo pipefail
build=$1
cli=$build/orvanta_cli
doc=$build/doc
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

# --- what the help pages list -------------------------------------------
# "pod shows" and the like are words of the unknown-command page too.
mapfile -t top < <("$cli" nosuch 2>&1 >/dev/null |
  sed -n '/^Available commands:/,/^$/p' | tail -n +2 | tr ',' '\n' | sed 's/^ *//; s/ *$//' | grep -v '^$')
commands=()
for word in "${top[@]}"; do
  page=$("$cli" $word --help)
  if grep -q '^SUBCOMMANDS$' <<<"$page"; then
    while read -r child; do commands+=("$word $child"); done < <(
      sed -n '/^SUBCOMMANDS$/,/^$/p' <<<"$page" | sed -n 's/^  \([a-z-]*\).*/\1/p')
  else
    commands+=("$word")
  fi
done
[ ${#commands[@]} -ge 60 ] || fail "only ${#commands[@]} commands found on the help pages"

# Each command page once: its flags and its usage.
declare -A flags usages
for command in "${commands[@]}"; do
  page=$("$cli" $command --help)
  flags[$command]=$(sed -n '/^FLAGS$/,/^$/s/^  \(--[a-z-]*\).*/\1/p' <<<"$page" | tr '\n' ' ')
  usages[$command]=$(sed -n '/^USAGE$/{n;s/^  [^ ]* //;p}' <<<"$page")
done

# --- manual pages ---------------------------------------------------------
for page in "$doc/orvanta_cli.1" "$doc/orvanta_desktop_sim.1"; do
  warnings=$(groff -man -ww -z "$page" 2>&1)
  [ -z "$warnings" ] || fail "groff warns on $page: $warnings"
  rendered=$(MANWIDTH=80 man -l "$page" 2>&1)
  [ $? -eq 0 ] && grep -q '^NAME' <<<"$rendered" || fail "man -l cannot render $page"
done
# The page source with roff's escapes taken out.
man_text=$(sed 's/\\-/-/g; s/\\&//g; s/\\f[BIR]//g; s/\\e/\\/g' "$doc/orvanta_cli.1")
for command in "${commands[@]}"; do
  # "pod shows" and its like answer --help with their group page.
  usage=${usages[$command]%% <subcommand>*}
  [[ $man_text == *"orvanta_cli $usage"* ]] || fail "man page lacks the usage of '$command': $usage"
  for flag in ${flags[$command]}; do
    [[ $man_text == *"$flag"* ]] || fail "man page lacks $flag of '$command'"
  done
done
for section in 'EXIT STATUS' NOTES ENVIRONMENT FILES EXAMPLES 'SEE ALSO'; do
  grep -q "^\.SH $section\$" "$doc/orvanta_cli.1" || fail "man page lacks $section"
done
# Every option the simulator accepts is in its page.
for flag in $("$build/orvanta_desktop_sim" --help | grep -o -- '--[a-z-]*' | sort -u); do
  grep -qF -- "${flag//-/\\-}" "$doc/orvanta_desktop_sim.1" || fail "simulator page lacks $flag"
done

# --- bash: complete as the shell would -----------------------------------
bash_complete() {  # the candidates for a command line whose last word is being typed
  bash -c '
    source "$1"; shift
    COMP_WORDS=(orvanta_cli "$@"); COMP_CWORD=$(($# ))
    _orvanta_cli; printf "%s\n" "${COMPREPLY[@]}"' _ "$doc/completions/orvanta_cli.bash" "$@"
}
expect_bash() {  # expected candidates (one string) and the words typed
  local want=$1; shift
  local got
  got=$(bash_complete "$@" | tr '\n' ' ' | sed 's/ $//')
  [ "$got" = "$want" ] || fail "bash completion of '$*': got '$got', want '$want'"
}
expect_bash 'play playlist' pl
expect_bash 'list create delete' pod shows ''
expect_bash 'upload shows episodes timeline' pod ''
expect_bash '--type --limit --offset --format --help' library list --
expect_bash 'text json' search x --format ''
expect_bash 'on off' rondo permissions --queue-only ''
expect_bash 'create' pod --show-id abc shows cr
expect_bash '' seek 10 ''
tmp=$(mktemp -d); trap 'rm -rf "$tmp"' EXIT
touch "$tmp/song.mp3" "$tmp/cover.png"
expect_bash "$tmp/song.mp3" pod upload "$tmp/so"
expect_bash "$tmp/cover.png" playlist create x --image-file "$tmp/co"
expect_bash "$tmp/cover.png" library batch --from-file "$tmp/co"
# Every command word and every flag, in one shell: "command|candidates...".
all=$(bash -c '
  source "$1"; shift
  for command in "$@"; do
    read -ra typed <<<"$command"
    COMP_WORDS=(orvanta_cli "${typed[@]}"); COMP_CWORD=${#typed[@]}
    _orvanta_cli; echo "$command|${COMPREPLY[*]}"
    COMP_WORDS+=(--); COMP_CWORD=$((COMP_CWORD + 1))
    _orvanta_cli; echo "$command --|${COMPREPLY[*]}"
  done' _ "$doc/completions/orvanta_cli.bash" "${commands[@]}")
declare -A offered
while IFS='|' read -r typed candidates; do offered[$typed]=" $candidates "; done <<<"$all"
for command in "${commands[@]}"; do
  [[ ${offered[$command]} == *" ${command##* } "* ]] || fail "bash does not complete '$command'"
  for flag in ${flags[$command]}; do
    [[ ${offered[$command --]} == *" $flag "* ]] || fail "bash does not offer $flag after '$command'"
  done
done

# --- fish: complete -C gives what the shell would offer -------------------
fish -n "$doc/completions/orvanta_cli.fish" || fail "fish -n rejects the fish completion"
got=$(fish --no-config -c 'source $argv[1]; complete -C"$argv[2]"' "$doc/completions/orvanta_cli.fish" \
  'orvanta_cli pod shows ' | cut -f1 | tr '\n' ' ')
[ "$got" = 'create delete list ' ] || fail "fish completion of 'pod shows ': got '$got'"
all=$(fish --no-config -c '
  source $argv[1]
  for command in $argv[2..-1]
    for c in (complete -C"orvanta_cli $command --" | string replace -r "\t.*" "")
      echo "$command|$c"
    end
  end' "$doc/completions/orvanta_cli.fish" "${commands[@]}")
all=$'\n'$all$'\n'
for command in "${commands[@]}"; do
  for flag in ${flags[$command]}; do
    [[ $all == *$'\n'"$command|$flag"$'\n'* ]] || fail "fish does not offer $flag after '$command'"
  done
done

# --- zsh: syntax, and every word and flag in its data ---------------------
zsh -n "$doc/completions/_orvanta_cli" || fail "zsh -n rejects the zsh completion"
zsh_text=$(<"$doc/completions/_orvanta_cli")
for command in "${commands[@]}"; do
  for word in $command ${flags[$command]}; do
    [[ $zsh_text == *"'$word:"* ]] || fail "zsh completion lacks '$word' ($command)"
  done
done

echo "$failures failure(s)"
[ $failures -eq 0 ]
