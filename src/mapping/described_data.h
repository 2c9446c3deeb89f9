// The items of a source as the data dictionary has them, with the keys of their entries.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "description/dictionary_content.h"
#include "frontend/compiled_source.h"
#include "mapping/mapping_document.h"
#include "xml/node_store.h"

namespace fdmorph::mapping {

/// What an entry for an item does.
enum class Standing : std::uint8_t {
  written,       ///< fdmorph writes an entry for it
  fillerGroup,   ///< fdmorph writes none; one in the file changes the copybook only
  unwritten,     ///< fdmorph writes none, but follows one
  redefinition,  ///< no effect: it redefines another item, or is part of one that does
  otherRecord,   ///< no effect: only one record is converted
  condition,     ///< no effect
  file,          ///< no effect
};

struct DescribedItem {
  std::string key;  ///< the qualified name
  CDMXMLElement const* element = nullptr;
  std::size_t parent = kNone;  ///< the index of the item, or file, around
  Standing standing = Standing::otherRecord;
  bool isGroup = false;

  /// The last part of the key.
  [[nodiscard]] std::string_view name() const;
  [[nodiscard]] bool isEffective() const { return standing <= Standing::unwritten; }
};

/// The dictionary of a source that fdmorph works on, without a compiler process.
class DescribedData {
 public:
  /// Reports a choice that names no record or no data to the source, which must
  /// outlive this object.
  DescribedData(compiler::CompiledSource& source, compiler::DictionaryChoice const& choice);
  DescribedData(DescribedData const&) = delete;
  DescribedData& operator=(DescribedData const&) = delete;

  /// The top of the tree; null after errors.
  [[nodiscard]] CDMXMLElement const* dictionary() const { return m_dictionary; }

  /// The items of the dictionary, in its order.
  [[nodiscard]] std::vector<DescribedItem> const& items() const { return m_items; }

  /// The items with that key, in order.
  [[nodiscard]] std::span<std::size_t const> find(std::string_view key) const;

  /// Whether the source has an item of that key that is not in the dictionary, such
  /// as one of another section.
  [[nodiscard]] bool isElsewhere(std::string_view key) const;

 private:
  compiler::CompiledSource const& m_source;
  bool m_hasFillerNames;
  CDMXMLNodeStore m_nodes;
  CDMXMLElement const* m_dictionary = nullptr;
  std::vector<DescribedItem> m_items;
  std::unordered_map<std::string_view, std::vector<std::size_t>> m_byKey;
  mutable std::optional<std::unordered_set<std::string>> m_allKeys;  // if asked for
};

}  // namespace fdmorph::mapping
