// The rules of the members of a group: attributes, and names that are the same.
#pragma once

#include "mapping/entry_rules.h"

namespace fdmorph::mapping {

void checkGroups(CheckedMapping const& mapping, MappingFindings& findings);

}  // namespace fdmorph::mapping
