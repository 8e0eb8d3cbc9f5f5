#include "cli/catalogue.hpp"
