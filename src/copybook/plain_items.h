// What the plain copybook changes of the items of a record.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "copybook/copybook_writer.h"
#include "copybook/name_scope.h"
#include "semantics/data_item.h"
#include "source/diagnostics.h"

namespace fdmorph::copybook {

/// A name that is written, and the comment that keeps the one of the source.
struct PlainName {
  std::string name;
  std::string comment;  ///< empty if the name is that of the source
};

/// The name for `name` in `scope`, without looking whether it is free as it is: what
/// is free is taken first by other items. Warns of the change at `place`.
[[nodiscard]] PlainName changedName(std::string_view name, compiler::Place place, NameScope& scope,
                                    compiler::Diagnostics& diagnostics);

/// Collects the changes. Names that need none are taken before others are changed.
class PlainItems {
 public:
  PlainItems(compiler::Dialect dialect, compiler::Diagnostics& diagnostics)
      : m_dialect(dialect), m_diagnostics(diagnostics) {}

  /// Adds records. `scope` has the other names of level 01.
  void addRecords(std::vector<compiler::DataItem const*> const& records, NameScope& scope);

  [[nodiscard]] ItemChanges const& changes() const { return m_changes; }

 private:
  using Items = std::vector<compiler::DataItem const*>;

  /// Where an item stands.
  struct Surroundings {
    bool isInTable = false;
    bool isFollowed = false;  ///< by storage that is not its own
  };

  void addItem(compiler::DataItem const& item, Surroundings around);
  void addParts(compiler::DataItem const& item, Surroundings around);
  void nameItems(Items const& items, NameScope& scope);
  void nameIndexes(compiler::DataItem const& item);
  void shareStorage(Items const& items, NameScope& scope);
  void shareArea(Items const& views, NameScope& scope);
  void checkTable(compiler::DataItem const& item, Surroundings around);
  void checkPicture(compiler::DataItem const& item);
  std::string nameOf(compiler::DataItem const& item) const;
  void warn(compiler::Code code, compiler::DataItem const& item, std::string const& text);

  compiler::Dialect m_dialect;
  compiler::Diagnostics& m_diagnostics;
  ItemChanges m_changes;
  NameScope m_indexes;
};

}  // namespace fdmorph::copybook
