// The grammars that the XML library has loaded for a schema. For this folder only.
#pragma once

#include <filesystem>
#include <string>
#include <unordered_map>
#include <vector>
#include <xercesc/framework/XMLGrammarPoolImpl.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>
#include <xercesc/validators/schema/SchemaGrammar.hpp>

#include "xml/DMDOMErrorHandler.h"
#include "xml/input_sources.h"
#include "xml/schema_model.h"
#include "xml/schema_places.h"

namespace fdmorph {

/// Keeps reports instead of printing them.
class ReportCollector : public CDMDOMErrorHandler {
 public:
  void emit(ParserReport const& report) override { reports.push_back(report); }

  std::vector<ParserReport> reports;
};

/// Resolves through `sources` and notes the schema files.
class NotingResolver : public xerces::XMLEntityResolver {
 public:
  NotingResolver(InputSources& sources, SchemaPlaces& places)
      : m_sources(sources), m_places(places) {}

  xerces::InputSource* resolveEntity(xerces::XMLResourceIdentifier* resource) override;

 private:
  InputSources& m_sources;
  SchemaPlaces& m_places;
};

/// Names files as the user does: by the folder that was given for the main file.
class FileNames {
 public:
  explicit FileNames(std::string const& given);

  std::string shown(std::string const& file) const;

 private:
  std::filesystem::path m_given;
  std::filesystem::path m_absolute;
};

/// The library, from construction to destruction.
struct LibraryUse {
  LibraryUse();
  ~LibraryUse();
  LibraryUse(LibraryUse const&) = delete;
  LibraryUse& operator=(LibraryUse const&) = delete;
};

/// Loads a schema and owns what the library makes of it.
class SchemaGrammars {
 public:
  /// `files` and `resolver`, which may be null, must outlive this object.
  SchemaGrammars(std::string const& fileName, InputFiles& files, LocationResolver* resolver);

  /// False if the schema cannot be used.
  bool load();

  /// The grammar of each namespace. They live as long as this object.
  [[nodiscard]] std::vector<xerces::SchemaGrammar*> grammars();

  /// Where the grammars are, for a parser.
  [[nodiscard]] xerces::XMLGrammarPool& pool() { return m_pool; }

  /// The namespace of that number.
  [[nodiscard]] std::string spaceOf(unsigned number);

  [[nodiscard]] std::vector<SchemaReport> reports() const;
  SchemaPlaces& places() { return m_places; }
  FileNames const& names() const { return m_names; }

 private:
  bool loadGrammars();
  void report(std::string message);

  LibraryUse m_library;
  std::string m_fileName;
  FileNames m_names;
  ReportCollector m_handler;
  InputSources m_sources;
  SchemaPlaces m_places;
  NotingResolver m_resolver;
  xerces::XMLGrammarPoolImpl m_pool{xerces::XMLPlatformUtils::fgMemoryManager};
  std::unordered_map<unsigned, std::string> m_spaces;  // by number
};

}  // namespace fdmorph
