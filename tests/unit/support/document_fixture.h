// Documents that are read from memory, and their records as one text.
#pragma once

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "document/json_reader.h"
#include "document/xml_reader.h"

namespace fdmorph::document {

/// Hands a text out in blocks of `size` bytes. The text must outlive it.
inline ReadBlock blocksOf(std::string_view text, std::size_t size = SIZE_MAX) {
  return [text, size](std::span<char> room) mutable -> std::optional<std::size_t> {
    std::size_t count = std::min({size, room.size(), text.size()});
    std::memcpy(room.data(), text.data(), count);
    text.remove_prefix(count);
    return count;
  };
}

inline std::string_view shownCode(ErrorCode code) {
  return code == ErrorCode::xml         ? "xml"
         : code == ErrorCode::json      ? "json"
         : code == ErrorCode::unknown   ? "unknown"
         : code == ErrorCode::character ? "character"
                                        : "another code";
}

/// The local name, or what readers keep of an unknown one.
inline std::string shownName(Instances const& instances, Instance const& part,
                             NameNumbers const& index) {
  if (part.name == kTextMember) return "#text";
  if (part.name == layout::kNone) return "?" + instances.unknownNames[part.unknownName];
  return (part.isAttribute ? "@" : "") + std::string(index.localName(part.name));
}

/// name=text(part,part); nil, empty arrays and broken parts are `name!nil`, `name![]`
/// and `name!broken`, parts in arrays `name[]`.
inline std::string shownPart(Instances const& instances, std::uint32_t number,
                             NameNumbers const& index) {
  Instance const& part = instances.all[number];
  std::string out = shownName(instances, part, index);
  if (part.isInArray) out += "[]";
  if (part.isNil) out += "!nil";
  if (part.isEmptyArray) out += "![]";
  if (part.isBroken) out += "!broken";
  if (part.textSize != 0) out += '=' + std::string(instances.textOf(part));
  if (part.firstChild == kNoInstance) return out;
  char before = '(';
  for (std::uint32_t i = part.firstChild; i != kNoInstance; i = instances.all[i].next) {
    out += before + shownPart(instances, i, index);
    before = ',';
  }
  return out + ')';
}

/// A record in a line: its number, its parts if it has any, and its errors in brackets.
inline std::string shownRecord(DocumentRecord const& record, NameNumbers const& index) {
  std::string out = std::to_string(record.number) + ' ';
  if (!record.instances.all.empty()) out += shownPart(record.instances, 0, index);
  for (DataError const& error : record.errors) {
    out += "[" + std::to_string(error.line) + ':' + std::to_string(error.column) + ' ' +
           std::string(shownCode(error.code)) + ' ' + error.path +
           (error.path.empty() ? "" : ": ") + error.text + ']';
  }
  return out + '\n';
}

/// Names and how they are used in a test.
struct DocumentFixture {
  layout::Names names;
  std::vector<std::string> records{"A"};  ///< in `recordNamespace`
  std::string recordNamespace;
  NameMatch match = NameMatch::exact;
  ReaderOptions options;
  RecordPredictor* predictor = nullptr;
  std::size_t blockSize = SIZE_MAX;
  std::vector<std::string> texts;  ///< DocumentRecord::text of the last reading

  /// Adds names in no namespace, separated by blanks.
  explicit DocumentFixture(std::string_view locals) {
    while (!locals.empty()) {
      std::size_t end = std::min(locals.find(' '), locals.size());
      names.add("", locals.substr(0, end));
      locals.remove_prefix(std::min(end + 1, locals.size()));
    }
  }

  std::string readXml(std::string_view text) { return readAs<XmlReader>(text, predictor); }

  std::string readJson(std::string_view text) {
    match = NameMatch::local;
    return readAs<JsonReader>(text);
  }

 private:
  template <class Reader, class... More>
  std::string readAs(std::string_view text, More... more) {
    for (std::string const& record : records) names.add(recordNamespace, record);
    NameNumbers index(names, match);
    options.records.clear();
    for (std::string const& record : records) {
      options.records.push_back(index.find(recordNamespace, record));
    }
    Reader reader(blocksOf(text, blockSize), index, options, more...);
    DocumentRecord record;
    texts.clear();
    std::string out;
    while (reader.next(record)) {
      out += record.isPredicted ? std::to_string(record.number) + " predicted\n"
                                : shownRecord(record, index);
      texts.push_back(record.text.memory());
    }
    return out;
  }
};

}  // namespace fdmorph::document
