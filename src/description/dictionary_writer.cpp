#include "description/dictionary_writer.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <vector>

#include "semantics/item_rules.h"
#include "semantics/name_index.h"
#include "semantics/values.h"
#include "text/xml_writer.h"

namespace fdmorph::compiler {
namespace {

char const* elementOf(ItemKind kind) {
  switch (kind) {
    case ItemKind::numeric:
      return "numeric";
    case ItemKind::numericEdited:
      return "numericEdited";
    case ItemKind::alphanumeric:
      return "alphanumeric";
    case ItemKind::alphanumericEdited:
      return "alphanumericEdited";
    case ItemKind::national:
      return "national";
    case ItemKind::group:
      break;
  }
  return "group";
}

// The name of the element. An item without a name is FILLER.
std::string_view nameOf(DataItem const& item) {
  return item.name.empty() ? "FILLER" : item.name;
}

// RENAMES of several items or of a group has no picture and no usage.
bool isRange(DataItem const& item) {
  return item.level == kRenamesLevel && item.picture == nullptr &&
         item.effectiveUsage == Usage::none;
}

// The number of decimal digits of the largest number of a size.
std::uint64_t digitsOfBytes(std::uint64_t bytes) {
  constexpr std::array<std::uint64_t, 9> kDigits{1, 3, 5, 8, 10, 13, 15, 17, 20};
  return kDigits[std::min<std::uint64_t>(bytes, kDigits.size() - 1)];
}

/// A value of a condition, or a range of values.
struct ValueTexts {
  std::string from;
  std::string to;
  bool isRange;
};

class Writer {
 public:
  Writer(DataDivision const& data, DictionaryContent const& content, Diagnostics& diagnostics,
         std::size_t maxValueText)
      : m_data(data), m_content(content), m_diagnostics(diagnostics), m_maxValueText(maxValueText) {
    if (!content.hasFiles) return;
    for (FileDescription const& file : data.files) {
      DataItem const* record = file.records.first;
      for (; record != nullptr; record = record->next) m_files[record] = file.name;
    }
  }

  std::string write(DictionaryOrder order) {
    m_xml.declaration();
    m_xml.begin("program");
    m_xml.attribute("name", m_data.programName);
    if (order == DictionaryOrder::filesFirst) writeFiles();
    writeRecords();
    if (order == DictionaryOrder::workingStorageFirst) writeFiles();
    m_xml.end("program");
    return m_xml.release();
  }

 private:
  void writeRecords() {
    if (m_content.records.empty()) return;
    m_xml.begin("dataItems");
    if (m_content.areRecordsChosen) {
      for (DataItem const* each : m_content.records) writeItem(*each, Role::alone);
    } else {
      writeItems(m_content.records);
    }
    m_xml.end("dataItems");
  }

  void writeFiles() {
    if (!m_content.hasFiles) return;
    m_xml.begin("fileSection");
    for (FileDescription const& file : m_data.files) {
      if (file.records.first == nullptr) continue;
      m_xml.begin("fd");
      m_xml.attribute("name", file.name);
      writeItems(listOf(file.records.first));
      m_xml.end("fd");
    }
    m_xml.end("fileSection");
  }

  static std::vector<DataItem const*> listOf(DataItem const* first) {
    std::vector<DataItem const*> items;
    for (DataItem const* item = first; item != nullptr; item = item->next) items.push_back(item);
    return items;
  }

  // The items of a section, file or group, a chosen view in place of the item that
  // it redefines.
  void writeItems(std::vector<DataItem const*> const& items) {
    for (DataItem const* item : items) {
      DataItem const* base = item->redefined != nullptr ? item->redefined : item;
      auto view = m_content.views.find(base);
      if (view == m_content.views.end()) {
        writeItem(*item, Role::part);
      } else if (item == base) {
        writeView(*base, *view->second);
      }
    }
  }

  // The storage of all views is described, whichever is chosen.
  void writeView(DataItem const& base, DataItem const& chosen) {
    writeItem(chosen, Role::alone);
    std::uint64_t size = 0;
    for (DataItem const* each = &base;
         each == &base || (each != nullptr && each->redefined == &base); each = each->next) {
      size = std::max(size, each->size * each->occurrences());
    }
    std::uint64_t rest = size - chosen.size * chosen.occurrences();
    if (rest > 0 && base.parent != nullptr) writeSlack(base.level, rest);
  }

