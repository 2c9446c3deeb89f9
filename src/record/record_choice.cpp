#include "record/record_choice.h"

#include <algorithm>
#include <array>

#include "text/letter_case.h"
#include "text/near_words.h"

namespace fdmorph::record {
namespace {

using compiler::Code;
using compiler::DataDivision;
using compiler::DataItem;
using compiler::RecordList;
using Records = std::vector<DataItem const*>;

constexpr std::array kSections{RecordSection::file, RecordSection::workingStorage,
                               RecordSection::linkage, RecordSection::localStorage};

std::string_view nameOf(RecordSection section) {
  switch (section) {
    case RecordSection::file:
      return "the file section";
    case RecordSection::workingStorage:
      return "the working-storage section";
    case RecordSection::linkage:
      return "the linkage section";
    case RecordSection::localStorage:
      return "the local-storage section";
    case RecordSection::automatic:
      break;
  }
  return "any section";
}

// The lists of the records of a section; those of a file share an area.
std::vector<RecordList> listsOf(DataDivision const& data, RecordSection section) {
  switch (section) {
    case RecordSection::file: {
      std::vector<RecordList> lists;
      for (compiler::FileDescription const& file : data.files) lists.push_back(file.records);
      return lists;
    }
    case RecordSection::workingStorage:
      return {data.workingStorage};
    case RecordSection::linkage:
      return {data.linkage};
    case RecordSection::localStorage:
      return {data.localStorage};
    case RecordSection::automatic:
      break;
  }
  return {};
}

bool isRecord(DataItem const& item) {
  return item.level == 1 || item.level == compiler::kSingleLevel || item.isImplied;
}

Records recordsOf(RecordList const& list) {
  Records records;
  for (DataItem const* each = list.first; each != nullptr; each = each->next) {
    if (isRecord(*each)) records.push_back(each);
  }
  return records;
}

std::vector<RecordSection> sectionsOf(RecordChoice const& choice) {
  if (choice.section != RecordSection::automatic) return {choice.section};
  return {kSections.begin(), kSections.end()};
}

Records firstRecords(DataDivision const& data, RecordChoice const& choice) {
  for (RecordSection section : sectionsOf(choice)) {
    for (RecordList const& list : listsOf(data, section)) {
      Records records = recordsOf(list);
      if (records.empty()) continue;
      if (section != RecordSection::file) records.resize(1);
      return records;
    }
  }
  return {};
}

Records allRecords(DataDivision const& data, RecordChoice const& choice) {
  Records all;
  for (RecordSection section : sectionsOf(choice)) {
    for (RecordList const& list : listsOf(data, section)) {
      Records records = recordsOf(list);
      all.insert(all.end(), records.begin(), records.end());
    }
  }
  return all;
}

std::string suggestRecord(std::string_view name, Records const& records) {
  std::vector<std::string> names;
  for (DataItem const* each : records) names.push_back(upperCase(each->name));
  std::vector<std::string_view> words(names.begin(), names.end());
  return suggestWord(name, words);
}

}  // namespace

Records chooseRecords(compiler::CompiledSource& source, RecordChoice const& choice) {
  DataDivision const& data = source.data();
  compiler::Diagnostics& diagnostics = source.diagnostics();
  if (choice.names.empty()) {
    Records records = firstRecords(data, choice);
    if (records.empty() && !diagnostics.hasErrors()) {
      diagnostics.report(Code::noData, {}, "no record in " + std::string(nameOf(choice.section)));
    }
    return records;
  }
  Records const all = allRecords(data, choice);
  Records chosen;
  for (std::string const& name : choice.names) {
    auto found = std::ranges::find_if(
        all, [&](DataItem const* each) { return equalsIgnoringCase(each->name, name); });
    if (found == all.end()) {
      diagnostics.report(Code::choice, {},
                         "no record " + compiler::quoted(name) + " in " +
                             std::string(nameOf(choice.section)) + suggestRecord(name, all));
    } else if (std::ranges::find(chosen, *found) == chosen.end()) {
      chosen.push_back(*found);
    }
  }
  return chosen;
}

}  // namespace fdmorph::record
