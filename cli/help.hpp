#pragma once

#include <cstdio>
#include <string_view>

#include "cli/catalogue.hpp"

namespace orvanta::cli {

// The help pages. Each renderer writes its whole page to `out` and cannot
// fail; write errors on the stream are not looked at. `program_name` is the
// name the program was started under and is used wherever a page names the
// program, except in the examples, which always say orvanta_cli.

// The top-level page: every command and group word under its group title.
void print_usage(std::string_view program_name, const HelpCatalogue& catalogue,
                 std::FILE* out = stdout);

// The page of a group word such as "devices" or "pod shows": its subcommands
// with their default marks.
void print_group_help(std::string_view program_name, std::string_view group_name,
                      const HelpCatalogue& catalogue, std::FILE* out = stdout);

// The page of one command: summary, long text, usage, flags, examples.
void print_command_help(std::string_view program_name, const CommandRow& row,
                        std::FILE* out = stdout);

// What a word that names no command gets: a short usage and every top-level
// word, ten to a line. It belongs on stderr.
void print_unknown_command(std::string_view program_name, std::string_view word,
                           const HelpCatalogue& catalogue, std::FILE* out = stderr);

// Picks the page for a help request from its topic and subtopic (the first
// command words): a group, a command of a group, a top-level command, and the
// top-level page for anything else, an unknown word included.
void print_help(std::string_view program_name, std::string_view topic,
                std::string_view subtopic, const HelpCatalogue& catalogue,
                std::FILE* out = stdout);

}  // namespace orvanta::cli
