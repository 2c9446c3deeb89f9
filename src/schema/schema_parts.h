// What the ways of putting a schema together from files have in common.
#pragma once

#include <vector>

#include "schema/DMXMLSchemaDoc.h"

namespace fdmorph {

/// Replaces components in `pending` by the children of the redefine `part`, and
/// adds the replaced ones to `redefined`.
void redefineComponents(CDMXMLElement const* part, std::vector<CDMXMLElement*>& pending,
                        ComponentList& redefined);

}  // namespace fdmorph
