#include "xml/input_sources.h"

#include <span>
#include <string_view>
#include <utility>
#include <xercesc/framework/LocalFileInputSource.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLExceptMsgs.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>

#include "text/status_line.h"
#include "xml/DMDOMErrorHandler.h"
#include "xml/locations.h"
#include "xml/schema_check.h"

namespace fdmorph {
namespace {

using Identifier = xerces::XMLResourceIdentifier;
using LibraryStream = std::unique_ptr<xerces::BinInputStream>;

constexpr std::string_view kDocumentTypeEnding = ".dtd";

[[noreturn]] void failToRead() {
  throw xerces::XMLPlatformUtilsException(__FILE__, __LINE__,
                                          xerces::XMLExcepts::File_CouldNotReadFromFile);
}

/// Counts what another stream reads.
class Stream : public xerces::BinInputStream {
 public:
  /// `limit` is that of a document that begins with this stream, or null.
  Stream(SourceRole role, std::unique_ptr<ExpansionLimit> limit)
      : m_role(role), m_limit(std::move(limit)) {}

  XMLFilePos curPos() const override { return m_position; }
  XMLCh const* getContentType() const override { return nullptr; }

  XMLSize_t readBytes(XMLByte* target, XMLSize_t size) override {
    ExpansionLimit* limit = ExpansionLimit::current();
    // The first block is read by the constructor of a reader.
    if (limit != nullptr && m_position > 0) limit->check();
    XMLSize_t count = readNext(target, size);
    m_position += count;
    statusLine.count(StepUnit::bytes, count);
    if (limit != nullptr && m_role == SourceRole::entity) limit->countText(count);
    return count;
  }

 protected:
  virtual XMLSize_t readNext(XMLByte* target, XMLSize_t size) = 0;
  XMLSize_t position() const { return m_position; }

 private:
  SourceRole m_role;
  std::unique_ptr<ExpansionLimit> m_limit;
  XMLSize_t m_position = 0;
};

class FileStream : public Stream {
 public:
  FileStream(std::shared_ptr<InputFile> file, SourceRole role,
             std::unique_ptr<ExpansionLimit> limit)
      : Stream(role, std::move(limit)), m_file(std::move(file)) {}

 protected:
  XMLSize_t readNext(XMLByte* target, XMLSize_t size) override {
    auto count = m_file->read(position(), std::as_writable_bytes(std::span(target, size)));
    if (!count) failToRead();
    return *count;
  }

 private:
  std::shared_ptr<InputFile> m_file;
};

/// A stream of the library.
class OtherStream : public Stream {
 public:
  OtherStream(LibraryStream inner, SourceRole role, std::unique_ptr<ExpansionLimit> limit)
      : Stream(role, std::move(limit)), m_inner(std::move(inner)) {}

  XMLCh const* getContentType() const override { return m_inner->getContentType(); }
  XMLCh const* getEncoding() const override { return m_inner->getEncoding(); }

 protected:
  XMLSize_t readNext(XMLByte* target, XMLSize_t size) override {
    return m_inner->readBytes(target, size);
  }

 private:
  LibraryStream m_inner;
};

/// What the sources share. The library copies none of them.
class Source : public xerces::InputSource {
 public:
  Source(Location location, SourceRole role, InputSources& owner)
      : InputSource(location.systemId.c_str()),
        m_location(std::move(location)),
        m_role(role),
        m_owner(owner) {}

 protected:
  std::unique_ptr<ExpansionLimit> beginDocument() const {
    return m_role == SourceRole::schema ? m_owner.beginDocument() : nullptr;
  }

  void countExpansion() const {
    ExpansionLimit* limit = ExpansionLimit::current();
    if (m_role != SourceRole::entity || limit == nullptr) return;
    limit->countExpansion();
    limit->check();
  }

  Location const& location() const { return m_location; }
  SourceRole role() const { return m_role; }
  InputSources& owner() const { return m_owner; }

 private:
  Location m_location;
  SourceRole m_role;
  InputSources& m_owner;
};

/// A local file whose bytes are kept.
class FileSource : public Source {
 public:
  FileSource(std::shared_ptr<InputFile> file, Location location, SourceRole role,
             InputSources& owner)
      : Source(std::move(location), role, owner), m_file(std::move(file)) {}

  xerces::BinInputStream* makeStream() const override {
    countExpansion();
    if (m_file->kind() == InputFile::Kind::directory) failToRead();
    if (!m_file->canBeRead()) return nullptr;
    if (role() == SourceRole::schema) beginSchema();
    return new FileStream(m_file, role(), beginDocument());
  }

 private:
  // Does not return if the file is refused.
  void beginSchema() const {
    owner().files().references().addRead(m_file->name());
    statusLine.count(StepUnit::files);
    if (m_file->isAdmitted()) return;
    if (needsCheck(*m_file)) {
      FileSource copy(m_file, location(), SourceRole::document, owner());
      if (!arePatternsAdmitted(copy, owner())) {
        owner().errorHandler().dropReports();
        endRefusedParse();
      }
    }
    m_file->admit();
  }

