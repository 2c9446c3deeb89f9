#include "schema/schema_loader.h"

#include "xml/DMDOMParser.h"

namespace fdmorph {

CDMXMLElement* SchemaFileLoader::load(std::string const& location) {
  auto known = m_known.find(location);
  if (known != m_known.end()) return repeat(location, known->second);
  // A report shows the path as it was spelled, so only files without one are
  // shared between spellings.
  KnownFile const*& good = m_goodFiles[m_files.at(location)->name()];
  if (good != nullptr) return repeat(location, *good);
  KnownFile const& file = readFile(location);
  if (file.reports.empty() && file.tree != nullptr) good = &file;
  return file.tree;
}

SchemaFileLoader::KnownFile const& SchemaFileLoader::readFile(std::string const& location) {
  CDMDOMParser parser(m_store, m_files);
  KnownFile& file = m_known[location];
  parser.recordReports(&file.reports);
  if (parser.ParseFile(location, CDMDOMParser::FILE_TYPE::XML_SCHEMA, true)) {
    file.tree = parser.getXMLDocument();
  }
  return file;
}

CDMXMLElement* SchemaFileLoader::repeat(std::string const& location, KnownFile const& known) {
  CDMDOMParser::announceSchema(location);
  for (ParserReport const& report : known.reports) printReport(report);
  // A schema counts as checked only while nothing at all has been reported.
  return nothingCounted() && known.tree != nullptr ? m_store.copyTree(*known.tree) : nullptr;
}

}  // namespace fdmorph
