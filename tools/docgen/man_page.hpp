#pragma once

// The manual page of orvanta_cli. Its prose (description, exit status,
// notes, environment, files, examples) is written by hand in a template; the
// lines @COMMANDS@ and @GLOBAL_FLAGS@ of the template are replaced by what
// the catalogue says, and @VERSION@ by the program's version.

#include <string>
#include <string_view>

#include "cli/catalogue.hpp"

namespace orvanta::docgen {

// Text made safe for a roff text line: backslashes and hyphens escaped, a
// leading '.' or '\'' neutralised. Lines are kept as they are.
std::string roff_escape(std::string_view text);

// The template with its three markers filled in.
std::string man_page(std::string_view page_template, const cli::HelpCatalogue& catalogue,
                     std::string_view version);

}  // namespace orvanta::docgen
