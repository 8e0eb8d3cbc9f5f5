#include "cli/help.hpp"
