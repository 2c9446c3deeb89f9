#include "fdrec/view_choice.h"

#include <algorithm>
#include <sstream>

#include "text/letter_case.h"

namespace fdmorph::fdrec {
namespace {

using compiler::DataItem;

// The names in "A OF B IN C"; empty if it is none.
std::vector<std::string> namesOf(std::string const& text) {
  std::istringstream words(text);
  std::vector<std::string> names;
  bool isNameNext = true;
  for (std::string word; words >> word;) {
    bool const isConnector = equalsIgnoringCase(word, "OF") || equalsIgnoringCase(word, "IN");
    if (isConnector == isNameNext) return {};
    if (!isConnector) names.push_back(word);
    isNameNext = !isNameNext;
  }
  return isNameNext ? std::vector<std::string>() : names;
}

bool matches(DataItem const& item, std::vector<std::string> const& names) {
  if (!equalsIgnoringCase(item.name, names.front())) return false;
  DataItem const* group = item.parent;
  for (auto name = names.begin() + 1; name != names.end(); ++name) {
    while (group != nullptr && !equalsIgnoringCase(group->name, *name)) group = group->parent;
    if (group == nullptr) return false;
    group = group->parent;
  }
  return true;
}

bool isView(DataItem const& item) {
  if (item.redefined != nullptr) return true;
  DataItem const* const next = item.next;
  return next != nullptr && next->redefined == &item;
}

}  // namespace

ViewChoice chooseViews(std::vector<record::RecordTree> const& records,
                       std::vector<std::string> const& rules) {
  ViewChoice choice;
  for (std::string const& rule : rules) {
    std::size_t const colon = rule.find(':');
    std::vector<std::string> const names =
        colon == std::string::npos ? std::vector<std::string>() : namesOf(rule.substr(0, colon));
    if (names.empty()) {
      choice.error = "expected NAME: TEST, found " + compiler::quoted(rule);
      return choice;
    }
    std::vector<DataItem const*> found;
    for (record::RecordTree const& tree : records) {
      for (record::RecordNode const& node : tree.nodes()) {
        if (matches(*node.item, names)) found.push_back(node.item);
      }
    }
    std::string const name = compiler::quoted(names.front());
    if (found.size() != 1) {
      choice.error = (found.empty() ? "no item " : "more than one item ") + name;
      return choice;
    }
    bool const isRecord = found.front()->parent == nullptr;
    if (!isRecord && !isView(*found.front())) {
      choice.error = "item " + name + " neither redefines another nor is redefined";
      return choice;
    }
    if (!isRecord) choice.items.insert(found.front());
  }
  return choice;
}

}  // namespace fdmorph::fdrec
