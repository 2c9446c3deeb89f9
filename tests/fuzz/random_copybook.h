// Valid copybooks made from the bytes of a fuzz input.
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph {

/// An elementary item: its clauses and a literal that it can have. Only items
/// without facets in the schema have a condition, as the schema is valid only
/// then; and digits before the decimal point, as the record is.
struct ElementaryForm {
  std::string_view clauses;
  std::string_view value;
  bool hasCondition = false;
};

/// Makes one record whose items are unlike in their names, so that everything
/// made from it is valid as well: its text is in fixed format.
class RandomCopybook {
 public:
  explicit RandomCopybook(FuzzedDataProvider& bytes) : m_bytes(bytes) {}

  std::string text() {
    m_text.clear();
    line(1, "REC-1.");
    addItems(1);
    return m_text;
  }

 private:
  static constexpr unsigned kMaxDepth = 5;  // of groups below the record
  static constexpr unsigned kMaxItems = 24;
  static constexpr unsigned kMaxTableDepth = 3;
  static constexpr unsigned kMaxTableSize = 9;

  static constexpr std::array kForms{
      ElementaryForm{"PIC X(10)", "\"AB\""},
      ElementaryForm{"PIC 9(4)", "12"},
      ElementaryForm{"PIC S9(5)V9(2) COMP-3", "-1.5"},
      ElementaryForm{"PIC S9(9) COMP", "-5"},
      ElementaryForm{"PIC 9(4) COMP-5 SYNC", "0"},
      ElementaryForm{"PIC A(5)", "SPACES"},
      ElementaryForm{"PIC N(4) USAGE NATIONAL", ""},
      ElementaryForm{"PIC ZZ,ZZ9.99-", "", true},
      ElementaryForm{"PIC X(3) JUST RIGHT", "\"C\""},
      ElementaryForm{"PIC S9(3) SIGN LEADING SEPARATE", "ZERO"},
      ElementaryForm{"COMP-2", ""},
      ElementaryForm{"COMP-1 SYNC", "", true},
      ElementaryForm{"PIC XX/XXB0", ""},
      ElementaryForm{"PIC 9(18)", "999999999999999999"},
      ElementaryForm{"PIC 9(3) BLANK WHEN ZERO", ""},
      ElementaryForm{"USAGE BINARY-LONG SYNC", "7"},
      ElementaryForm{"PIC X(500)", "ALL \"*\""},
  };

  void line(unsigned level, std::string_view entry) {
    constexpr unsigned kAreaA = 7;
    m_text.append(kAreaA, ' ')
        .append(std::to_string(level / 10))
        .append(std::to_string(level % 10));
    m_text.append(" ").append(entry).append("\n");
  }

  std::string newName() {
    constexpr unsigned kMaxPad = 20;
    std::string name(m_bytes.ConsumeIntegralInRange<std::size_t>(1, kMaxPad), 'N');
    return name + "-" + std::to_string(++m_items);
  }

  bool chance(unsigned oneIn) { return m_bytes.ConsumeIntegralInRange(1U, oneIn) == oneIn; }

  // A group has at least one item, and a group that is the last one too.
  void addItems(unsigned depth) {
    unsigned level = depth * 5;
    std::string before;  // the item that the next one may redefine
    do {
      std::string entry = newName();
      if (!before.empty() && chance(8)) entry += " REDEFINES " + before;
      before = entry.substr(0, entry.find(' '));
      bool isTable = m_tables < kMaxTableDepth && chance(5);
      if (isTable) {
        before.clear();  // a table cannot be redefined
        entry += occurs();
      }
      m_tables += isTable ? 1 : 0;
      if (depth < kMaxDepth && chance(4)) {
        line(level, entry + ".");
        addItems(depth + 1);
      } else {
        addElementary(level, entry, isTable);
      }
      m_tables -= isTable ? 1 : 0;
    } while (m_items < kMaxItems && !chance(4));
  }

  std::string occurs() {
    unsigned most = m_bytes.ConsumeIntegralInRange(2U, kMaxTableSize);
    return "\n           OCCURS " + std::to_string(most) + " TIMES";
  }

  void addElementary(unsigned level, std::string entry, bool isTable) {
    ElementaryForm const& form =
        kForms[m_bytes.ConsumeIntegralInRange<std::size_t>(0, kForms.size() - 1)];
    bool isRedefinition = entry.find("REDEFINES") != std::string::npos;
    entry.append("\n           ").append(form.clauses);
    bool hasValue = !form.value.empty() && !isTable && !isRedefinition && m_tables == 0;
    if (hasValue && chance(3)) entry.append(" VALUE ").append(form.value);
    line(level, entry + ".");
    if (!form.hasCondition || !chance(2)) return;
    constexpr unsigned kCondition = 88;
    line(kCondition, "C-" + std::to_string(m_items) + " VALUE 5.");
  }

  FuzzedDataProvider& m_bytes;
  std::string m_text;
  unsigned m_items = 0;
  unsigned m_tables = 0;  // around the next item
};

}  // namespace fdmorph
