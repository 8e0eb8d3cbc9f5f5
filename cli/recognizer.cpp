#include "cli/recognizer.hpp"
