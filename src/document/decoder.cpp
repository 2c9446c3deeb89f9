#include "document/decoder.h"

#include <algorithm>

#include "document/value_errors.h"
#include "values/value_messages.h"

namespace fdmorph::document {

using layout::kNone;
using layout::Node;
using values::DecodeResult;
using values::Target;

Decoder::Decoder(Programs const& programs, LengthRules lengths)
    : m_programs(programs),
      m_set(programs.set()),
      m_values(programs.set().values()),
      m_preparation(programs.set(), lengths),
      m_prepared(m_preparation.result()) {}

bool Decoder::decode(StoredRecord record, TextBuffer& out, DataErrors& errors) {
  m_errors = &errors;
  m_buffer = &out;
  m_hasFailed = false;
  m_stopAt = UINT64_MAX;
  m_lastKept = UINT64_MAX;
  m_consequence.reset();
  auto begin = static_cast<std::size_t>(out.end() - out.begin());
  m_preparation.prepare(record);
  if (m_prepared.error) {
    errors.push_back(*m_prepared.error);
    return false;
  }
  m_layout = &m_set.layouts()[m_prepared.record];
  m_bytes = m_prepared.bytes;
  if (m_prepared.fault) {
    m_stopAt = layout::offsetOf(*m_layout, m_prepared.fault->table, m_prepared.fault->occurrence);
    failAtCounter(*m_prepared.fault);
  }
  m_program = &m_programs[m_prepared.record];
  m_base = m_bytes.bytes;
  m_marks.clear();
  m_out = out.end();
  run(0, static_cast<std::uint32_t>(m_program->operations.size()));
  if (!m_hasFailed) {
    out.setEnd(m_out);
    return true;
  }
  out.setEnd(out.begin() + begin);
  finishErrors();
  return false;
}

// Keeps the first errors in the order of the record.
void Decoder::finishErrors() {
  if (m_errors->empty() && m_consequence) m_errors->push_back(std::move(*m_consequence));
  std::ranges::stable_sort(*m_errors, {}, &DataError::offset);
  if (m_errors->size() > kMaxErrorsPerRecord) m_errors->resize(kMaxErrorsPerRecord);
}

void Decoder::run(std::uint32_t begin, std::uint32_t end) {
  for (std::uint32_t at = begin; at < end;) {
    Operation const& operation = m_program->operations[at];
    m_out = m_buffer->reserve(m_out, operation.reserve);
    writeMarkup(operation.before, operation.beforeSize);
    switch (operation.kind) {
      case Operation::Kind::markup:
        break;
      case Operation::Kind::text:
        runText(operation);
        break;
      case Operation::Kind::attribute:
        runAttribute(operation);
        break;
      case Operation::Kind::string:
      case Operation::Kind::value:
        runJson(operation);
        break;
      case Operation::Kind::mark:
        m_marks.push_back(m_buffer->offsetOf(m_out));
        break;
      case Operation::Kind::close:
        runClose(operation);
        break;
      case Operation::Kind::closeList:
        if (m_out[-1] == ',') --m_out;
        writeMarkup(operation.after, operation.afterSize);
        break;
      case Operation::Kind::optional:
        if (isPresent(operation)) run(at + 1, operation.end);
        break;
      case Operation::Kind::table:
        runTable(at);
        break;
      case Operation::Kind::area:
        runArea(at);
        break;
      case Operation::Kind::branch:  // run by its area
        break;
    }
    at = operation.end;
  }
}

void Decoder::runText(Operation const& operation) {
  char* start = m_out;
  DecodeResult result =
      m_values.decode<Target::xmlText>(operation.format, m_base + operation.offset, start);
  if (result.error != values::ValueError::none) {
    failValue(operation, result.error);
    return;
  }
  m_out = result.end;
  if (result.isOmitted && operation.mayBeLeftOut) {
    m_out = start - operation.ownMarkup;
  } else if (result.end == start && operation.collapses) {
    start[-1] = '/';
    start[0] = '>';
    m_out = start + 1;
  } else {
    writeMarkup(operation.after, operation.afterSize);
  }
}

void Decoder::runAttribute(Operation const& operation) {
  char* start = m_out;
  DecodeResult result =
      m_values.decode<Target::xmlAttribute>(operation.format, m_base + operation.offset, start);
  if (result.error != values::ValueError::none) {
    failValue(operation, result.error);
    return;
  }
  m_out = result.end;
  if (result.isOmitted && operation.mayBeLeftOut) {
    m_out = start - operation.ownMarkup;
  } else {
    writeMarkup(operation.after, operation.afterSize);
  }
}

void Decoder::runJson(Operation const& operation) {
  char* start = m_out;
  DecodeResult result =
      m_values.decode<Target::json>(operation.format, m_base + operation.offset, start);
  if (result.error != values::ValueError::none) {
    failValue(operation, result.error);
    return;
  }
  if (result.isOmitted && operation.mayBeLeftOut) {
    m_out = start - operation.ownMarkup;
    return;
  }
  m_out = result.end;
  if (operation.kind == Operation::Kind::value && !result.isNumber) {
    std::memmove(start + 1, start, static_cast<std::size_t>(result.end - start));
    *start = '"';
    m_out[1] = '"';
    m_out += 2;
  }
  writeMarkup(operation.after, operation.afterSize);
}

void Decoder::runClose(Operation const& operation) {
  bool isEmpty = m_buffer->offsetOf(m_out) == m_marks.back();
  m_marks.pop_back();
  if (isEmpty) {
    m_out[-1] = '/';
    *m_out++ = '>';
  } else {
    writeMarkup(operation.after, operation.afterSize);
  }
}

void Decoder::runTable(std::uint32_t at) {
  Operation const& operation = m_program->operations[at];
  Node const& node = (*m_layout)[operation.node];
  std::uint64_t count = countOccurrences(operation);
  unsigned char const* base = m_base;
  for (std::uint64_t k = 0; k < count; ++k) {
    m_occurrence.at[node.depth] = k;
    run(at + 1, operation.end);
    m_base += node.size;
  }
  m_base = base;
}

// The number of occurrences that are written; none after an error.
std::uint64_t Decoder::countOccurrences(Operation const& operation) {
  Node const& node = (*m_layout)[operation.node];
  std::uint64_t most = node.most;
  if (node.counter != kNone) {
    layout::CounterValue value =
        layout::countOf(*m_layout, m_values, m_bytes, operation.node, m_occurrence);
    if (value.fault) {
      failAtCounter(*value.fault);
      return 0;
    }
    most = value.count;
  }
  if (node.count != kNone && !m_prepared.stored.counts.empty()) {
    return countFromCounts(operation.node, most, true);
  }
  return mayEndEarly(m_set, *m_layout, operation.node) ? withoutAbsent(operation.node) : most;
}

std::uint64_t Decoder::countFromCounts(std::uint32_t node, std::uint64_t most, bool isTable) {
  std::uint64_t offset = layout::countOffsetOf(*m_layout, node, m_occurrence);
  std::uint64_t count = readCount(m_values.conventions(), m_prepared.stored.counts.data() + offset);
  if (count <= most) return count;
  fail(ErrorCode::count, node,
       "count of " + std::to_string(count) + "; expected at most " + std::to_string(most), isTable);
  return 0;
}

// The number of occurrences up to the last one that is not as if absent.
std::uint64_t Decoder::withoutAbsent(std::uint32_t table) {
  Node const& node = (*m_layout)[table];
  std::uint64_t offset = static_cast<std::uint64_t>(m_base - m_bytes.bytes) + node.offset;
  record::PartDemand const* demand = m_layout->tree().demandOf(table);
  if (demand != nullptr && !demand->together.empty() && isOmitted(table)) return 0;
  std::uint64_t least = demand == nullptr ? 0 : demand->least;
  std::uint64_t count = node.most;
  while (count > least && isAbsent(table, offset + (count - 1) * node.size)) --count;
  return count;
}

bool Decoder::isPresent(Operation const& operation) {
  Node const& node = (*m_layout)[operation.node];
  if (node.count != kNone && !m_prepared.stored.counts.empty()) {
    return countFromCounts(operation.node, 1, false) != 0;
  }
  return m_set.rules().hasCounts || !isOmitted(operation.node);
}

// Whether a part is left out: it is as if absent, and so are the parts that may be
// missing with it only, which have the same tables around them.
bool Decoder::isOmitted(std::uint32_t node) {
  std::uint64_t moved = static_cast<std::uint64_t>(m_base - m_bytes.bytes);
  auto isWhollyAbsent = [&](std::uint32_t each) {
    Node const& item = (*m_layout)[each];
    for (std::uint64_t k = 0; k < item.most; ++k) {
      if (!isAbsent(each, moved + item.offset + k * item.size)) return false;
    }
    return true;
  };
  record::PartDemand const* demand = m_layout->tree().demandOf(node);
  return demand == nullptr ? isWhollyAbsent(node)
                           : std::ranges::all_of(demand->together, isWhollyAbsent);
}

// Whether an occurrence of an item has the bytes of an absent one. Tables in it have
// their lower bound: where their counter is in the item as well, its bytes say so.
bool Decoder::isAbsent(std::uint32_t node, std::uint64_t offset) {
  Node const& item = (*m_layout)[node];
  if (std::memcmp(m_bytes.bytes + offset, absentBytes() + item.offset, item.size) != 0) {
    return false;
  }
  if (!item.hasCounter) return true;
  for (std::uint32_t i = node; i < m_layout->item(node).end; ++i) {
    std::uint32_t counter = (*m_layout)[i].counter;
    if (counter == kNone) continue;
    std::uint32_t at = m_layout->counters()[counter].node;
    if (at != kNone && at >= node && at < m_layout->item(node).end) continue;
    layout::CounterValue value = layout::countOf(*m_layout, m_values, m_bytes, i, m_occurrence);
    if (value.fault || value.count != (*m_layout)[i].least) return false;
  }
  return true;
}

// Those of the whole record.
unsigned char const* Decoder::absentBytes() {
  if (m_layout->isSmall()) return m_layout->absentBytes().data();
  if (m_absentOf != m_layout) m_layout->setAbsent(m_absent);
  m_absentOf = m_layout;
  return m_absent.data();
}

void Decoder::runArea(std::uint32_t at) {
  Operation const& operation = m_program->operations[at];
  std::uint32_t view = m_set.chooseView(m_prepared.record, operation.node, m_bytes, m_occurrence);
  if (view == kNone) {
    std::uint32_t first = m_layout->areas()[operation.node].views.front();
    std::uint64_t offset = layout::offsetOf(*m_layout, first, m_occurrence);
    DataError error{ErrorCode::view, "no rule of a view holds"};
    error.path = layout::pathOf(*m_layout, m_layout->item(first).enclosing, m_occurrence);
    if (testsWrongNumber(operation.node)) {
      m_hasFailed = true;
      if (!m_consequence) m_consequence = placed(std::move(error), first, offset);
    } else {
      add(std::move(error), first, offset);
    }
    return;
  }
  for (std::uint32_t i = at + 1; i < operation.end; i = m_program->operations[i].end) {
    Operation const& branch = m_program->operations[i];
    if (branch.kind == Operation::Kind::branch && branch.node == view) run(i + 1, branch.end);
  }
}

// Whether rules of an area look at an item that is in the document and has an error of
// its own, or is not there because of a counter: then no rule may hold because of that.
bool Decoder::testsWrongNumber(std::uint32_t area) const {
  auto isWrong = [this](layout::Comparison const& comparison) {
    Node const& item = (*m_layout)[comparison.node];
    std::uint64_t offset = layout::offsetOf(*m_layout, comparison.node, m_occurrence);
    if (offset >= m_stopAt) return true;
    if (!item.hasRole || !item.format.isNumber()) return false;
    if (offset + item.size > m_bytes.available) return false;
    std::vector<char> text(values::Values::maxTextSize(item.format));
    DecodeResult result =
        m_values.decode<Target::plain>(item.format, m_bytes.bytes + offset, text.data());
    return result.error != values::ValueError::none;
  };
  return std::ranges::any_of(m_set.rulesOf(m_prepared.record, area),
                             [&](layout::ViewRule const* rule) {
                               return std::ranges::any_of(rule->comparisons, isWrong);
                             });
}

void Decoder::failValue(Operation const& operation, values::ValueError error) {
  fail(document::codeOf(error), operation.node, std::string(values::describeBytes(error)));
}

void Decoder::failAtCounter(layout::CounterFault const& fault) {
  Node const& counter = (*m_layout)[fault.node];
  std::uint64_t offset = layout::offsetOf(*m_layout, fault.node, fault.occurrence);
  if (!fault.isReadable) {
    std::vector<char> text(values::Values::maxTextSize(counter.format));
    DecodeResult result =
        m_values.decode<Target::plain>(counter.format, m_bytes.bytes + offset, text.data());
    values::ValueError error =
        result.error == values::ValueError::none ? values::ValueError::digit : result.error;
    add({document::codeOf(error), std::string(values::describeBytes(error))}, fault.node, offset);
    return;
  }
  Node const& table = (*m_layout)[fault.table];
  DataError error{ErrorCode::odo, "counter is " + std::to_string(fault.value) + "; expected " +
                                      std::to_string(table.least) + " to " +
                                      std::to_string(table.most)};
  error.path = layout::pathOf(*m_layout, fault.table, fault.occurrence, true);
  add(std::move(error), fault.node, offset);
}

void Decoder::fail(ErrorCode code, std::uint32_t node, std::string text, bool isWhole) {
  // The occurrence of a table that has not begun is its first.
  layout::Occurrence at = m_occurrence;
  if (isWhole) at.at[(*m_layout)[node].depth] = 0;
  std::uint64_t offset = layout::offsetOf(*m_layout, node, at);
  m_hasFailed = true;
  if (!isTold(offset)) return;
  DataError error{code, std::move(text)};
  error.path = layout::pathOf(*m_layout, node, at, isWhole);
  add(std::move(error), node, offset);
}

// Gives an error about a node at an offset of the largest form its place.
DataError Decoder::placed(DataError error, std::uint32_t node, std::uint64_t offset) const {
  if (error.path.empty()) error.path = layout::pathOf(*m_layout, node, m_occurrence);
  error.offset = m_layout->shifts()
                     ? layout::shiftedOffset(*m_layout, m_values, m_bytes.bytes, offset)
                     : offset;
  error.bytes = shownBytes(m_prepared.stored.bytes, error.offset, (*m_layout)[node].size);
  return error;
}

// Whether an error at an offset of the largest form can be told: what follows a counter
// that cannot be used is not, nor what comes after enough others.
bool Decoder::isTold(std::uint64_t offset) const {
  return offset < m_stopAt && (m_layout->shifts() || offset < m_lastKept);
}

// Adds an error, unless it was told already.
void Decoder::add(DataError error, std::uint32_t node, std::uint64_t offset) {
  m_hasFailed = true;
  if (!isTold(offset)) return;
  error = placed(std::move(error), node, offset);
  if (error.offset >= m_lastKept) return;
  auto isSame = [&](DataError const& other) {
    return other.code == error.code && other.offset == error.offset && other.path == error.path;
  };
  if (std::ranges::any_of(*m_errors, isSame)) return;
  m_errors->push_back(std::move(error));
  constexpr std::size_t kMaxKept = 4 * kMaxErrorsPerRecord;
  if (m_errors->size() < kMaxKept) return;
  finishErrors();
  m_lastKept = m_errors->back().offset;
}

}  // namespace fdmorph::document
