#include "schema/schema_loader.h"

#include "xml/DMDOMParser.h"

namespace fdmorph {

CDMXMLElement* SchemaFileLoader::load(std::string const& location) {
  auto known = m_known.find(location);
  return known == m_known.end() ? readFile(location) : repeat(location, known->second);
}

CDMXMLElement* SchemaFileLoader::readFile(std::string const& location) {
  CDMDOMParser parser(m_store);
  KnownFile& file = m_known[location];
  parser.recordReports(&file.reports);
  if (parser.ParseFile(location, CDMDOMParser::FILE_TYPE::XML_SCHEMA, true)) {
    file.tree = parser.getXMLDocument();
  }
  return file.tree;
}

CDMXMLElement* SchemaFileLoader::repeat(std::string const& location, KnownFile const& known) {
  CDMDOMParser::announceSchema(location);
  for (ParserReport const& report : known.reports) printReport(report);
  // A schema counts as checked only while nothing at all has been reported.
  return nothingCounted() && known.tree != nullptr ? m_store.copyTree(*known.tree) : nullptr;
}

}  // namespace fdmorph
