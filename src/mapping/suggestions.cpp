#include "mapping/suggestions.h"

#include <algorithm>
#include <array>

#include "dictionary/mapping_writer.h"
#include "mapping/keys.h"
#include "source/diagnostics.h"
#include "text/letter_case.h"
#include "text/near_words.h"

namespace fdmorph::mapping {
namespace {

// Names that are compared in search of a near one, in all suggestions together.
constexpr std::size_t kMaxComparisons = 2'000'000;

constexpr std::array<std::string_view, 45> kBuiltinTypes{"anySimpleType",
                                                         "anyURI",
                                                         "base64Binary",
                                                         "boolean",
                                                         "byte",
                                                         "date",
                                                         "dateTime",
                                                         "decimal",
                                                         "double",
                                                         "duration",
                                                         "ENTITIES",
                                                         "ENTITY",
                                                         "float",
                                                         "gDay",
                                                         "gMonth",
                                                         "gMonthDay",
                                                         "gYear",
                                                         "gYearMonth",
                                                         "hexBinary",
                                                         "ID",
                                                         "IDREF",
                                                         "IDREFS",
                                                         "int",
                                                         "integer",
                                                         "language",
                                                         "long",
                                                         "Name",
                                                         "NCName",
                                                         "negativeInteger",
                                                         "NMTOKEN",
                                                         "NMTOKENS",
                                                         "nonNegativeInteger",
                                                         "nonPositiveInteger",
                                                         "normalizedString",
                                                         "positiveInteger",
                                                         "QName",
                                                         "short",
                                                         "string",
                                                         "time",
                                                         "token",
                                                         "unsignedByte",
                                                         "unsignedInt",
                                                         "unsignedLong",
                                                         "unsignedShort",
                                                         "anyType"};

constexpr std::array<std::string_view, 8> kElements{
    kMappingFileElement,   kMappingElement,       kMappingFieldNames[0], kMappingFieldNames[1],
    kMappingFieldNames[2], kMappingFieldNames[3], kMappingFieldNames[4], kMappingFieldNames[5]};

std::string_view withoutPrefix(std::string_view name) {
  return name.substr(name.rfind(':') + 1);  // npos + 1 is 0
}

std::string suggestion(std::string_view found) {
  return found.empty() ? std::string() : "; did you mean " + compiler::quoted(found) + "?";
}

}  // namespace

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kWhiteSpace = " \t\r\n";
  std::size_t const begin = text.find_first_not_of(kWhiteSpace);
  if (begin == text.npos) return {};
  return text.substr(begin, text.find_last_not_of(kWhiteSpace) + 1 - begin);
}

std::string_view nearest(std::string_view word, std::span<std::string_view const> words) {
  word = trimmed(word);
  for (std::string_view each : words) {
    if (equalsIgnoringCase(each, word)) return each;
  }
  std::vector<std::string> upper;
  std::ranges::transform(words, std::back_inserter(upper), upperCase);
  std::vector<std::string_view> const views(upper.begin(), upper.end());
  std::string_view const found = nearestWord(word, views);
  if (found.empty()) return {};
  return words[static_cast<std::size_t>(std::ranges::find(views, found) - views.begin())];
}

std::string suggestElement(std::string_view name) {
  return suggestion(nearest(withoutPrefix(name), kElements));
}

std::string suggestType(std::string_view name) {
  return suggestion(nearest(withoutPrefix(name), kBuiltinTypes));
}

bool isBuiltinType(std::string_view name) {
  return std::ranges::find(kBuiltinTypes, name) != kBuiltinTypes.end();
}

KeySuggestions::KeySuggestions(DescribedData const& data)
    : m_data(data), m_children(data.items().size() + 1) {
  for (std::size_t i = 0; i < data.items().size(); ++i) {
    DescribedItem const& item = data.items()[i];
    m_keys[upperCase(item.key)].push_back(i);
    m_names[upperCase(item.name())].push_back(i);
    m_children[item.parent == kNone ? data.items().size() : item.parent].push_back(i);
  }
}

// Keys differ in letter case only, or items of one name are at another place, or
// parts of the key are misspelt.
std::size_t KeySuggestions::suggest(std::string_view key) {
  key = trimmed(key);
  for (auto const& [names, wanted] :
       {std::pair{&m_keys, upperCase(key)}, std::pair{&m_names, upperCase(lastPartOf(key))}}) {
    auto const found = names->find(wanted);
    if (found != names->end() && found->second.size() == 1) return found->second.front();
  }
  std::size_t const item = byPath(key);
  return item == kNone ? byName(key) : item;
}

// From the record down, each part near to the name of one child.
std::size_t KeySuggestions::byPath(std::string_view key) {
  std::size_t at = m_data.items().size();
  while (true) {
    std::size_t const dot = std::min(key.find('.'), key.size());
    std::vector<std::string_view> names;
    for (std::size_t each : m_children[at]) names.push_back(m_data.items()[each].name());
    m_comparisons += names.size();
    if (m_comparisons > kMaxComparisons) return kNone;
    std::string_view const found = nearest(key.substr(0, dot), names);
    if (found.empty()) return kNone;
    auto const index = std::ranges::find(names, found) - names.begin();
    at = m_children[at][static_cast<std::size_t>(index)];
    if (dot == key.size()) return at;
    key.remove_prefix(dot + 1);
  }
}

std::size_t KeySuggestions::byName(std::string_view key) {
  m_comparisons += m_names.size();
  if (m_comparisons > kMaxComparisons) return kNone;
  std::vector<std::string_view> names;
  for (auto const& [name, items] : m_names) {
    if (items.size() == 1) names.push_back(name);
  }
  std::string_view const found = nearestWord(lastPartOf(key), names);
  return found.empty() ? kNone : m_names.find(std::string(found))->second.front();
}

}  // namespace fdmorph::mapping
