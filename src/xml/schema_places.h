// The places of declarations in the files of a schema. The library's model has none.
// For this folder only.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "xml/input_sources.h"
#include "xml/schema_components.h"
#include "xml/transcoding.h"

namespace fdmorph {

/// A declaration, a definition or a reference in a schema file.
struct SchemaNode {
  enum class Kind : std::uint8_t {
    element,
    attribute,
    complexType,
    group,
    attributeGroup,
    derivation,  ///< an extension or restriction, whose reference is its base
    other,       ///< not in the index
  };

  Kind kind = Kind::element;
  bool isReference = false;
  std::uint32_t file = 0;
  std::uint32_t line = 0;
  std::uint32_t column = 0;
  std::size_t end = 0;  ///< the index after the nodes inside
  SchemaName name;      ///< what it declares or refers to
};

/// An index of schema files that are read again, without their grammar, the first
/// time that something is looked for.
class SchemaPlaces {
 public:
  using Kind = SchemaNode::Kind;
  using Index = std::optional<std::size_t>;

  explicit SchemaPlaces(InputSources& sources) : m_sources(sources) {}

  /// Adds a file that the library has loaded, by its location.
  void addFile(XMLCh const* systemId) { m_files.emplace_back(systemId); }

  /// The global declaration or definition of that name.
  [[nodiscard]] Index global(Kind kind, SchemaName const& name);

  /// The declaration of a local name in the type, or in the anonymous type of the
  /// element, at `scope`. The groups and base types of the type are searched, too.
  [[nodiscard]] Index local(std::size_t scope, Kind kind, std::string const& name);

  /// The place of a node; the file is the library's name for it.
  [[nodiscard]] SchemaPlace placeOf(std::size_t node);

 private:
  struct Scope {
    std::unordered_map<std::string_view, std::size_t> elements;
    std::unordered_map<std::string_view, std::size_t> attributes;
    std::vector<std::size_t> references;  // to groups and base types
  };

  void readFiles();
  Scope const& scopeAt(std::size_t node);
  std::vector<std::size_t> const* globals(Kind kind, SchemaName const& name) const;

  InputSources& m_sources;
  std::vector<std::basic_string<XMLCh>> m_files;
  bool m_isRead = false;
  std::vector<std::string> m_fileNames;
  std::vector<SchemaNode> m_nodes;  // those of one file after the other, in document order
  std::unordered_map<std::string, std::vector<std::size_t>> m_globals;  // by kind and name
  std::unordered_map<std::size_t, Scope> m_scopes;
};

}  // namespace fdmorph
