#include "mapping/mapping_check.h"

#include "mapping/entry_rules.h"
#include "mapping/form_rules.h"
#include "mapping/group_rules.h"

namespace fdmorph::mapping {

MappingFindings checkMapping(std::string_view content, std::string const& name,
                             DescribedData const& data) {
  MappingFindings findings;
  MappingReading const reading = readMapping(content, name);
  if (reading.fault) {
    findings.add(faultFinding(*reading.fault));
    return findings;
  }
  MappingContent const read = readEntries(reading.document);
  checkForm(reading.document, read, findings);
  CheckedMapping const mapping(reading.document, read, data);
  checkEntries(mapping, findings);
  checkGroups(mapping, findings);
  findings.sort();
  return findings;
}

MappingFinding faultFinding(XmlFault const& fault) {
  return {MappingCode::xml, {fault.line, fault.column}, {}, fault.text};
}

}  // namespace fdmorph::mapping
