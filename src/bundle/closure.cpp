#include "bundle/closure.h"

#include <optional>
#include <string_view>
#include <utility>

#include "xml/uris.h"

namespace fdmorph::bundle {
namespace {

using Kind = FileReference::Kind;

// What a message calls the file that a reference leads to.
std::string_view targetOf(Kind kind) {
  switch (kind) {
    case Kind::include:
      return "the included file";
    case Kind::redefine:
      return "the redefined file";
    case Kind::import:
      return "the imported file";
    case Kind::hint:
      return "the hinted schema";
    case Kind::documentType:
      return "the document type definition";
    case Kind::entity:
      break;
  }
  return "the entity";
}

bool isSchemaReference(Kind kind) {
  return kind != Kind::documentType && kind != Kind::entity;
}

std::string inQuotes(std::string const& text) {
  return "'" + text + "'";
}

}  // namespace

Closure::Closure(LocationResolver& resolver, std::vector<std::string> const& reserved,
                 std::size_t maxFiles)
    : m_resolver(resolver), m_maxFiles(maxFiles) {
  for (std::string const& name : reserved) m_names.reserve(name);
}

void Closure::gather(std::string const& path) {
  // The resolver gives the file the path that references to it will get. A name with a
  // colon is no URI here.
  std::string const location = path.starts_with('/') ? path : "./" + path;
  std::optional<std::string> const known = m_resolver.resolve({"", location, ""});
  m_schemas.push_back(addFile(known.value_or(path)));
  m_isSchema[m_schemas.front()] = true;
  // Reading a schema may add others.
  std::size_t next = 0;
  while (next < m_schemas.size()) readSchema(m_schemas[next++]);
}

// The file's number; kNone if there are too many.
std::size_t Closure::addFile(std::string const& path) {
  if (auto known = m_byPath.find(path); known != m_byPath.end()) return known->second;
  if (m_files.size() == m_maxFiles) {
    if (!std::exchange(m_isFull, true)) {
      m_findings.push_back(
          {Finding::Kind::unusable,
           {path, 0, 0, "the schema has more than " + std::to_string(m_maxFiles) + " files"},
           {}});
    }
    return kNone;
  }
  m_files.push_back({path, m_names.take(path)});
  m_edits.emplace_back();
  m_isSchema.resize(m_files.size());
  m_byPath.emplace(path, m_files.size() - 1);
  return m_files.size() - 1;
}

void Closure::readSchema(std::size_t file) {
  std::string const path = m_files[file].source;
  FileReferences read = readReferences(path, m_contents, m_resolver);
  if (!read.fault && !read.isSchema) {
    read.fault = XmlFault{path, 1, 1, "the file is not an XML Schema"};
  }
  for (FileReference const& each : read.references) follow(each);
  if (read.fault) m_findings.push_back({Finding::Kind::unusable, std::move(*read.fault), {}});
}

void Closure::follow(FileReference const& reference) {
  std::optional<std::string> const path =
      m_resolver.resolve({reference.base, reference.location, reference.identifier});
  if (!path) {
    if (!reference.location.empty()) writeLocation(reference, reportMissing(reference));
    return;
  }
  std::size_t const file = addFile(*path);
  if (file == kNone) return;
  if (isSchemaReference(reference.kind) && !m_isSchema[file]) {
    m_isSchema[file] = true;
    m_schemas.push_back(file);
  }
  writeLocation(reference, m_files[file].name);
}

// Has the reference lead to the file of that name in the bundle.
void Closure::writeLocation(FileReference const& reference, std::string const& name) {
  if (!reference.range) {
    if (reference.location == name) return;
    std::string const what = reference.isWritten
                                 ? "replace the location " + inQuotes(reference.location)
                                 : "add a location for " + inQuotes(reference.identifier);
    report(Finding::Kind::unusable, reference,
           "cannot " + what + ", because it is the text of an entity or a default value");
    return;
  }
  auto holder = m_byPath.find(reference.holder);
  if (holder == m_byPath.end()) return;  // there are too many files
  std::string const text = reference.isWritten ? name : " schemaLocation=\"" + name + "\"";
  // The text of an entity may stand in several files.
  auto [entry, isNew] =
      m_edits[holder->second].try_emplace(reference.range->begin, Edit{*reference.range, text});
  if (!isNew && entry->second.text != text) {
    report(Finding::Kind::unusable, reference,
           "cannot replace the location " + inQuotes(reference.location) + ", which leads from " +
               inQuotes(reference.base) + " to another file than before");
  }
}

// Returns the name of the file in the bundle, if it were there.
std::string const& Closure::reportMissing(FileReference const& reference) {
  auto [entry, isNew] =
      m_missing.try_emplace(absoluteUri(reference.base, reference.location), std::string());
  if (isNew) entry->second = m_names.take(decodeEscapes(uriPath(reference.location)));
  bool const isHint = reference.kind == Kind::hint;
  std::string text = "cannot find ";
  text.append(targetOf(reference.kind)).append(" ").append(inQuotes(reference.location));
  report(isHint ? Finding::Kind::missingHint : Finding::Kind::missing, reference, text,
         entry->second);
  return entry->second;
}

void Closure::report(Finding::Kind kind, FileReference const& reference, std::string const& text,
                     std::string const& name) {
  // The holder has been read.
  TextUnits const holder(*m_contents.at(reference.holder));
  TextPlace const place = holder.placeOf(reference.offset, m_cursors[reference.holder]);
  m_findings.push_back({kind, {reference.holder, place.line, place.column, text}, name});
}

std::string Closure::contentOf(std::size_t file) {
  std::string const* bytes = m_contents.at(m_files[file].source);
  if (bytes == nullptr) return {};
  TextUnits const text(*bytes);
  std::string content;
  std::size_t end = 0;
  for (auto const& [begin, edit] : m_edits[file]) {
    content.append(*bytes, end, begin - end).append(text.encode(edit.text));
    end = edit.range.end;
  }
  return content.append(*bytes, end);
}

}  // namespace fdmorph::bundle
