#include "xml/schema_places.h"

#include <algorithm>
#include <utility>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/schema/SchemaSymbols.hpp>

#include "text/name_table.h"
#include "xml/expansion_limit.h"

namespace fdmorph {
namespace {

using NodeKind = SchemaNode::Kind;
using xerces::XMLUni;

constexpr auto kKinds = makeNameTable<NodeKind>({
    {"attribute", NodeKind::attribute},
    {"attributeGroup", NodeKind::attributeGroup},
    {"complexType", NodeKind::complexType},
    {"element", NodeKind::element},
    {"extension", NodeKind::derivation},
    {"group", NodeKind::group},
    {"restriction", NodeKind::derivation},
});
static_assert(kKinds.isSorted());

/// Thrown out of a parse that cannot go on. The library has accepted the file, so
/// that this needs a file that has changed.
struct Broken {};

/// Collects the nodes of one file.
class NodeReader : public xerces::DefaultHandler {
 public:
  NodeReader(std::vector<SchemaNode>& nodes, std::vector<std::size_t>& globals, std::uint32_t file)
      : m_nodes(nodes), m_globals(globals), m_file(file) {}

  void setDocumentLocator(xerces::Locator const* locator) override { m_locator = locator; }
  void fatalError(xerces::SAXParseException const&) override { throw Broken(); }

  void startPrefixMapping(XMLCh const* prefix, XMLCh const* uri) override {
    m_prefixes.emplace_back(toUtf8(prefix), toUtf8(uri));
  }
  void endPrefixMapping(XMLCh const* prefix) override {
    std::string const name = toUtf8(prefix);
    auto last = std::ranges::find(m_prefixes.rbegin(), m_prefixes.rend(), name,
                                  &std::pair<std::string, std::string>::first);
    if (last != m_prefixes.rend()) m_prefixes.erase(std::next(last).base());
  }

  void startElement(XMLCh const* uri, XMLCh const* local, XMLCh const*,
                    xerces::Attributes const& attributes) override {
    Open open = openedBy(uri, local);
    if (open.isSchema && m_open.empty()) {
      if (XMLCh const* space = attributes.getValue(u"targetNamespace")) m_space = toUtf8(space);
    }
    if (open.kind != NodeKind::other) addNode(open, attributes);
    m_open.push_back(open);
    notePlace();
  }

  void endElement(XMLCh const*, XMLCh const*, XMLCh const*) override {
    Open const& closed = m_open.back();
    if (closed.node) m_nodes[*closed.node].end = m_nodes.size();
    m_open.pop_back();
    notePlace();
  }

  // What stands between two tags moves the beginning of the second one.
  void characters(XMLCh const*, XMLSize_t) override { notePlace(); }
  void ignorableWhitespace(XMLCh const*, XMLSize_t) override { notePlace(); }
  void comment(XMLCh const*, XMLSize_t) override { notePlace(); }
  void processingInstruction(XMLCh const*, XMLCh const*) override { notePlace(); }

 private:
  struct Open {
    bool isSchema = false;       // of the namespace of schemas, outside annotations
    bool isAnnotation = false;   // or in one
    bool isGlobalScope = false;  // the schema itself, or a redefine
    NodeKind kind = NodeKind::other;
    std::optional<std::size_t> node = std::nullopt;
  };

  Open openedBy(XMLCh const* uri, XMLCh const* local) const {
    Open open;
    open.isAnnotation = !m_open.empty() && m_open.back().isAnnotation;
    if (open.isAnnotation ||
        std::u16string_view(uri) != xerces::SchemaSymbols::fgURI_SCHEMAFORSCHEMA) {
      return open;
    }
    std::string const name = toUtf8(local);
    open.isAnnotation = name == "annotation";
    open.isSchema = !open.isAnnotation;
    open.isGlobalScope = name == "schema" || name == "redefine";
    open.kind = kKinds.find(name, NodeKind::other);
    return open;
  }

  void addNode(Open& open, xerces::Attributes const& attributes) {
    SchemaNode node;
    node.kind = open.kind;
    node.file = m_file;
    node.line = m_line;
    node.column = m_column;
    XMLCh const* name = attributes.getValue(u"name");
    XMLCh const* reference =
        attributes.getValue(node.kind == NodeKind::derivation ? u"base" : u"ref");
    if (reference != nullptr) {
      node.isReference = true;
      node.name = resolved(toUtf8(reference));
    } else if (name != nullptr) {
      node.name = {toUtf8(name), m_space};
    }
    open.node = m_nodes.size();
    if (!node.isReference && !m_open.empty() && m_open.back().isGlobalScope) {
      m_globals.push_back(m_nodes.size());
    }
    m_nodes.push_back(std::move(node));
  }

  SchemaName resolved(std::string const& qualified) const {
    std::size_t const colon = qualified.find(':');
    std::string const prefix = colon == qualified.npos ? "" : qualified.substr(0, colon);
    auto last = std::ranges::find(m_prefixes.rbegin(), m_prefixes.rend(), prefix,
                                  &std::pair<std::string, std::string>::first);
    std::string space = last == m_prefixes.rend() ? "" : last->second;
    return {colon == qualified.npos ? qualified : qualified.substr(colon + 1), std::move(space)};
  }

