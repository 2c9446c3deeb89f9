#include "compiler/listing.h"

#include <algorithm>
#include <array>
#include <vector>

#include "source/diagnostics.h"
#include "text/utf8.h"

namespace fdmorph::compiler {
namespace {

enum Column : std::size_t { line, level, name, offset, length, picture, usage, occurs, kColumns };

using Row = std::array<std::string, kColumns>;

constexpr bool isNumber(std::size_t column) {
  return column == line || column == offset || column == length;
}

std::size_t widthOf(std::string_view text) {
  std::size_t characters = 0;
  for (char byte : text) characters += isUtf8Continuation(byte) ? 0U : 1U;
  return characters;
}

/// Collects the rows of a table and aligns its columns.
class Table {
 public:
  void add(Row row) {
    for (std::size_t i = 0; i < kColumns; ++i) {
      m_widths[i] = std::max(m_widths[i], widthOf(row[i]));
    }
    m_rows.push_back(std::move(row));
  }

  std::string print() const {
    std::string out;
    for (Row const& row : m_rows) {
      std::string text;
      for (std::size_t i = 0; i < kColumns; ++i) {
        std::string padding(m_widths[i] - widthOf(row[i]), ' ');
        if (i > 0) text += "  ";
        text += isNumber(i) ? padding + row[i] : row[i] + padding;
      }
      text.erase(text.find_last_not_of(' ') + 1);
      (out += text) += '\n';
    }
    return out;
  }

 private:
  std::vector<Row> m_rows;
  std::array<std::size_t, kColumns> m_widths{};
};

class Lister {
 public:
  explicit Lister(Sources const& sources) : m_sources(sources) {
    m_table.add({"LINE", "LV", "NAME", "OFFSET", "LENGTH", "PICTURE", "USAGE", "OCCURS"});
  }

  // The recursion is bounded by the number of levels.
  void add(DataItem const* first, std::size_t depth) {
    for (DataItem const* item = first; item != nullptr; item = item->next) {
      addItem(*item, depth);
      add(item->firstChild, depth + 1);
    }
  }

  std::string print() const { return m_table.print(); }

 private:
  void addItem(DataItem const& item, std::size_t depth) {
    Row row;
    row[line] = lineOf(item);
    std::string number = std::to_string(item.isImplied ? 1 : item.level);
    row[level] = number.size() == 1 ? "0" + number : number;
    row[name] = std::string(depth * 2, ' ') + (item.name.empty() ? "FILLER" : printable(item.name));
    row[offset] = std::to_string(item.offset);
    row[length] = std::to_string(item.size);
    if (!item.isGroup()) {
      if (item.picture != nullptr) row[picture] = printable(item.picture->text);
      bool isRange = item.level == kRenamesLevel && item.picture == nullptr;
      if (!isRange) row[usage] = entryOf(item.effectiveUsage).name;
    }
    if (item.occurs) row[occurs] = occurrencesOf(*item.occurs);
    m_table.add(std::move(row));
  }

  std::string lineOf(DataItem const& item) const {
    if (item.isImplied) return {};
    LinePlace place = m_sources.locate(item.place);
    bool isMember = m_sources.copiedFrom(item.place.text).isKnown();
    return (isMember ? printable(place.file) + ":" : "") + std::to_string(place.line);
  }

  static std::string occurrencesOf(OccursClause const& clause) {
    std::string most = std::to_string(clause.most);
    return clause.isDepending ? std::to_string(clause.least) + ".." + most : most;
  }

  Sources const& m_sources;
  Table m_table;
};

}  // namespace

std::string listItems(DataDivision const& data, Sources const& sources) {
  Lister lister(sources);
  for (FileDescription const& file : data.files) lister.add(file.records.first, 0);
  lister.add(data.workingStorage.first, 0);
  lister.add(data.localStorage.first, 0);
  lister.add(data.linkage.first, 0);
  return lister.print();
}

}  // namespace fdmorph::compiler
