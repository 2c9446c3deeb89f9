#include "show/table.h"

#include <algorithm>
#include <array>
#include <vector>

#include "show/item_words.h"
#include "source/diagnostics.h"
#include "text/utf8.h"

namespace fdmorph::show {
namespace {

using compiler::DataItem;
using compiler::printable;
using record::dataNameOf;
using record::RecordTree;

enum Column : std::size_t {
  level,
  name,
  picture,
  usage,
  offset,
  length,
  occurs,
  path,
  type,  ///< with a schema only
  kColumns
};

constexpr bool isNumber(std::size_t column) {
  return column == offset || column == length;
}

std::size_t widthOf(std::string_view text) {
  return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, isUtf8Continuation));
}

struct Row {
  std::array<std::string, kColumns> cells;
  std::string tail = {};  ///< text after the name, over all other columns
};

/// Collects rows and aligns their columns.
class Table {
 public:
  void add(Row row) {
    for (std::size_t i = 0; i < kColumns; ++i) {
      m_widths[i] = std::max(m_widths[i], widthOf(row.cells[i]));
    }
    m_rows.push_back(std::move(row));
  }

  void printTo(std::string& out) const {
    for (Row const& row : m_rows) {
      std::size_t columns = row.tail.empty() ? std::size_t{kColumns} : picture;
      for (std::size_t i = 0; i < columns; ++i) {
        std::size_t padding = m_widths[i] - widthOf(row.cells[i]);
        if (i > 0) out += "  ";
        if (isNumber(i)) out.append(padding, ' ');
        out += row.cells[i];
        if (!isNumber(i)) out.append(padding, ' ');
      }
      if (!row.tail.empty()) (out += "  ") += row.tail;
      out.erase(out.find_last_not_of(' ') + 1);
      out += '\n';
    }
  }

 private:
  std::vector<Row> m_rows;
  std::array<std::size_t, kColumns> m_widths{};
};

std::string indented(std::uint32_t depth, std::string_view text) {
  return std::string(std::size_t{2} * depth, ' ') + printable(text);
}

std::string nameCell(DataItem const& item, std::uint32_t depth) {
  std::string text = indented(depth, dataNameOf(item));
  if (item.redefined != nullptr) text += " redefines " + printable(dataNameOf(*item.redefined));
  return text;
}

void addConditions(Table& table, DataItem const& item, std::uint32_t depth) {
  for (DataItem const* each = item.firstCondition; each != nullptr; each = each->next) {
    Row condition;
    condition.cells[level] = levelWords(*each);
    condition.cells[name] = indented(depth, each->name);
    condition.tail = printable(valueWords(*each));
    table.add(std::move(condition));
  }
}

void addItem(Table& table, RecordTree const& tree, std::uint32_t node, std::uint32_t depth,
             std::string_view typeWords) {
  DataItem const& item = *tree.nodes()[node].item;
  Row row;
  row.cells[level] = levelWords(item);
  row.cells[name] = nameCell(item, depth);
  row.cells[picture] = printable(pictureOf(item));
  row.cells[usage] = storageWords(item);
  row.cells[offset] = std::to_string(item.offset);
  row.cells[length] = std::to_string(item.size);
  row.cells[occurs] = printable(occursWithCounter(item));
  row.cells[path] = printable(tree.xmlPath(node));
  row.cells[type] = printable(typeWords);
  table.add(std::move(row));
  addConditions(table, item, depth + 1);
}

void addFindings(Table& table, SchemaView const& view, std::uint32_t node, std::uint32_t depth) {
  for (ShownFinding const& each : findingsOf(view, node)) {
    Row row;
    row.cells[name] = indented(depth + 1, each.severity);
    row.tail = printable(each.path + ": " + each.text) + " [" + each.code + "]";
    table.add(std::move(row));
  }
}

void printHead(std::string& out, ShownSource const& source, DataItem const& record) {
  std::string_view remark = remarkOn(source.encoding);
  out += "Record    " + printable(dataNameOf(record)) + "\n";
  out += "Source    " + printable(source.file) + "\n";
  if (!source.schema.empty()) out += "Schema    " + printable(source.schema) + "\n";
  out += "Length    " + byteWords(record.size) + "\n";
  out += "Dialect   " + std::string(nameOf(source.dialect)) + "\n";
  out += "Encoding  " + printable(source.encoding);
  if (!remark.empty()) ((out += " (") += remark) += ")";
  out += "\n\n";
}

}  // namespace

std::string printTables(ShownSource const& source) {
  std::string out;
  for (std::size_t record = 0; record < source.records.size(); ++record) {
    RecordTree const& tree = source.records[record];
    SchemaView const* view = source.views.empty() ? nullptr : &source.views[record];
    if (record > 0) out += '\n';
    printHead(out, source, *tree.root().item);
    Table table;
    table.add({{"LV", "NAME", "PICTURE", "USAGE", "OFFSET", "LENGTH", "OCCURS", "XML PATH",
                view == nullptr ? "" : "TYPE"}});
    std::vector<std::uint32_t> depths = depthsOf(tree);
    for (std::uint32_t i = 0; i < depths.size(); ++i) {
      addItem(table, tree, i, depths[i], view == nullptr ? std::string_view() : view->types[i]);
      if (view != nullptr) addFindings(table, *view, i, depths[i]);
    }
    table.printTo(out);
  }
  return out;
}

}  // namespace fdmorph::show
