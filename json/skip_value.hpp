// Consuming one JSON value of any kind without building it.
#pragma once

#include "json/context.hpp"

namespace orvanta::json {

// Consumes exactly one value at the cursor, validating it as it goes. One
// loop with a bracket stack (64 levels inline, a heap vector beyond), so that
// nesting costs no call stack and has no limit. Throws decode_exception with
// the messages of the skipper ("Unexpected EOF", "Expected '\"'", "Expected
// ',' or '}'", "Encountered token '…'", "Expected digit", …) and those of
// the string skipper.
void skip_value(DecodeContext& context);

}  // namespace orvanta::json
