// A mapping file against the data that it is for.
#pragma once

#include <string>
#include <string_view>

#include "mapping/described_data.h"
#include "mapping/mapping_finding.h"

namespace fdmorph::mapping {

/// What is wrong with a mapping file, in its order. `content` is that of the file,
/// `name` its name in messages. A file that is no XML is one finding.
[[nodiscard]] MappingFindings checkMapping(std::string_view content, std::string const& name,
                                           DescribedData const& data);

/// The finding of a file that is no XML.
[[nodiscard]] MappingFinding faultFinding(XmlFault const& fault);

}  // namespace fdmorph::mapping
