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

template <class Pick>
std::string flag_pattern(const std::vector<Node>& tree, Pick pick) {
  std::string out;
  for (const cli::FlagRow* flag : all_flags(tree)) {
    if (!pick(*flag)) continue;
    if (!out.empty()) out += '|';
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
  std::string value_flags;
  for (const cli::FlagRow* flag : all_flags(tree)) {
    if (takes_value(*flag)) value_flags += " " + std::string(flag->name);
  }
  std::string out =
      "# fish completion for orvanta_cli. Generated from the command catalogue.\n\n"
      "function __orvanta_cli_subcommands\n"
      "    switch \"$argv[1]\"\n";
  for (const Node& node : tree) {
    if (node.subcommands.empty()) continue;
    out += "        case " + fish_quote(node.path) + "\n            printf '%s\\n' " +
           words_of(node) + "\n";
  }
  out +=
      "    end\n"
      "end\n\n"
      "# The command words typed so far, flags and their values left out.\n"
      "function __orvanta_cli_node\n"
      "    set -l tokens (commandline -opc)\n"
      "    set -l node ''\n"
      "    set -l skip 0\n"
      "    for word in $tokens[2..-1]\n"
      "        if test $skip = 1\n"
      "            set skip 0\n"
      "            continue\n"
      "        end\n"
      "        if contains -- $word" + value_flags + "\n"
      "            set skip 1\n"
      "            continue\n"
      "        end\n"
      "        string match -q -- '-*' $word; and continue\n"
      "        contains -- $word (__orvanta_cli_subcommands $node); or break\n"
      "        set node (string trim -- \"$node $word\")\n"
      "    end\n"
      "    echo $node\n"
      "end\n\n"
      "function __orvanta_cli_at\n"
      "    set -l node (__orvanta_cli_node)\n"
      "    test \"$node\" = \"$argv[1]\"\n"
      "end\n\n"
      "complete -c orvanta_cli -f\n";
  for (const Node& node : tree) {
    std::string at = " -n " + fish_quote("__orvanta_cli_at " + fish_quote(node.path));
    for (const Word& word : node.subcommands) {
      out += "complete -c orvanta_cli" + at + " -a " + fish_quote(word.name) + " -d " +
             fish_quote(word.summary) + "\n";
    }
    if (node.file_argument) out += "complete -c orvanta_cli" + at + " -F\n";
    for (const cli::FlagRow* flag : node.flags) {
      out += "complete -c orvanta_cli" + at + " -l " + std::string(flag->name.substr(2));
      switch (value_kind(*flag)) {
        case ValueKind::none:
          break;
        case ValueKind::free:
          out += " -x";
          break;
        case ValueKind::path:
          out += " -r -F";
          break;
        case ValueKind::choices: {
          std::string list;
          for (std::string_view c : flag_choices(*flag)) list += (list.empty() ? "" : " ") + std::string(c);
          out += " -x -a " + fish_quote(list);
          break;
        }
      }
      if (flag->name == "--help") out += " -s h";
      out += " -d " + fish_quote(first_line(flag->description)) + "\n";
    }
  }
  return out;
}

}  // namespace orvanta::docgen
