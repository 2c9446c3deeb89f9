// The limit on entity expansion, where the library does not keep it. For this
// folder only.
#pragma once

#include <string>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>

#include "xml/transcoding.h"

namespace fdmorph {

class CDMDOMErrorHandler;

/// The library loads a grammar with a parser of its own that no
/// SecurityManager reaches. So a schema file with a document type, where
/// entities are declared, is first read once under the limit. Files without
/// one, which are nearly all, are only searched for it. As an entity resolver
/// the guard does this for the files that a grammar refers to, and leaves
/// every other location to the library.
class EntityGuard : public xerces::XMLEntityResolver {
 public:
  EntityGuard(CDMDOMErrorHandler& errorHandler, xerces::SecurityManager& limit)
      : m_errorHandler(errorHandler), m_limit(limit) {}

  /// True if the library may load the schema file `path`. False, with a report,
  /// if its entities exceed the limit or it is not well-formed.
  bool admits(std::string const& path);

  /// An empty schema in place of a file that is not admitted, otherwise null.
  xerces::InputSource* resolveEntity(xerces::XMLResourceIdentifier* resource) override;

 private:
  CDMDOMErrorHandler& m_errorHandler;
  xerces::SecurityManager& m_limit;
};

}  // namespace fdmorph