  std::shared_ptr<InputFile> m_file;
};

/// What the library opens: a document that is a device, or a location that needs
/// a network.
class LibrarySource : public Source {
 public:
  using Source::Source;

  xerces::BinInputStream* makeStream() const override {
    countExpansion();
    if (role() == SourceRole::schema) {
      owner().files().references().addRead(owner().nameOf(getSystemId()));
      statusLine.count(StepUnit::files);
    }
    LibraryStream stream(open());
    if (stream == nullptr) return nullptr;
    return new OtherStream(std::move(stream), role(), beginDocument());
  }

 private:
  xerces::BinInputStream* open() const {
    if (owner().isLocal()) return nullptr;
    if (location().url) return location().url->makeNewStream();
    return xerces::LocalFileInputSource(getSystemId()).makeStream();
  }
};

bool isSchemaFile(Identifier const& resource) {
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

// The location of a file that is named by its path alone.
Location locationOfPath(std::string const& path) {
  return {toLibraryText(path), path, std::nullopt};
}

bool isDocumentType(Location const& location) {
  return toLocalText(location.systemId.c_str()).ends_with(kDocumentTypeEnding);
}

}  // namespace

std::unique_ptr<xerces::InputSource> InputSources::mainSchema(std::string const& fileName,
                                                              SourceRole role) {
  Location location = m_resolver == nullptr ? resolveLocation(fileName) : locationOfPath(fileName);
  if (location.path) {
    std::shared_ptr<InputFile> file = m_files.at(*location.path);
    if (file->kind() == InputFile::Kind::pipe) {
      file = std::make_shared<InputFile>(*location.path, true);
    }
    if (file->kind() == InputFile::Kind::regular || file->kind() == InputFile::Kind::pipe) {
      return std::make_unique<FileSource>(std::move(file), std::move(location), role, *this);
    }
  }
  return std::make_unique<LibrarySource>(std::move(location), role, *this);
}

std::unique_ptr<xerces::InputSource> InputSources::document(std::string const& fileName) {
  if (m_resolver != nullptr) return mainSchema(fileName, SourceRole::document);
  return std::make_unique<LibrarySource>(resolveLocation(fileName), SourceRole::document, *this);
}

xerces::InputSource* InputSources::resolveEntity(xerces::XMLResourceIdentifier* resource) {
  XMLCh const* base = resource->getBaseURI();
  std::optional<Location> found = locate(*resource);
  if (!found) return nullptr;
  Location& location = *found;
  bool isSchema = isSchemaFile(*resource);
  SourceRole role = isSchema ? SourceRole::schema : SourceRole::entity;
  if (isSchema && base != nullptr) {
    bool isRedefine = resource->getResourceIdentifierType() == Identifier::SchemaRedefine;
    m_files.references().addReference(nameOf(base), nameOf(location.systemId.c_str()), isRedefine);
  }
  // What a document type declares is not needed to read a schema.
  if (m_resolver != nullptr && !isSchema && !location.path && isDocumentType(location)) {
    return new xerces::MemBufInputSource(nullptr, 0, location.systemId.c_str());
  }
  if (!location.path) return new LibrarySource(std::move(location), role, *this);
  std::shared_ptr<InputFile> file = m_files.at(*location.path);
  return new FileSource(std::move(file), std::move(location), role, *this);
}

// Nothing if the resource has no location and is not at hand.
std::optional<Location> InputSources::locate(Identifier const& resource) {
  XMLCh const* base = resource.getBaseURI();
  XMLCh const* systemId = resource.getSystemId();
  if (m_resolver == nullptr) {
    if (systemId == nullptr) return std::nullopt;
    return resolveLocation(base, systemId);
  }
  XMLCh const* identifier =
      isSchemaFile(resource) ? resource.getNameSpace() : resource.getPublicId();
  auto textOf = [](XMLCh const* text) { return text == nullptr ? "" : toLocalText(text); };
  LocationReference reference{textOf(base), textOf(systemId), textOf(identifier)};
  if (auto path = m_resolver->resolve(reference)) return locationOfPath(*path);
  if (systemId == nullptr) return std::nullopt;
  return Location{systemId, std::nullopt, std::nullopt};
}

std::unique_ptr<ExpansionLimit> InputSources::beginDocument() {
  return std::make_unique<ExpansionLimit>(
      m_limits, [this](std::string message) { m_errorHandler.refuse(std::move(message)); });
}

std::string const& InputSources::nameOf(XMLCh const* systemId) {
  auto [entry, isNew] = m_names.try_emplace(systemId);
  if (isNew) {
    std::string local = toLocalText(systemId);
    Location location = m_resolver == nullptr ? resolveLocation(local) : locationOfPath(local);
    entry->second = location.path ? m_files.at(*location.path)->name() : local;
  }
  return entry->second;
}

std::string InputSources::namespaceOf(std::string const& name) {
  return targetNamespaceOf(*mainSchema(name, SourceRole::document), *this);
}

}  // namespace fdmorph
