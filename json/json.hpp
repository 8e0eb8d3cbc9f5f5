// orvanta::json in one include: the cursors, the scalar codecs, the
// combinators, raw values and the object codec (see object_codec.hpp for how
// a record states its codec).
#pragma once

#include "json/codec.hpp"
#include "json/combinators.hpp"
#include "json/context.hpp"
#include "json/number_codec.hpp"
#include "json/object_codec.hpp"
#include "json/raw_value.hpp"
#include "json/skip_value.hpp"
#include "json/string_codec.hpp"
