#include "mapping/mapping_merge.h"

#include <algorithm>
#include <map>
#include <utility>

#include "mapping/carried_values.h"
#include "mapping/form_rules.h"
#include "mapping/keys.h"
#include "mapping/mapping_check.h"
#include "mapping/merged_file.h"
#include "source/diagnostics.h"

namespace fdmorph::mapping {
namespace {

class Merger {
 public:
  Merger(MappingDocument const& document, MappingContent const& content, DescribedData const& data,
         MergeOptions const& options, MappingFindings& findings)
      : m_document(document),
        m_content(content),
        m_data(data),
        m_options(options),
        m_findings(findings),
        m_matching(matchEntries(content.entries, data, options.renames)) {}

  std::string merge() {
    for (std::string const& each : m_matching.unknown) {
      m_findings.add({MappingCode::rename, {}, {}, each});
    }
    if (!m_matching.unknown.empty()) return {};
    MergedFile file;
    file.head = m_content.head;
    file.tail = m_content.tail;
    file.end = m_content.end;
    for (std::size_t i = 0; i < m_content.entries.size(); ++i) takeEntry(i, file);
    reportNewItems();
    return writeMerged(*m_data.dictionary(), file, m_options.countIn);
  }

 private:
  void takeEntry(std::size_t index, MergedFile& file) {
    MappingEntry const& entry = m_content.entries[index];
    EntryMatch const& match = m_matching.entries[index];
    MappingTexts const* old = oldTextsOf(index);
    if (match.item == kNone) {
      if (match.reason == MatchReason::elsewhere) {
        file.more.push_back({effectiveTexts(entry), entry.remarks});
        report(MappingCode::kept, entry, "kept, although fdmorph writes no entry for it");
      } else {
        park(entry, match, old, file);
      }
      return;
    }
    DescribedItem const& item = m_data.items()[match.item];
    MappingTexts const fresh = defaultTextsOf(*item.element, m_options.countIn);
    CarriedValues carried = carryValues(entry, *item.element, fresh, old);
    if (match.reason != MatchReason::sameKey) {
      bool const isRename =
          match.reason == MatchReason::renamed || lastPartOf(entry.key()) != lastPartOf(item.key);
      report(isRename ? MappingCode::renamed : MappingCode::moved, entry,
             "is now " + compiler::quoted(item.key));
    }
    std::vector<std::string> remarks = entry.remarks;
    if (carried.lostType) {
      report(MappingCode::edit, entry,
             "the type " + compiler::quoted(*carried.lostType) +
                 " does not go with the item any more; " +
                 compiler::quoted(fresh[MappingField::type]) + " replaces it");
      if (!isDefaultType(*carried.lostType)) {
        remarks.push_back("<!-- xml-type was " + commentText(*carried.lostType) + " -->");
      }
    }
    file.entries.emplace(item.element, MergedEntry{std::move(carried.texts), std::move(remarks)});
  }

  // An entry without a place. Without edits nothing is lost, and neither with that of a
  // filler, which has no values.
  void park(MappingEntry const& entry, EntryMatch const& match, MappingTexts const* old,
            MergedFile& file) {
    MappingTexts const texts = effectiveTexts(entry);
    bool const isFillerEntry =
        isFiller(lastPartOf(entry.key())) && texts[MappingField::name].empty();
    bool const isGenerated = old != nullptr && std::ranges::equal(old->all, texts.all);
    if (isFillerEntry || isGenerated) {
      file.end.insert(file.end.end(), entry.remarks.begin(), entry.remarks.end());
      return;
    }
    bool const isSurplus = match.reason == MatchReason::surplus;
    std::string const why = isSurplus             ? "another entry has this name"
                            : entry.key().empty() ? "the entry has no name"
                                                  : "no item has this name any more";
    file.parked.push_back({why, entry});
    report(MappingCode::gone, entry, why + "; the entry is now a comment" + suggestRename(entry));
  }

  // If one item of the group is new, it may be this one.
  std::string suggestRename(MappingEntry const& entry) {
    if (entry.key().empty()) return {};
    if (!m_newItems) {
      m_newItems.emplace();
      for (std::size_t i = 0; i < m_data.items().size(); ++i) {
        DescribedItem const& item = m_data.items()[i];
        if (!isNew(i)) continue;
        (*m_newItems)[{std::string(groupOf(item.key)), item.isGroup}].push_back(&item);
      }
    }
    bool const isGroup = entry.texts[MappingField::type] == kGroupType;
    auto const found = m_newItems->find({std::string(groupOf(entry.key())), isGroup});
    if (found == m_newItems->end() || found->second.size() != 1) return {};
    return "; --rename " + entry.key() + "=" + found->second.front()->key +
           " if that is its new name";
  }

  [[nodiscard]] bool isNew(std::size_t item) const {
    DescribedItem const& described = m_data.items()[item];
    return described.standing == Standing::written && m_matching.ofItems[item] == kNone &&
           !isFiller(described.name());
  }

  void reportNewItems() {
    for (std::size_t i = 0; i < m_data.items().size(); ++i) {
      DescribedItem const& item = m_data.items()[i];
      bool const isKnown = m_options.old != nullptr && !m_options.old->find(item.key).empty();
      if (isNew(i) && !isKnown) {
        m_findings.add({MappingCode::added, {}, item.key, "the item has no entry; it gets one"});
      }
    }
  }

  // What fdmorph wrote for the item that an entry was written for; null if unknown.
  MappingTexts const* oldTextsOf(std::size_t index) {
    if (m_options.old == nullptr) return nullptr;
    std::string const& key = m_content.entries[index].key();
    std::size_t const place = m_seen[key]++;
    std::span<std::size_t const> const items = m_options.old->find(key);
    if (place >= items.size()) return nullptr;
    DescribedItem const& item = m_options.old->items()[items[place]];
    if (item.standing != Standing::written) return nullptr;
    m_oldTexts = defaultTextsOf(*item.element, m_options.countIn);
    return &m_oldTexts;
  }

  void report(MappingCode code, MappingEntry const& entry, std::string text) {
    m_findings.add(
        {code, placeOf(m_document, entry, MappingField::key), entry.key(), std::move(text)});
  }

  MappingDocument const& m_document;
  MappingContent const& m_content;
  DescribedData const& m_data;
  MergeOptions const& m_options;
  MappingFindings& m_findings;
  Matching m_matching;
  std::unordered_map<std::string_view, std::size_t> m_seen;  // entries of a key
  MappingTexts m_oldTexts;

  // By the key of their group, and whether they are groups themselves.
  using Items = std::map<std::pair<std::string, bool>, std::vector<DescribedItem const*>>;
  std::optional<Items> m_newItems;
};

}  // namespace

MergeResult mergeMapping(std::string_view content, std::string const& name,
                         DescribedData const& data, MergeOptions const& options) {
  MergeResult result;
  MappingReading const reading = readMapping(content, name);
  if (reading.fault) {
    result.findings.add(faultFinding(*reading.fault));
    return result;
  }
  MappingContent const read = readEntries(reading.document);
  checkForm(reading.document, read, result.findings);
  if (result.findings.countOf(compiler::Severity::error) == 0) {
    result.text = Merger(reading.document, read, data, options, result.findings).merge();
  }
  result.findings.sort();
  return result;
}

}  // namespace fdmorph::mapping
