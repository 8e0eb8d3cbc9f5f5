#include "tools/docgen/completions.hpp"

#include <string_view>

namespace orvanta::docgen {

namespace {

// 'text' for bash and zsh: a single quote closes, is escaped, and reopens.
std::string sh_quote(std::string_view text) {
  std::string out = "'";
  for (char c : text) {
    if (c == '\'') {
      out += "'\\''";
    } else {
      out += c;
    }
  }
  return out + "'";
}

// 'text' for fish, where a backslash escapes a quote or another backslash.
std::string fish_quote(std::string_view text) {
  std::string out = "'";
  for (char c : text) {
    if (c == '\'' || c == '\\') out += '\\';
    out += c;
  }
  return out + "'";
}

// A _describe entry: a colon in the name would end it early.
std::string describe_entry(std::string_view name, std::string_view summary) {
  std::string out;
  for (char c : name) {
    if (c == ':') out += '\\';
    out += c;
  }
  return sh_quote(out + ":" + std::string(summary));
}

// The flags that `pick` accepts, as one case pattern: "--a|--b", or with
// another separator for fish's "case --a --b".
template <class Pick>
std::string flag_pattern(const std::vector<Node>& tree, Pick pick, char separator = '|') {
  std::string out;
  for (const cli::FlagRow* flag : all_flags(tree)) {
    if (!pick(*flag)) continue;
    if (!out.empty()) out += separator;
    out += flag->name;
  }
  return out;
}

bool takes_value(const cli::FlagRow& f) { return value_kind(f) != ValueKind::none; }
bool takes_path(const cli::FlagRow& f) { return value_kind(f) == ValueKind::path; }
bool takes_free(const cli::FlagRow& f) { return value_kind(f) == ValueKind::free; }

std::string words_of(const Node& node) {
  std::string out;
  for (const Word& word : node.subcommands) out += (out.empty() ? "" : " ") + std::string(word.name);
  return out;
}

std::string flags_of(const Node& node) {
  std::string out;
  for (const cli::FlagRow* flag : node.flags) out += (out.empty() ? "" : " ") + std::string(flag->name);
  return out + " -h";
}

// The case arms that answer with a fixed list of values: one per flag of kind
// `choices`, in the given shell's syntax.
template <class Arm>
std::string choice_arms(const std::vector<Node>& tree, Arm arm) {
  std::string out;
  for (const cli::FlagRow* flag : all_flags(tree)) {
    std::vector<std::string_view> choices = flag_choices(*flag);
    if (choices.empty()) continue;
    std::string list;
    for (std::string_view c : choices) list += (list.empty() ? "" : " ") + std::string(c);
    out += arm(flag->name, list);
  }
  return out;
}

}  // namespace

std::string bash_completion(const std::vector<Node>& tree) {
  std::string out =
      "# bash completion for orvanta_cli. Generated from the command catalogue.\n\n"
      "_orvanta_cli_node_data() {\n"
      "  case \"$1\" in\n";
  for (const Node& node : tree) {
    out += "    " + sh_quote(node.path) + ") words=" + sh_quote(words_of(node)) +
           " flags=" + sh_quote(flags_of(node)) + " file=" + (node.file_argument ? "1" : "0") +
           " ;;\n";
  }
  out +=
      "    *) words='' flags='--format --help -h' file=0 ;;\n"
      "  esac\n"
      "}\n\n"
      "_orvanta_cli() {\n"
      "  local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]}\n"
      "  local node='' word i words flags file\n"
      "  COMPREPLY=()\n"
      "  for ((i = 1; i < COMP_CWORD; i++)); do\n"
      "    word=${COMP_WORDS[i]}\n"
      "    case \"$word\" in\n"
      "      " + flag_pattern(tree, takes_value) + ") ((i++)); continue ;;\n"
      "      -*) continue ;;\n"
      "    esac\n"
      "    _orvanta_cli_node_data \"$node\"\n"
      "    [[ \" $words \" == *\" $word \"* ]] || break\n"
      "    node=${node:+$node }$word\n"
      "  done\n"
      "  case \"$prev\" in\n" +
      choice_arms(tree, [](std::string_view name, const std::string& list) {
        return "    " + std::string(name) + ") COMPREPLY=($(compgen -W " + sh_quote(list) +
               " -- \"$cur\")); return ;;\n";
      }) +
      "    " + flag_pattern(tree, takes_path) +
      ") compopt -o filenames 2>/dev/null; COMPREPLY=($(compgen -f -- \"$cur\")); return ;;\n"
      "    " + flag_pattern(tree, takes_free) + ") return ;;\n"
      "  esac\n"
      "  _orvanta_cli_node_data \"$node\"\n"
      "  if [[ $cur == -* ]]; then\n"
      "    COMPREPLY=($(compgen -W \"$flags\" -- \"$cur\"))\n"
      "  elif [[ -n $words ]]; then\n"
      "    COMPREPLY=($(compgen -W \"$words\" -- \"$cur\"))\n"
      "  elif ((file)); then\n"
      "    compopt -o filenames 2>/dev/null\n"
      "    COMPREPLY=($(compgen -f -- \"$cur\"))\n"
      "  fi\n"
      "}\n\n"
      "complete -F _orvanta_cli orvanta_cli\n";
  return out;
}

std::string zsh_completion(const std::vector<Node>& tree) {
  std::string out =
      "#compdef orvanta_cli\n"
      "# zsh completion for orvanta_cli. Generated from the command catalogue.\n\n"
      "_orvanta_cli_node_data() {\n"
      "  case $1 in\n";
  for (const Node& node : tree) {
    out += "    (" + sh_quote(node.path) + ")\n      subs=(";
    for (const Word& word : node.subcommands) out += " " + describe_entry(word.name, word.summary);
    out += " )\n      flags=(";
    for (const cli::FlagRow* flag : node.flags) {
      out += " " + describe_entry(flag->name, first_line(flag->description));
    }
    out += " '-h:Show help for command' )\n      file=" +
           std::string(node.file_argument ? "1" : "0") + " ;;\n";
  }
  out +=
      "    (*) subs=() flags=() file=0 ;;\n"
      "  esac\n"
      "}\n\n"
      "_orvanta_cli() {\n"
      "  local node='' word i file\n"
      "  local -a subs flags\n"
      "  for (( i = 2; i < CURRENT; i++ )); do\n"
      "    word=${words[i]}\n"
      "    case $word in\n"
      "      (" + flag_pattern(tree, takes_value) + ") (( i++ )); continue ;;\n"
      "      (-*) continue ;;\n"
      "    esac\n"
      "    _orvanta_cli_node_data \"$node\"\n"
      "    (( ${subs[(I)${(b)word}:*]} )) || break\n"
      "    node=${node:+$node }$word\n"
      "  done\n"
      "  case ${words[CURRENT-1]} in\n" +
      choice_arms(tree, [](std::string_view name, const std::string& list) {
        return "    (" + std::string(name) + ") compadd -- " + list + "; return ;;\n";
      }) +
      "    (" + flag_pattern(tree, takes_path) + ") _files; return ;;\n"
      "    (" + flag_pattern(tree, takes_free) + ") return 1 ;;\n"
      "  esac\n"
      "  _orvanta_cli_node_data \"$node\"\n"
      "  if [[ $PREFIX == -* ]]; then\n"
      "    _describe -t flags 'flag' flags\n"
      "  elif (( $#subs )); then\n"
      "    _describe -t commands 'command' subs\n"
      "  elif (( file )); then\n"
      "    _files\n"
      "  fi\n"
      "}\n\n"
      "_orvanta_cli \"$@\"\n";
  return out;
}

std::string fish_completion(const std::vector<Node>& tree) {
  std::string out =
      "# fish completion for orvanta_cli. Generated from the command catalogue.\n\n"
      "# The words that may follow a node, then its flags, as \"candidate<TAB>description\".\n"
      "function __orvanta_cli_node_data\n"
      "    switch \"$argv[1]\"\n";
  for (const Node& node : tree) {
    out += "        case " + fish_quote(node.path) + "\n";
    out += "            set words";
    for (const Word& word : node.subcommands) out += " " + fish_quote(std::string(word.name) + "\t" + std::string(word.summary));
    out += "\n            set flags";
    for (const cli::FlagRow* flag : node.flags) {
      out += " " + fish_quote(std::string(flag->name) + "\t" + first_line(flag->description));
    }
    out += "\n            set file " + std::string(node.file_argument ? "1" : "0") + "\n";
  }
  out +=
      "    end\n"
      "    # printf with no values would still print one empty line.\n"
      "    set -q words[1]; and printf '%s\\n' $words\n"
      "    printf '%s\\n' --\n"
      "    printf '%s\\n' $flags\n"
      "    echo $file\n"
      "end\n\n"
      "function __orvanta_cli_complete\n"
      "    set -l tokens (commandline -opc)\n"
      "    set -l current (commandline -ct)\n"
      "    switch \"$tokens[-1]\"\n" +
      choice_arms(tree, [](std::string_view name, const std::string& list) {
        return "        case " + std::string(name) + "\n            printf '%s\\n' " + list +
               "\n            return\n";
      }) +
      "        case " + flag_pattern(tree, takes_path, ' ') + "\n"
      "            __fish_complete_path $current\n"
      "            return\n"
      "        case " + flag_pattern(tree, takes_free, ' ') + "\n"
      "            return\n"
      "    end\n"
      "    # The command words typed so far, flags and their values left out.\n"
      "    set -l node ''\n"
      "    set -l skip 0\n"
      "    for word in $tokens[2..-1]\n"
      "        if test $skip = 1\n"
      "            set skip 0\n"
      "            continue\n"
      "        end\n"
      "        switch $word\n"
      "            case " + flag_pattern(tree, takes_value, ' ') + "\n"
      "                set skip 1\n"
      "                continue\n"
      "            case '-*'\n"
      "                continue\n"
      "        end\n"
      "        set -l data (__orvanta_cli_node_data $node)\n"
      "        set -l words (string replace -r '\\t.*' '' -- $data[1..(contains -i -- -- $data)])\n"
      "        contains -- $word $words; or break\n"
      "        set node (string trim -- \"$node $word\")\n"
      "    end\n"
      "    set -l data (__orvanta_cli_node_data $node)\n"
      "    set -l split (contains -i -- -- $data)\n"
      "    if string match -q -- '-*' $current\n"
      "        printf '%s\\n' $data[(math $split + 1)..-2] -h\\tShow\\ help\\ for\\ command\n"
      "    else if test $split -gt 1\n"
      "        printf '%s\\n' $data[1..(math $split - 1)]\n"
      "    else if test $data[-1] = 1\n"
      "        __fish_complete_path $current\n"
      "    end\n"
      "end\n\n"
      "complete -c orvanta_cli -f -a '(__orvanta_cli_complete)'\n";
  return out;
}

}  // namespace orvanta::docgen
