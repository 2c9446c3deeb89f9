// Where the library reads from: local files through InputFiles, everything else
// through the net accessor. For this folder only.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>

#include "xml/expansion_limit.h"
#include "xml/input_files.h"
#include "xml/location_resolver.h"
#include "xml/locations.h"
#include "xml/transcoding.h"

namespace fdmorph {

class CDMDOMErrorHandler;

/// What a source is part of.
enum class SourceRole {
  document,  ///< a document whose reader sets the limits
  schema,    ///< a schema file: a document with limits of its own, which is checked
  entity,    ///< the document that refers to it
};

/// Makes the sources of all files that a document or a schema refers to, and
/// notes which schema file refers to which. The sources have the locations that
/// the library itself would give them; with a resolver, the paths that it finds,
/// and nothing is read over a network.
///
/// Special files are refused unopened, as if they could not be read. Schema files
/// are checked ahead of the library (schema_check.h).
class InputSources : public xerces::XMLEntityResolver {
 public:
  /// All must outlive this object. Refusals go to `errorHandler`.
  InputSources(InputFiles& files, CDMDOMErrorHandler& errorHandler,
               LocationResolver* resolver = nullptr)
      : m_files(files), m_errorHandler(errorHandler), m_resolver(resolver) {}

  /// The source of the schema file that a load or a parse begins with. It may be
  /// a pipe, which is opened for each.
  [[nodiscard]] std::unique_ptr<xerces::InputSource> mainSchema(std::string const& fileName,
                                                                SourceRole role);

  /// The source of a document. It may be a pipe or a device.
  [[nodiscard]] std::unique_ptr<xerces::InputSource> document(std::string const& fileName);

  /// The one name of the schema file at the location `systemId`.
  [[nodiscard]] std::string const& nameOf(XMLCh const* systemId);

  /// The target namespace of the schema file `name`; empty if it has none.
  [[nodiscard]] std::string namespaceOf(std::string const& name);

  xerces::InputSource* resolveEntity(xerces::XMLResourceIdentifier* resource) override;

  /// The limit of a document that begins.
  [[nodiscard]] std::unique_ptr<ExpansionLimit> beginDocument();

  /// The limits of the documents that begin from now on.
  void setLimits(ExpansionLimits limits) { m_limits = limits; }
  [[nodiscard]] ExpansionLimits limits() const { return m_limits; }

  /// Whether nothing but files that the resolver finds is read.
  [[nodiscard]] bool isLocal() const { return m_resolver != nullptr; }

  InputFiles& files() { return m_files; }
  CDMDOMErrorHandler& errorHandler() { return m_errorHandler; }

 private:
  std::optional<Location> locate(xerces::XMLResourceIdentifier const& resource);

  InputFiles& m_files;
  CDMDOMErrorHandler& m_errorHandler;
  LocationResolver* m_resolver;
  ExpansionLimits m_limits;
  std::unordered_map<std::basic_string<XMLCh>, std::string> m_names;  // by systemId
};

}  // namespace fdmorph
