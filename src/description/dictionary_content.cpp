#include "description/dictionary_content.h"

#include <algorithm>

#include "semantics/item_rules.h"
#include "semantics/name_index.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

constexpr std::uint32_t kMaxPortableDigits = 18;

using Names = std::unordered_set<std::string_view, CaseInsensitiveHash, CaseInsensitiveEqual>;

void append(std::vector<DataItem const*>& records, RecordList const& list) {
  for (DataItem const* each = list.first; each != nullptr; each = each->next) {
    records.push_back(each);
  }
}

/// Resolves one choice.
class Resolver {
 public:
  Resolver(DataDivision const& data, DictionaryChoice const& choice, Diagnostics& diagnostics)
      : m_data(data), m_choice(choice), m_diagnostics(diagnostics) {}

  DictionaryContent resolve() {
    m_content.hasConditions = m_choice.hasConditions;
    m_content.hasValues = m_choice.hasValues;
    m_content.hasFillerNames = m_choice.hasFillerNames;
    m_content.areRecordsChosen = !m_choice.records.empty();
    if (m_content.areRecordsChosen) {
      findRecords();
    } else if (m_choice.section) {
      appendSection(*m_choice.section, m_content.records);
    } else {
      append(m_content.records, m_data.workingStorage);
      m_content.hasFiles =
          std::any_of(m_data.files.begin(), m_data.files.end(),
                      [](FileDescription const& file) { return file.records.first != nullptr; });
    }
    if (!m_choice.views.empty()) findViews();
    return std::move(m_content);
  }

 private:
  void appendSection(Section section, std::vector<DataItem const*>& records) {
    switch (section) {
      case Section::file:
        for (FileDescription const& file : m_data.files) append(records, file.records);
        break;
      case Section::localStorage:
        append(records, m_data.localStorage);
        break;
      case Section::linkage:
        append(records, m_data.linkage);
        break;
      default:
        append(records, m_data.workingStorage);
        break;
    }
  }

  // Without a section, records of all of them can be chosen; the first of a name is.
  void findRecords() {
    std::vector<DataItem const*> candidates;
    if (m_choice.section) {
      appendSection(*m_choice.section, candidates);
    } else {
      for (Section each :
           {Section::workingStorage, Section::file, Section::localStorage, Section::linkage}) {
        appendSection(each, candidates);
      }
    }
    for (std::string const& name : m_choice.records) {
      auto found = std::find_if(candidates.begin(), candidates.end(), [&](DataItem const* record) {
        return equalsIgnoringCase(record->name, name);
      });
      if (found == candidates.end()) {
        m_diagnostics.report(Code::choice, {}, "no record is called " + quoted(name));
      } else {
        m_content.records.push_back(*found);
      }
    }
  }

  void findViews() {
    Names wanted(m_choice.views.begin(), m_choice.views.end());
    Names found;
    auto search = [&](DataItem const* first) { searchViews(first, wanted, found); };
    if (!m_content.areRecordsChosen) {
      search(m_content.records.empty() ? nullptr : m_content.records.front());
    } else {
      for (DataItem const* each : m_content.records) search(each->firstChild);
    }
    if (m_content.hasFiles) {
      for (FileDescription const& file : m_data.files) search(file.records.first);
    }
    for (std::string const& name : m_choice.views) {
      if (found.contains(name)) continue;
      m_diagnostics.report(Code::choice, {},
                           "no item called " + quoted(name) + " redefines or is redefined");
    }
  }

  // The recursion is bounded by the number of levels.
  void searchViews(DataItem const* first, Names const& wanted, Names& found) {
    for (DataItem const* item = first; item != nullptr; item = item->next) {
      if (item->redefined == nullptr && item->level != kRenamesLevel) {
        chooseView(*item, wanted, found);
      }
      searchViews(item->firstChild, wanted, found);
    }
  }

  // Of an item and those after it that redefine it, the first that is wanted.
  void chooseView(DataItem const& base, Names const& wanted, Names& found) {
    DataItem const* end = base.next;
    while (end != nullptr && end->redefined == &base) end = end->next;
    if (end == base.next) return;
    DataItem const* chosen = nullptr;
    for (DataItem const* each = &base; each != end; each = each->next) {
      if (!wanted.contains(each->name)) continue;
      found.insert(each->name);
      if (chosen == nullptr) chosen = each;
    }
    if (chosen == nullptr) return;
    m_content.views.emplace(&base, chosen);
    for (DataItem const* each = &base; each != end; each = each->next) {
      if (each == chosen) continue;
      m_diagnostics.report(Code::viewLeftOut, each->place,
                           (each->name.empty() ? "item" : quoted(each->name)) +
                               " is left out in favor of " + quoted(chosen->name));
    }
  }

