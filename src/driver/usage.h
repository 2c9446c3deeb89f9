// The usage text.
#pragma once

namespace fdmorph {

/// Prints the usage text on the standard output stream.
void printUsage();

}  // namespace fdmorph
