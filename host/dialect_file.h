// Dialect files that a user wrote for the exact reading.
#pragma once

#include <string>

#include "host/choices.h"

namespace wbhost {

// The text of a dialect file. Throws a Failure where it cannot be read.
[[nodiscard]] std::string ReadDialectFile(const std::string& file);

// Reads the dialect file that the choices name, if any, into them. Throws a Failure that tells the
// first thing that is wrong with it.
void TakeDialectFile(Choices& choices);

}  // namespace wbhost
