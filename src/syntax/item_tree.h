// The item-tree builder: places the entries of the source, one after another,
// in a tree by their level numbers.
//
// After an error the tree is still one: an item of a wrong level hangs in the
// group that is open at its place.
#pragma once

#include <cstdint>
#include <vector>

#include "semantics/data_item.h"
#include "syntax/token_stream.h"

namespace fdmorph::compiler {

enum class Section : std::uint8_t {
  none,  ///< ahead of the first header, as in a copybook
  file,
  workingStorage,
  localStorage,
  linkage,
};

class ItemTree {
 public:
  ItemTree(DataDivision& data, SyntaxErrors& errors) : m_data(data), m_errors(errors) {}

  /// Records from here on belong to this section.
  void openSection(Section section);
  /// Records from here on belong to `file`, which belongs to the data; to none
  /// if it is null.
  void openFile(FileDescription* file);
  Section section() const { return m_section; }

  /// A new item of the data, with no place in the tree yet.
  DataItem& newItem(std::uint8_t level, Place place);

  /// Places an item of level 01 to 49, or 77.
  void attach(DataItem& item);
  /// Places an item of level 66 at the end of the open record.
  void attachRenames(DataItem& item);
  /// Adds a condition to the item before it.
  void attachCondition(DataItem& condition);

  /// To be called at the end of the text: an implied record around a single
  /// item goes.
  void finish();

  /// The last item that conditions can belong to; null if there is none in
  /// this section or file.
  DataItem* lastItem() const { return m_lastItem; }
  /// Whether a record is open, to which more items may be added.
  bool isRecordOpen() const { return !m_open.empty(); }
  /// Whether no entry and no file description has been there.
  bool isEmpty() const { return m_data.items.empty() && !m_hasFile; }

 private:
  void attachRecord(DataItem& item);
  void attachToGroup(DataItem& item);
  void openImpliedRecord(Place place);
  RecordList& records();

  DataDivision& m_data;
  SyntaxErrors& m_errors;
  Section m_section = Section::none;
  FileDescription* m_file = nullptr;
  bool m_hasFile = false;
  std::vector<DataItem*> m_open;  // the groups around the next item, outermost first
  DataItem* m_lastItem = nullptr;
  DataItem* m_mismatchedGroup = nullptr;  // the group where a level matched none
  std::uint8_t m_mismatchedLevel = 0;     // and that level
};

}  // namespace fdmorph::compiler
