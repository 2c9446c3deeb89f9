// The rules of the form of a mapping file: what fdmorph does not read, or reads
// otherwise than it looks.
#pragma once

#include "mapping/mapping_entries.h"
#include "mapping/mapping_finding.h"

namespace fdmorph::mapping {

void checkForm(MappingDocument const& document, MappingContent const& content,
               MappingFindings& findings);

}  // namespace fdmorph::mapping
