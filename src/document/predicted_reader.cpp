#include "document/predicted_reader.h"

#include <algorithm>
#include <cstring>

#include "layout/extent.h"
#include "layout/shifting.h"

namespace fdmorph::document {

using layout::kNone;
using layout::Node;
using values::ItemFormat;
using values::Kind;

namespace {

// A character that has no byte, or that XML does not have as it is.
constexpr std::uint16_t kNoCharacter = 0x100;

constexpr unsigned kFirstPrintable = 0x20;
constexpr unsigned kFirstNotAscii = 0x80;

// The digits of the largest power of ten in 64 bits.
constexpr unsigned kMostDigits = 18;

// The markup without the line end after the record.
std::string_view withoutLineEnd(std::string_view markup) {
  if (markup.ends_with('\n')) markup.remove_suffix(1);
  return markup;
}

}  // namespace

std::unique_ptr<PredictedReader> PredictedReader::make(layout::RecordSet const& set,
                                                       EncodeRules const& rules,
                                                       compiler::Diagnostics& diagnostics) {
  OutputRules output;
  output.hasWrapper = false;
  std::unique_ptr<PredictedReader> reader(
      new PredictedReader(set, rules, makeProgram(set, 0, output, diagnostics)));
  auto const end = static_cast<std::uint32_t>(reader->m_program.operations.size());
  if (!reader->isPredictable() || !reader->addSteps(0, end)) return nullptr;
  return reader;
}

PredictedReader::PredictedReader(layout::RecordSet const& set, EncodeRules const& rules,
                                 Program program)
    : m_set(set),
      m_layout(set.layouts()[0]),
      m_program(std::move(program)),
      m_recordEnd(m_layout.size()) {
  if (rules.endsWithViews && !m_layout.areas().empty() && m_layout.isSmall()) {
    // Without rules the first view of each area is taken, whatever the bytes are.
    layout::RecordBytes const absent{m_layout.absentBytes().data(), m_layout.size()};
    m_recordEnd = endOf(set, 0, absent, layout::Extent::largest);
  }
  charset::CodePage const& page = *set.values().conventions().codePage;
  for (unsigned i = 0; i < m_characters.size(); ++i) {
    bool isPlain = i >= kFirstPrintable && i < kFirstNotAscii && i != '<' && i != '&' && i != '>' &&
                   i != '"' && i != 0x7F;
    int byte = isPlain ? page.byteOf(i) : -1;
    m_characters[i] = byte < 0 ? kNoCharacter : static_cast<std::uint16_t>(byte);
  }
}

// A prediction knows neither counts nor rules, and only tables whose counters are in
// the document, or belong to no other table and no other occurrence.
bool PredictedReader::isPredictable() const {
  // A long record does not fit the buffer of its reader.
  if (!m_layout.isSmall()) return false;
  if (m_set.hasRecordRules() || m_set.rules().hasCounts) return false;
  for (std::uint32_t i = 0; i < m_layout.areas().size(); ++i) {
    layout::Area const& area = m_layout.areas()[i];
    if (!m_set.rulesOf(0, i).empty() || area.preset != area.views.front()) return false;
  }
  return std::ranges::all_of(m_layout.counters(), [&](layout::Counter const& counter) {
    bool isKnown = counter.node == kNone || counter.hasRole ||
                   (counter.tables.size() == 1 &&
                    m_layout[counter.node].depth == m_layout[counter.tables.front()].depth);
    return isKnown && std::ranges::all_of(counter.tables, [&](std::uint32_t table) {
             return m_layout.item(table).role == record::Role::element;
           });
  });
}

// False if there is an operation that cannot be predicted.
bool PredictedReader::addSteps(std::uint32_t begin, std::uint32_t end) {
  std::string_view const markup = m_program.markup;
  for (std::uint32_t at = begin; at < end; at = m_program.operations[at].end) {
    Operation const& operation = m_program.operations[at];
    std::size_t const number = m_steps.size();
    Step& step = m_steps.emplace_back();
    step.kind = operation.kind;
    step.node = operation.node;
    step.before = markup.substr(operation.before, operation.beforeSize);
    step.after = markup.substr(operation.after, operation.afterSize);
    bool isLast = operation.end == m_program.operations.size();
    if (isLast) step.before = withoutLineEnd(step.before);
    switch (operation.kind) {
      case Operation::Kind::markup:
        break;
      case Operation::Kind::text:
      case Operation::Kind::attribute:
        step.codec = codecOf(operation.format);
        step.collapses = operation.collapses;
        step.offset = operation.offset;
        step.format = &operation.format;
        // References take up to six bytes a character.
        m_mostText = std::max<std::uint64_t>(m_mostText, 256 + 8 * operation.format.size);
        break;
      case Operation::Kind::table:
        step.size = m_layout[operation.node].size;
        if (!addSteps(at + 1, operation.end)) return false;
        m_steps[number].end = static_cast<std::uint32_t>(m_steps.size());
        if (m_steps.size() == number + 1 || m_steps[number + 1].before.empty()) return false;
        break;
      case Operation::Kind::optional:  // a document without it is declined
        if (!addSteps(at + 1, operation.end)) return false;
        m_steps[number].kind = Operation::Kind::markup;
        break;
      case Operation::Kind::area: {
        m_steps[number].kind = Operation::Kind::markup;
        std::uint32_t branch = at + 1;
        while (branch < operation.end &&
               m_program.operations[branch].node != m_layout.areas()[operation.node].preset) {
          branch = m_program.operations[branch].end;
        }
        if (branch >= operation.end || m_program.operations[branch].beforeSize != 0) return false;
        if (!addSteps(branch + 1, m_program.operations[branch].end)) return false;
        break;
      }
      default:
        return false;
    }
  }
  return true;
}

PredictedReader::Codec PredictedReader::codecOf(ItemFormat const& format) const {
  if (format.kind == Kind::text) return format.isJustified ? Codec::general : Codec::text;
  bool isPlain = format.digits <= kMostDigits && format.scale >= 0 &&
                 format.scale <= format.digits && !format.isBlankWhenZero;
  if (!isPlain) return Codec::general;
  switch (format.kind) {
    case Kind::zoned:
      return format.isSignSeparate ? Codec::general : Codec::zoned;
    case Kind::packed:
      return Codec::packed;
    case Kind::binary:
      return Codec::binary;
    default:
      return Codec::general;
  }
}

RecordPredictor::Outcome PredictedReader::read(std::string_view bytes) {
  m_at = bytes.data();
  m_end = m_at + bytes.size();
  m_failure = Outcome::Kind::declined;
  m_layout.setAbsent(m_full);
  if (!run(0, m_steps.size(), m_full.data())) return {m_failure};
  m_record = std::span(m_full).first(m_recordEnd);
  if (m_layout.shifts()) {
    m_shifted.resize(m_full.size());
    std::uint64_t size = shift(m_layout, m_set.values(), m_full.data(), m_shifted.data());
    if (m_recordEnd < m_full.size()) {
      size = shiftedOffset(m_layout, m_set.values(), m_full.data(), m_recordEnd);
    }
    m_record = std::span(m_shifted).first(size);
  }
  return {Outcome::Kind::taken, static_cast<std::size_t>(m_at - bytes.data())};
}

bool PredictedReader::fail(Outcome::Kind kind) {
  m_failure = kind;
  return false;
}

// The recursion is bounded by the number of levels.
bool PredictedReader::run(std::size_t begin, std::size_t end, unsigned char* base) {
  for (std::size_t at = begin; at < end; ++at) {
    Step const& step = m_steps[at];
    switch (step.kind) {
      case Operation::Kind::text:
      case Operation::Kind::attribute:
        if (!runText(step, base)) return false;
        break;
      case Operation::Kind::table:
        if (!matches(step.before) || !runTable(at, base)) return false;
        at = step.end - 1;
        break;
      default:
        if (!matches(step.before)) return false;
    }
  }
  return true;
}

// A table with DEPENDING ON has as many occurrences as there are start tags.
bool PredictedReader::runTable(std::size_t at, unsigned char* base) {
  Step const& step = m_steps[at];
  Node const& node = m_layout[step.node];
  std::string_view const first = m_steps[at + 1].before;
  std::uint64_t count = 0;
  for (; count < node.most; ++count) {
    if (node.counter != kNone) {
      // The last character of a start tag may be that of an empty element.
      std::size_t size = std::max<std::size_t>(first.size(), 1) - 1;
      if (static_cast<std::size_t>(m_end - m_at) < first.size() + 1) {
        return fail(Outcome::Kind::incomplete);
      }
      bool isNext = std::memcmp(m_at, first.data(), size) == 0 &&
                    (m_at[size] == first[size] || m_at[size] == '/');
      if (!isNext) break;
    }
    m_occurrence.at[node.depth] = count;
    if (!run(at + 1, step.end, base + count * step.size)) return false;
  }
  m_occurrence.at[node.depth] = 0;
  return node.counter == kNone || setCounter(step, count);
}

// Whether a counter has the number of occurrences of its table. One that is not in the
// document gets it.
bool PredictedReader::setCounter(Step const& table, std::uint64_t count) {
  Node const& node = m_layout[table.node];
  layout::Counter const& counter = m_layout.counters()[node.counter];
  auto const number = static_cast<std::int64_t>(count);
  if (count < node.least) return fail(Outcome::Kind::declined);
  if (counter.node == kNone) return counter.value == number;
  ItemFormat const& format = m_layout[counter.node].format;
  unsigned char* bytes = m_full.data() + offsetOf(m_layout, counter.node, m_occurrence);
  if (!counter.hasRole) return m_set.values().writeInteger(format, bytes, number);
  return m_set.values().readInteger(format, bytes) == number;
}

bool PredictedReader::matches(std::string_view markup) {
  std::size_t const left = static_cast<std::size_t>(m_end - m_at);
  if (left < markup.size()) {
    bool isBegun = std::memcmp(m_at, markup.data(), left) == 0;
    return fail(isBegun ? Outcome::Kind::incomplete : Outcome::Kind::declined);
  }
  if (std::memcmp(m_at, markup.data(), markup.size()) != 0) return false;
  m_at += markup.size();
  return true;
}

// Whether an element is written as empty where its start tag is expected.
bool PredictedReader::collapsed(Step const& step) {
  std::string_view const tag = step.before.substr(0, step.before.size() - 1);
  if (static_cast<std::size_t>(m_end - m_at) < tag.size() + 2) return false;
  if (std::memcmp(m_at, tag.data(), tag.size()) != 0) return false;
  if (m_at[tag.size()] != '/' || m_at[tag.size() + 1] != '>') return false;
  m_at += tag.size() + 2;
  return true;
}

bool PredictedReader::runText(Step const& step, unsigned char* base) {
  unsigned char* bytes = base + step.offset;
  if (!matches(step.before)) {
    if (!step.collapses) return false;
    if (collapsed(step)) {
      // A number has its end tag before the next item, and none is empty.
      return !step.after.empty() &&
             m_set.values().encode(*step.format, {}, bytes).error == values::ValueError::none;
    }
    bool isCut = static_cast<std::size_t>(m_end - m_at) <= step.before.size();
    return isCut ? fail(Outcome::Kind::incomplete) : false;
  }
  char const end = step.kind == Operation::Kind::text ? '<' : '"';
  char const* const begin = m_at;
  bool isRead = step.codec == Codec::general ? false
                : step.codec == Codec::text  ? readText(step, bytes, end)
                                             : readNumber(step, bytes, end);
  if (!isRead) {
    m_at = begin;
    if (!readGeneral(step, bytes, end)) return false;
  }
  return matches(step.after);
}

// A text of characters that are one byte each.
bool PredictedReader::readText(Step const& step, unsigned char* bytes, char end) {
  std::size_t const size = step.format->size;
  std::size_t const left = std::min(static_cast<std::size_t>(m_end - m_at), size + 1);
  auto const* found = static_cast<char const*>(std::memchr(m_at, end, left));
  if (found == nullptr) return false;
  auto const length = static_cast<std::size_t>(found - m_at);
  unsigned flags = 0;
  for (std::size_t i = 0; i < length; ++i) {
    unsigned const byte = m_characters[static_cast<unsigned char>(m_at[i])];
    bytes[i] = static_cast<unsigned char>(byte);
    flags |= byte;
  }
  if ((flags & kNoCharacter) != 0) return false;
  std::memset(bytes + length, m_set.values().signBytes().blank, size - length);
  m_at = found;
  return true;
}

// Any other text, through a copy without references.
bool PredictedReader::readGeneral(Step const& step, unsigned char* bytes, char end) {
  struct Reference {
    std::string_view name;
    char character;
  };
  constexpr std::array kReferences{Reference{"&amp;", '&'},  Reference{"&lt;", '<'},
                                   Reference{"&gt;", '>'},   Reference{"&quot;", '"'},
                                   Reference{"&#10;", '\n'}, Reference{"&#13;", '\r'},
                                   Reference{"&#9;", '\t'}};
  std::size_t const left = static_cast<std::size_t>(m_end - m_at);
  auto const* found = static_cast<char const*>(std::memchr(m_at, end, left));
  if (found == nullptr) {
    return fail(left > m_mostText ? Outcome::Kind::declined : Outcome::Kind::incomplete);
  }
  std::string_view text(m_at, static_cast<std::size_t>(found - m_at));
  m_at = found;
  m_text.clear();
  while (!text.empty()) {
    auto const c = static_cast<unsigned char>(text.front());
    bool isPlain =
        c == '\t' ? end == '<' : c >= kFirstPrintable && c != '<' && c != '&' && c != '>';
    // Two bytes before a third, of the characters that XML does not have.
    bool mayBeForbidden = text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
    if (isPlain && !mayBeForbidden) {
      m_text += text.front();
      text.remove_prefix(1);
      continue;
    }
    auto const* reference = std::ranges::find_if(
        kReferences, [text](Reference const& each) { return text.starts_with(each.name); });
    if (reference == kReferences.end()) return false;
    m_text += reference->character;
    text.remove_prefix(reference->name.size());
  }
  return m_set.values().encode(*step.format, m_text, bytes).error == values::ValueError::none;
}

}  // namespace fdmorph::document
