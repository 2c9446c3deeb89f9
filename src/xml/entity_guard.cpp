#include "xml/entity_guard.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string_view>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "xml/DMDOMErrorHandler.h"
#include "xml/paths.h"
#include "xml/transcoding.h"

namespace fdmorph {
namespace {

using namespace std::string_view_literals;

constexpr std::size_t kBlockSize = std::size_t{64} << 10;
constexpr std::string_view kEmptySchema = R"(<schema xmlns="http://www.w3.org/2001/XMLSchema"/>)";

// The bytes in UTF-8 and similar encodings, and in UTF-16 of either order.
constexpr std::array kDocumentTypes{
    "<!DOCTYPE"sv,
    "<\0!\0D\0O\0C\0T\0Y\0P\0E\0"sv,
    "\0<\0!\0D\0O\0C\0T\0Y\0P\0E"sv,
};
constexpr std::string_view kFileScheme = "file://";

bool holdsDocumentType(std::string_view bytes) {
  for (std::string_view type : kDocumentTypes) {
    if (bytes.find(type) != std::string_view::npos) return true;
  }
  return false;
}

// Without a document type a document declares no entities. A file that is not
// regular can be read only once, and the library must read it.
bool hasDocumentType(std::string const& location) {
  std::error_code error;
  std::string path = location;
  if (path.compare(0, kFileScheme.size(), kFileScheme) == 0) {
    std::size_t slash = path.find('/', kFileScheme.size());
    path.erase(0, std::min(slash, path.size()));
  }
  if (!std::filesystem::is_regular_file(path, error)) return false;
  std::ifstream file(path, std::ios::binary);
  constexpr std::size_t kOverlap = kDocumentTypes.back().size() - 1;
  std::string block;
  while (file) {
    std::size_t kept = std::min(block.size(), kOverlap);
    block.erase(0, block.size() - kept);
    block.resize(kept + kBlockSize);
    file.read(block.data() + kept, static_cast<std::streamsize>(kBlockSize));
    block.resize(kept + static_cast<std::size_t>(file.gcount()));
    if (holdsDocumentType(block)) return true;
  }
  return false;
}

/// Passes on fatal errors and nothing else.
class FatalErrors : public xerces::DefaultHandler {
 public:
  explicit FatalErrors(CDMDOMErrorHandler& errorHandler) : m_errorHandler(errorHandler) {}
  void fatalError(xerces::SAXParseException const& e) override {
    hasFatalError = true;
    m_errorHandler.fatalError(e);
  }

  bool hasFatalError = false;

 private:
  CDMDOMErrorHandler& m_errorHandler;
};

bool isSchemaFile(xerces::XMLResourceIdentifier const& resource) {
  using Identifier = xerces::XMLResourceIdentifier;
  switch (resource.getResourceIdentifierType()) {
    case Identifier::SchemaGrammar:
    case Identifier::SchemaImport:
    case Identifier::SchemaInclude:
    case Identifier::SchemaRedefine:
      return true;
    default:
      return false;
  }
}

}  // namespace

bool EntityGuard::admits(std::string const& path) {
  if (!hasDocumentType(path)) return true;
  std::unique_ptr<xerces::SAX2XMLReader> reader(xerces::XMLReaderFactory::createXMLReader());
  FatalErrors handler(m_errorHandler);
  reader->setErrorHandler(&handler);
  reader->setProperty(xerces::XMLUni::fgXercesSecurityManager, &m_limit);
  reader->setFeature(xerces::XMLUni::fgSAX2CoreValidation, false);
  reader->setFeature(xerces::XMLUni::fgXercesSchema, false);
  reader->parse(path.c_str());
  return !handler.hasFatalError;
}

xerces::InputSource* EntityGuard::resolveEntity(xerces::XMLResourceIdentifier* resource) {
  if (resource->getSystemId() == nullptr || !isSchemaFile(*resource)) return nullptr;
  std::string path = toLocalText(resource->getSystemId());
  bool isUrl = path.find("://") != std::string::npos;
  if (!isUrl && isRelativePath(path)) path = weavePaths(toLocalText(resource->getBaseURI()), path);
  if (admits(path)) return nullptr;
  return new xerces::MemBufInputSource(reinterpret_cast<XMLByte const*>(kEmptySchema.data()),
                                       kEmptySchema.size(), resource->getSystemId());
}

}  // namespace fdmorph
