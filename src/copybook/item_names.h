// The names of items in a copybook that is written, and references to them.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "copybook/copybook_writer.h"
#include "text/letter_case.h"

namespace fdmorph::copybook {

/// The names of the items that are written, after all changes. Looks at the items
/// and the changes, which must outlive it.
class ItemNames {
 public:
  ItemNames(std::vector<compiler::DataItem const*> const& items, CopybookForm const& form,
            ItemChanges const& changes);

  /// The name that is written for an item; "FILLER" if it has none.
  [[nodiscard]] std::string_view nameOf(compiler::DataItem const& item) const;

  /// A reference to an item that the source calls `source`. Where other items that
  /// are written have its name, all groups around it qualify the item.
  [[nodiscard]] std::string refer(compiler::DataItem const& target,
                                  compiler::QualifiedName const& source) const;

  /// A reference to the item in `group` that the source calls `source`, perhaps the
  /// group itself.
  [[nodiscard]] std::string referWithin(compiler::DataItem const& group,
                                        compiler::QualifiedName const& source) const;

 private:
  using Items = std::vector<compiler::DataItem const*>;

  void add(compiler::DataItem const& item);

  ItemChanges const& m_changes;
  bool m_hasNewNames;
  // Only if there are new names: the items by their old names, and how often each
  // new one is written.
  std::unordered_map<std::string_view, Items, CaseInsensitiveHash, CaseInsensitiveEqual> m_items;
  std::unordered_map<std::string_view, std::size_t, CaseInsensitiveHash, CaseInsensitiveEqual>
      m_uses;
};

/// A reference as the source has it.
[[nodiscard]] std::string sourceReference(compiler::QualifiedName const& name);

}  // namespace fdmorph::copybook