  DataDivision const& m_data;
  DictionaryChoice const& m_choice;
  Diagnostics& m_diagnostics;
  DictionaryContent m_content;
};

/// The first items of a record that a reader does not convert as they are.
struct Losses {
  DataItem const* condition = nullptr;
  DataItem const* redefinition = nullptr;
  DataItem const* longNumber = nullptr;
};

void findLosses(DataItem const& item, DictionaryContent const& content, Losses& losses) {
  auto note = [](DataItem const*& first, DataItem const* found) {
    if (first == nullptr) first = found;
  };
  note(losses.condition, item.firstCondition);
  bool isNumber = !item.isGroup() && kindOf(item) == ItemKind::numeric && item.picture != nullptr;
  if (isNumber && item.picture->digits > kMaxPortableDigits) note(losses.longNumber, &item);
  for (DataItem const* each = item.firstChild; each != nullptr; each = each->next) {
    if (each->level == kRenamesLevel) continue;
    if (each->redefined != nullptr) {
      // Nothing in it is converted, or all of it in place of the redefined item.
      if (!content.views.contains(each->redefined)) note(losses.redefinition, each);
      continue;
    }
    auto view = content.views.find(each);
    findLosses(view == content.views.end() ? *each : *view->second, content, losses);
  }
}

// The records of a dictionary, redefinitions left out.
std::vector<DataItem const*> recordsInOrder(DataDivision const& data,
                                            DictionaryContent const& content,
                                            DictionaryOrder order) {
  std::vector<DataItem const*> files;
  if (content.hasFiles) {
    for (FileDescription const& file : data.files) append(files, file.records);
  }
  std::vector<DataItem const*> records = content.records;
  records.insert(order == DictionaryOrder::filesFirst ? records.begin() : records.end(),
                 files.begin(), files.end());
  if (!content.areRecordsChosen) {
    std::erase_if(records, [](DataItem const* each) { return each->redefined != nullptr; });
    for (DataItem const*& each : records) {
      auto view = content.views.find(each);
      if (view != content.views.end()) each = view->second;
    }
  }
  return records;
}

// What a directive that chooses the item has in its parentheses.
std::string nameOrPlaceholder(DataItem const& item) {
  return isFillerName(item.name) ? "NAME" : std::string(item.name);
}

}  // namespace

DictionaryContent chooseContent(DataDivision const& data, DictionaryChoice const& choice,
                                Diagnostics& diagnostics) {
  return Resolver(data, choice, diagnostics).resolve();
}

void warnOfLosses(DataDivision const& data, DictionaryContent const& content, DictionaryOrder order,
                  Diagnostics& diagnostics) {
  std::vector<DataItem const*> records = recordsInOrder(data, content, order);
  DataItem const& first = *records.front();
  if (records.size() > 1 && !content.areRecordsChosen) {
    DataItem const& second = *records[1];
    diagnostics.report(Code::lostRecords, second.place,
                       "only the first record is converted; RECORD(" + nameOrPlaceholder(second) +
                           ") chooses another");
  }
  Losses losses;
  findLosses(first, content, losses);
  if (losses.condition != nullptr && content.hasConditions) {
    diagnostics.report(
        Code::lostConditions, losses.condition->place,
        "conditions make the schema invalid; CONDITIONS(OFF) leaves them out of the dictionary");
  }
  if (losses.redefinition != nullptr) {
    diagnostics.report(Code::lostRedefinitions, losses.redefinition->place,
                       "redefinitions are not converted; REDEFINES(" +
                           nameOrPlaceholder(*losses.redefinition) + ") chooses one");
  }
  if (losses.longNumber != nullptr) {
    diagnostics.report(Code::longNumber, losses.longNumber->place,
                       quoted(losses.longNumber->name) + " has more than " +
                           std::to_string(kMaxPortableDigits) + " digits");
  }
}

}  // namespace fdmorph::compiler