  // Slack bytes are an unnamed item, so that a copybook without SYNCHRONIZED
  // describes the same storage.
  void writeSlack(std::uint8_t level, std::uint64_t size) {
    m_xml.begin("alphanumeric");
    m_xml.attribute("name", "FILLER");
    m_xml.attribute("level", std::uint64_t{level});
    m_xml.attribute("usage", "display");
    m_xml.attribute("picture", "X(" + std::to_string(size) + ")");
    m_xml.attribute("length", size);
    m_xml.attribute("slack", "true");
    m_xml.end("alphanumeric");
  }

  /// Whether a redefinition has the redefined item before it.
  enum class Role { part, alone };

  void writeItem(DataItem const& item, Role role) {
    if (item.slack > 0) writeSlack(item.level, item.slack);
    char const* element = elementOf(kindOf(item));
    m_xml.begin(element);
    m_xml.attribute("name", shownName(item));
    m_xml.attribute("level", std::uint64_t{item.isImplied ? 1U : item.level});
    if (!item.isGroup() && !isRange(item)) writePicture(item);
    m_xml.attribute("length", item.size);
    writeOccurs(item);
    if (item.isRedefinition && role == Role::part) m_xml.attribute("redefines", "true");
    if (item.level == kRenamesLevel) m_xml.attribute("renames", "true");
    if (item.isGroup()) {
      if (!item.values.empty() && m_content.hasValues) reportLost(item.values.front());
    } else {
      writeClauses(item);
    }
    for (DataItem const* each = m_content.hasConditions ? item.firstCondition : nullptr;
         each != nullptr; each = each->next) {
      writeCondition(*each, item);
    }
    writeItems(listOf(item.firstChild));
    m_xml.end(element);
  }

  void writePicture(DataItem const& item) {
    std::string usage(entryOf(item.effectiveUsage).name);
    if (item.isUnsigned) usage += " unsigned";
    bool isNational = kindOf(item) == ItemKind::national && usage == "display";
    m_xml.attribute("usage", isNational ? std::string("national") : usage);
    if (item.picture == nullptr) return;
    if (item.picture->category == Category::numeric) {
      m_xml.attribute("digits", std::uint64_t{item.picture->digits});
      m_xml.attribute("alignment", std::uint64_t{item.picture->scale});
    } else if (kindOf(item) == ItemKind::numeric) {
      m_xml.attribute("digits", digitsOfBytes(item.size));
      m_xml.attribute("alignment", std::uint64_t{0});
    }
    m_xml.attribute("picture", item.picture->text);
  }

  // Every group below a record has bounds. A reader takes a group without them for
  // a table of any size.
  void writeOccurs(DataItem const& item) {
    bool isSubordinateGroup = item.isGroup() && item.parent != nullptr;
    if (!item.occurs && !isSubordinateGroup) return;
    m_xml.attribute("minOccurs", item.occurs ? item.occurs->least : 1);
    m_xml.attribute("maxOccurs", item.occurrences());
    if (item.dependingOn != nullptr) {
      m_xml.attribute("odo", dottedName(*item.dependingOn));
    } else if (item.occurs && item.occurs->isDepending) {
      m_xml.attribute("odo", item.occurs->depending.name);  // a system item
    }
  }

  std::string dottedName(DataItem const& item) {
    std::string name;
    if (item.parent != nullptr) {
      name = dottedName(*item.parent) + ".";
    } else {
      auto file = m_files.find(&item);
      if (file != m_files.end()) name = std::string(file->second) + ".";
    }
    return name += shownName(item);
  }

  // Items without a name are numbered in the order of the dictionary, past numbers
  // that are taken.
  std::string shownName(DataItem const& item) {
    if (!m_content.hasFillerNames || !isFillerName(item.name)) return std::string(nameOf(item));
    std::string& name = m_fillerNames[&item];
    if (m_takenNames.empty()) {
      for (DataItem const& each : m_data.items) m_takenNames.insert(each.name);
    }
    while (name.empty() || m_takenNames.contains(name)) {
      name = "FILLER-" + std::to_string(++m_fillers);
    }
    return name;
  }

