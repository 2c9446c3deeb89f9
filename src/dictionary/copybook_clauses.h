// The clauses of a data description entry that come from the source.
#pragma once

#include <string>

#include "xml/DMXMLElement.h"

namespace fdmorph {

/// Appends the picture, usage, occurs, sign, justified, blank when zero and
/// value clauses of a dictionary item to `line`, each with a blank in front.
/// Values stand as they are: nothing inside is escaped.
void appendDataClauses(CDMXMLElement const* element, std::string& line);

}  // namespace fdmorph
