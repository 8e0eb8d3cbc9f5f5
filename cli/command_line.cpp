#include "cli/command_line.hpp"
