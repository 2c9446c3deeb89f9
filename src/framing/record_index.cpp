#include "framing/record_index.h"

#include <charconv>

namespace fdmorph::framing {
namespace {

constexpr std::string_view kHead = "fdrec-index 1 ";
constexpr std::string_view kRecords = "records ";
constexpr std::string_view kEnd = "end ";

std::string_view nameOf(Format format) {
  switch (format) {
    case Format::fixed:
      return "fixed";
    case Format::rdw:
      return "rdw";
    case Format::bdw:
      return "bdw";
    case Format::gnucobolVariable:
      return "gnucobol-variable";
    case Format::lines:
      return "lines";
  }
  return {};
}

// Takes the first line, which must have an end, from a text.
std::optional<std::string_view> takeLine(std::string_view& text) {
  std::size_t const end = text.find('\n');
  if (end == std::string_view::npos) return std::nullopt;
  std::string_view const line = text.substr(0, end);
  text.remove_prefix(end + 1);
  return line;
}

std::optional<std::uint64_t> numberIn(std::string_view text) {
  std::uint64_t number = 0;
  char const* const end = text.data() + text.size();
  std::from_chars_result const result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return number;
}

std::optional<std::uint64_t> takeNumber(std::string_view& text, std::string_view name) {
  std::optional<std::string_view> const line = takeLine(text);
  if (!line || !line->starts_with(name)) return std::nullopt;
  return numberIn(line->substr(name.size()));
}

std::optional<RecordIndex::Entry> entryIn(std::string_view line) {
  std::size_t const blank = line.find(' ');
  if (blank == std::string_view::npos) return std::nullopt;
  std::optional<std::uint64_t> const number = numberIn(line.substr(0, blank));
  std::optional<std::uint64_t> const offset = numberIn(line.substr(blank + 1));
  if (!number || !offset) return std::nullopt;
  return RecordIndex::Entry{*number, *offset};
}

// Whether an entry can be the next one.
bool follows(RecordIndex const& index, RecordIndex::Entry const& entry, std::uint64_t header) {
  bool const fits = entry.offset < index.end && entry.number <= index.records;
  if (index.entries.empty()) return fits && entry.number == 1 && entry.offset == header;
  RecordIndex::Entry const& last = index.entries.back();
  return fits && entry.number > last.number && entry.offset > last.offset;
}

// The lines after the first one.
std::optional<RecordIndex> parsePlaces(std::string_view text, std::uint64_t header) {
  RecordIndex index;
  std::optional<std::uint64_t> const records = takeNumber(text, kRecords);
  std::optional<std::uint64_t> const end = takeNumber(text, kEnd);
  if (!records || !end) return std::nullopt;
  index.records = *records;
  index.end = *end;
  while (!text.empty()) {
    std::optional<std::string_view> const line = takeLine(text);
    std::optional<RecordIndex::Entry> const entry = line ? entryIn(*line) : std::nullopt;
    if (!entry || !follows(index, *entry, header)) return std::nullopt;
    index.entries.push_back(*entry);
  }
  bool const isWhole = index.entries.empty() == (index.records == 0);
  return isWhole ? std::optional(std::move(index)) : std::nullopt;
}

}  // namespace

std::string indexOptions(FramingRules const& rules) {
  std::string text = "format=";
  text += nameOf(rules.format);
  if (rules.format == Format::fixed) text += " length=" + std::to_string(rules.recordLength);
  if (rules.format == Format::rdw || rules.format == Format::bdw) {
    text += rules.isRdwExclusive ? " rdw=exclusive," : " rdw=inclusive,";
    text += rules.isRdwLittle ? "little" : "big";
  }
  text += " header=" + std::to_string(rules.header);
  text += " trailer=" + std::to_string(rules.trailer);
  return text;
}

std::string RecordIndex::text() const {
  std::string text(kHead);
  text.append(options).append("\n");
  text.append(kRecords).append(std::to_string(records)).append("\n");
  text.append(kEnd).append(std::to_string(end)).append("\n");
  for (Entry const& each : entries) {
    text.append(std::to_string(each.number)).append(" ");
    text.append(std::to_string(each.offset)).append("\n");
  }
  return text;
}

ParsedIndex parseIndex(std::string_view text, FramingRules const& rules) {
  constexpr char kNoIndex[] = "it is not an index of records";
  std::optional<std::string_view> const first = takeLine(text);
  if (!first || !first->starts_with(kHead)) return {{}, kNoIndex};
  std::string const expected = indexOptions(rules);
  std::string_view const options = first->substr(kHead.size());
  if (options != expected) {
    return {{}, "it is for " + std::string(options) + ", not for " + expected};
  }
  std::optional<RecordIndex> index = parsePlaces(text, rules.header);
  if (!index) return {{}, kNoIndex};
  index->options = expected;
  return {std::move(*index), std::nullopt};
}

}  // namespace fdmorph::framing
