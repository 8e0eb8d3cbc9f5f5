#include "cli/flag_parser.hpp"