  void notePlace() {
    m_line = static_cast<std::uint32_t>(m_locator->getLineNumber());
    m_column = static_cast<std::uint32_t>(m_locator->getColumnNumber());
  }

  std::vector<SchemaNode>& m_nodes;
  std::vector<std::size_t>& m_globals;
  std::uint32_t m_file;
  xerces::Locator const* m_locator = nullptr;
  std::string m_space;
  std::vector<std::pair<std::string, std::string>> m_prefixes;  // the last ones apply
  std::vector<Open> m_open;
  std::uint32_t m_line = 1;  // where the next tag begins
  std::uint32_t m_column = 1;
};

std::string keyOf(NodeKind kind, SchemaName const& name) {
  std::string key(1, static_cast<char>('0' + static_cast<int>(kind)));
  return key + name.space + ' ' + name.local;
}

}  // namespace

void SchemaPlaces::readFiles() {
  if (m_isRead) return;
  m_isRead = true;
  std::unordered_set<std::string> seen;
  std::vector<std::size_t> globals;
  for (std::basic_string<XMLCh> const& systemId : m_files) {
    if (!seen.insert(m_sources.nameOf(systemId.c_str())).second) continue;
    std::string const name = toLocalText(systemId.c_str());
    NodeReader handler(m_nodes, globals, static_cast<std::uint32_t>(m_fileNames.size()));
    m_fileNames.push_back(name);
    xerces::SAX2XMLReaderImpl reader;
    reader.setContentHandler(&handler);
    reader.setLexicalHandler(&handler);
    reader.setErrorHandler(&handler);
    reader.setXMLEntityResolver(&m_sources);
    reader.setFeature(XMLUni::fgSAX2CoreValidation, false);
    reader.setFeature(XMLUni::fgXercesSchema, false);
    ExpansionLimit limit(m_sources.limits(), [](std::string const&) {});
    std::size_t const before = m_nodes.size();
    try {
      reader.parse(*m_sources.mainSchema(name, SourceRole::document));
    } catch (Broken) {
      // What has been read stays.
    } catch (xerces::XMLException const&) {
      // The same.
    }
    for (std::size_t i = before; i < m_nodes.size(); ++i) {
      if (m_nodes[i].end == 0) m_nodes[i].end = m_nodes.size();
    }
  }
  for (std::size_t node : globals) {
    m_globals[keyOf(m_nodes[node].kind, m_nodes[node].name)].push_back(node);
  }
}

// A file without a target namespace may have taken on that of another one.
std::vector<std::size_t> const* SchemaPlaces::globals(NodeKind kind, SchemaName const& name) const {
  auto found = m_globals.find(keyOf(kind, name));
  if (found == m_globals.end()) found = m_globals.find(keyOf(kind, {name.local, ""}));
  return found == m_globals.end() ? nullptr : &found->second;
}

SchemaPlaces::Index SchemaPlaces::global(NodeKind kind, SchemaName const& name) {
  readFiles();
  std::vector<std::size_t> const* found = globals(kind, name);
  if (found == nullptr) return std::nullopt;
  return found->front();
}

SchemaPlaces::Scope const& SchemaPlaces::scopeAt(std::size_t node) {
  auto [entry, isNew] = m_scopes.try_emplace(node);
  Scope& scope = entry->second;
  if (!isNew) return scope;
  for (std::size_t i = node + 1; i < m_nodes[node].end;) {
    SchemaNode const& inner = m_nodes[i];
    if (inner.kind == NodeKind::element || inner.kind == NodeKind::attribute) {
      auto& names = inner.kind == NodeKind::element ? scope.elements : scope.attributes;
      names.try_emplace(inner.name.local, i);
      i = inner.end;
      continue;
    }
    if (inner.isReference) scope.references.push_back(i);
    ++i;
  }
  return scope;
}

SchemaPlaces::Index SchemaPlaces::local(std::size_t scope, NodeKind kind, std::string const& name) {
  readFiles();
  std::unordered_set<std::size_t> seen;
  std::vector<std::size_t> pending{scope};
  while (!pending.empty()) {
    std::size_t const next = pending.back();
    pending.pop_back();
    if (!seen.insert(next).second) continue;
    Scope const& inner = scopeAt(next);
    auto const& names = kind == NodeKind::element ? inner.elements : inner.attributes;
    if (auto found = names.find(name); found != names.end()) return found->second;
    for (std::size_t reference : inner.references) {
      NodeKind const target = m_nodes[reference].kind == NodeKind::derivation
                                  ? NodeKind::complexType
                                  : m_nodes[reference].kind;
      if (auto const* found = globals(target, m_nodes[reference].name)) {
        pending.insert(pending.end(), found->begin(), found->end());
      }
    }
  }
  return std::nullopt;
}

SchemaPlace SchemaPlaces::placeOf(std::size_t node) {
  SchemaNode const& found = m_nodes[node];
  return {m_fileNames[found.file], found.line, found.column};
}

}  // namespace fdmorph
