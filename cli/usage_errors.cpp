#include "cli/usage_errors.hpp"