  void writeClauses(DataItem const& item) {
    bool isSigned = item.picture != nullptr && item.picture->isSigned &&
                    kindOf(item) == ItemKind::numeric && item.effectiveUsage <= Usage::display;
    if (isSigned && item.effectiveSign.position != SignPosition::none) {
      std::string sign = item.effectiveSign.position == SignPosition::leading ? "l" : "t";
      m_xml.attribute("sign", sign + (item.effectiveSign.isSeparate ? "s" : "i"));
    }
    if (item.isJustified) m_xml.attribute("justified", "right");
    if (item.isBlankWhenZero) m_xml.attribute("blankWhenZero", "true");
    if (item.values.empty() || !m_content.hasValues) return;
    std::optional<std::string> text = textOf(item.values.front().from, item);
    if (text) {
      m_xml.attribute("value", *text);
    } else {
      reportLost(item.values.front());
    }
  }

  void reportLost(ValueRange const& range) {
    if (m_valueText > m_maxValueText) return;  // reported already
    m_diagnostics.report(Code::valueLost, range.from.place, "value is left out of the dictionary");
  }

  // Returns nothing for values without a text. A constant or ALL stands for much
  // text with few characters, so that the texts of all values have a limit.
  std::optional<std::string> textOf(Literal const& value, DataItem const& item) {
    if (m_valueText > m_maxValueText) return std::nullopt;
    ItemKind kind = kindOf(item);
    Picture const* picture = item.isGroup() ? nullptr : item.picture;
    ValueTarget target;
    target.isNumber = kind == ItemKind::numeric || kind == ItemKind::numericEdited;
    target.isWhole = picture == nullptr || picture->scale == 0;
    target.isNational = kind == ItemKind::national;
    target.isBoolean = picture != nullptr && picture->isBoolean;
    target.size = picture != nullptr ? picture->size : item.size;
    std::optional<std::string> text = valueText(value, target);
    if (text && !isXmlText(*text)) text.reset();
    if (text) m_valueText += text->size();
    if (m_valueText > m_maxValueText) {
      m_diagnostics.report(Code::size, value.place, "the values of all items exceed 1 GB");
    }
    return text;
  }

  // A condition whose values are all left out is left out, too.
  void writeCondition(DataItem const& condition, DataItem const& item) {
    bool isNumeric = kindOf(item) == ItemKind::numeric;
    std::vector<ValueTexts> values;
    for (ValueRange const& range : condition.values) {
      std::optional<std::string> from = textOf(range.from, item);
      bool isRange = range.to.kind != Literal::Kind::none;
      std::optional<std::string> to = isRange ? textOf(range.to, item) : std::string();
      if (from && to) {
        values.push_back({*from, *to, isRange});
      } else {
        reportLost(range);
      }
    }
    if (values.empty()) return;
    char const* element = isNumeric ? "numericCondition" : "alphanumericCondition";
    m_xml.begin(element);
    m_xml.attribute("name", nameOf(condition));
    for (ValueTexts const& each : values) writeRange(each, isNumeric);
    m_xml.end(element);
  }

  void writeRange(ValueTexts const& value, bool isNumeric) {
    std::string element = isNumeric ? "numeric" : "alphanumeric";
    element += value.isRange ? "Range" : "Constant";
    m_xml.begin(element);
    m_xml.attribute(value.isRange ? "from" : "value", value.from);
    if (value.isRange) m_xml.attribute("to", value.to);
    m_xml.end(element);
  }

  DataDivision const& m_data;
  DictionaryContent const& m_content;
  Diagnostics& m_diagnostics;
  std::size_t m_maxValueText;
  std::size_t m_valueText = 0;  // bytes of the values so far
  std::unordered_map<DataItem const*, std::string> m_fillerNames;
  std::unordered_set<std::string_view, CaseInsensitiveHash, CaseInsensitiveEqual> m_takenNames;
  std::size_t m_fillers = 0;
  std::unordered_map<DataItem const*, std::string_view> m_files;  // by record
  XmlWriter<Utf8OrLatin1> m_xml;
};

}  // namespace

std::string buildDictionary(DataDivision const& data, DictionaryContent const& content,
                            DictionaryOrder order, Diagnostics& diagnostics,
                            std::size_t maxValueText) {
  std::string dictionary = Writer(data, content, diagnostics, maxValueText).write(order);
  return diagnostics.hasErrors() ? std::string() : std::move(dictionary);
}

}  // namespace fdmorph::compiler
