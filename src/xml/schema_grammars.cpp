#include "xml/schema_grammars.h"

#include <new>
#include <utility>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

namespace fdmorph {

LibraryUse::LibraryUse() {
  CDMDOMParser::InitializePlatform();
}

LibraryUse::~LibraryUse() {
  xerces::XMLPlatformUtils::Terminate();
}

xerces::InputSource* NotingResolver::resolveEntity(xerces::XMLResourceIdentifier* resource) {
  using Identifier = xerces::XMLResourceIdentifier;
  xerces::InputSource* source = m_sources.resolveEntity(resource);
  switch (resource->getResourceIdentifierType()) {
    case Identifier::SchemaGrammar:
    case Identifier::SchemaImport:
    case Identifier::SchemaInclude:
    case Identifier::SchemaRedefine:
      if (source != nullptr) m_places.addFile(source->getSystemId());
      break;
    default:
      break;
  }
  return source;
}

FileNames::FileNames(std::string const& given) : m_given(given) {
  std::error_code ignored;
  m_absolute = std::filesystem::absolute(given, ignored).lexically_normal();
}

std::string FileNames::shown(std::string const& file) const {
  if (file.empty()) return file;
  std::filesystem::path const path = std::filesystem::path(file).lexically_normal();
  if (path == m_absolute) return m_given.string();
  std::filesystem::path const inside = path.lexically_relative(m_absolute.parent_path());
  if (inside.empty() || *inside.begin() == "..") return file;
  return (m_given.parent_path() / inside).string();
}

SchemaGrammars::SchemaGrammars(std::string const& fileName, InputFiles& files,
                               LocationResolver* resolver)
    : m_fileName(fileName),
      m_names(fileName),
      m_sources(files, m_handler, resolver),
      m_places(m_sources),
      m_resolver(m_sources, m_places) {
  m_handler.setVerboseError(true);
}

void SchemaGrammars::report(std::string message) {
  ParserReport report{ParserReport::Kind::error, message};
  report.file = m_names.shown(m_fileName);
  report.message = std::move(message);
  m_handler.emit(report);
}

bool SchemaGrammars::load() {
  try {
    return loadGrammars();
  } catch (xerces::XMLException const& e) {
    report(toUtf8(e.getMessage()));
  } catch (xerces::SAXException const& e) {
    report(toUtf8(e.getMessage()));
  } catch (xerces::OutOfMemoryException const&) {
    throw std::bad_alloc();
  }
  return false;
}

// The settings are those of CDMDOMParser.
bool SchemaGrammars::loadGrammars() {
  xerces::XercesDOMParser parser(nullptr, xerces::XMLPlatformUtils::fgMemoryManager, &m_pool);
  parser.setDoNamespaces(true);
  parser.setDoSchema(true);
  parser.setErrorHandler(&m_handler);
  parser.setXMLEntityResolver(&m_resolver);
  parser.setValidationScheme(xerces::XercesDOMParser::Val_Auto);
  auto source = m_sources.mainSchema(m_fileName, SourceRole::schema);
  m_places.addFile(source->getSystemId());
  bool const isLoaded =
      parser.loadGrammar(*source, xerces::Grammar::SchemaGrammarType, true) != nullptr;
  if (!isLoaded && m_handler.reports.empty()) report("the file holds no schema");
  return m_handler.reports.empty();
}

std::vector<xerces::SchemaGrammar*> SchemaGrammars::grammars() {
  std::vector<xerces::SchemaGrammar*> result;
  auto all = m_pool.getGrammarEnumerator();
  while (all.hasMoreElements()) {
    xerces::Grammar& grammar = all.nextElement();
    if (grammar.getGrammarType() == xerces::Grammar::SchemaGrammarType) {
      result.push_back(static_cast<xerces::SchemaGrammar*>(&grammar));
    }
  }
  return result;
}

std::string SchemaGrammars::spaceOf(unsigned number) {
  auto [entry, isNew] = m_spaces.try_emplace(number);
  if (isNew) entry->second = toUtf8(m_pool.getURIStringPool()->getValueForId(number));
  return entry->second;
}

std::vector<SchemaReport> SchemaGrammars::reports() const {
  std::vector<SchemaReport> result;
  for (ParserReport const& each : m_handler.reports) {
    result.push_back({each.kind == ParserReport::Kind::warning,
                      {m_names.shown(each.file), each.lineNumber, each.column},
                      each.message});
  }
  return result;
}

}  // namespace fdmorph
