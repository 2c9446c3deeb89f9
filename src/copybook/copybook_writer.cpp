#include "copybook/copybook_writer.h"

#include <algorithm>

#include "copybook/entry_words.h"
#include "copybook/item_names.h"

namespace fdmorph::copybook {
namespace {

using compiler::DataItem;

std::uint8_t highestLevel(DataItem const& item) {
  std::uint8_t level = item.level <= compiler::kMaxGroupLevel ? item.level : std::uint8_t{0};
  for (DataItem const* each = item.firstChild; each != nullptr; each = each->next) {
    level = std::max(level, highestLevel(*each));
  }
  return level;
}

/// Writes the entries of items in their order.
class Writer {
 public:
  Writer(std::vector<DataItem const*> const& items, CopybookForm const& form,
         ItemChanges const& changes)
      : m_items(items),
        m_form(form),
        m_changes(changes),
        m_names(items, form, changes),
        m_lines(form.lines) {}

  std::string write() {
    std::size_t depth = 0;
    if (!m_form.outerName.empty()) {
      chooseLevels();
      m_words = {{"01", false}, {m_form.outerName, false}};
      m_lines.addEntry(depth++, m_words);
    }
    for (DataItem const* each : m_items) writeItem(*each, depth);
    return m_lines.takeText();
  }

 private:
  // Items below another record have higher levels than 1.
  void chooseLevels() {
    std::uint8_t highest = 0;
    bool hasRecord = false;
    for (DataItem const* each : m_items) {
      highest = std::max(highest, highestLevel(*each));
      hasRecord |= each->level == 1 || each->level == compiler::kSingleLevel;
    }
    m_isNested = hasRecord;
    m_isLevelDepth = highest == compiler::kMaxGroupLevel;
  }

  // The recursion is bounded by the number of levels.
  void writeItem(DataItem const& item, std::size_t depth) {
    auto found = m_changes.find(&item);
    ItemChange const* change = found == m_changes.end() ? nullptr : &found->second;
    if (change != nullptr && change->isLeftOut) return;
    if (!item.isImplied) writeEntry(item, change, depth++);
    for (DataItem const* each = item.firstCondition; each != nullptr; each = each->next) {
      writeItem(*each, depth);
    }
    for (DataItem const* each = item.firstChild; each != nullptr; each = each->next) {
      writeItem(*each, depth);
    }
  }

  void writeEntry(DataItem const& item, ItemChange const* change, std::size_t depth) {
    if (change != nullptr) {
      for (std::string const& each : change->comments) m_lines.addComment(each);
    }
    Word level{std::to_string(levelOf(item, depth))};
    if (level.text.size() == 1) level.text.insert(0, 1, '0');
    if (change != nullptr && change->area) {
      StorageArea const& area = *change->area;
      m_words = {level, {area.name}, {"PIC"}, {"X(" + std::to_string(area.size) + ")"}};
      m_lines.addEntry(depth, m_words);
    }
    m_words.clear();
    m_words.push_back(level);
    EntryWords(item, change, m_names, m_words).write(m_form.hasXmlClauses);
    m_lines.addEntry(depth, m_words);
  }

  std::size_t levelOf(DataItem const& item, std::size_t depth) const {
    bool isFixed = item.level == compiler::kRenamesLevel || item.level == compiler::kConditionLevel;
    if (!m_isNested || isFixed) return item.level;
    if (item.level == compiler::kSingleLevel || m_isLevelDepth) return depth + 1;
    return item.level + std::size_t{1};
  }

  std::vector<DataItem const*> const& m_items;
  CopybookForm const& m_form;
  ItemChanges const& m_changes;
  ItemNames m_names;
  LineLayout m_lines;
  std::vector<Word> m_words;
  bool m_isNested = false;      // each level is one higher than in the source
  bool m_isLevelDepth = false;  // levels count the groups around an item
};

}  // namespace

std::string writeCopybook(std::vector<DataItem const*> const& items, CopybookForm const& form,
                          ItemChanges const& changes) {
  return Writer(items, form, changes).write();
}

}  // namespace fdmorph::copybook
