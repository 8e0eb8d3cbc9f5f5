#include "messages/envelope.hpp"

#include <gtest/gtest.h>

#include "tests/messages/wire_table.hpp"
