#include "document/record_encoder.h"

#include <algorithm>

#include "document/value_errors.h"
#include "values/value_messages.h"

namespace fdmorph::document {
namespace {

using layout::kNone;
using layout::Node;
using record::Role;

}  // namespace

RecordEncoder::RecordEncoder(layout::RecordSet const& set, std::uint32_t record,
                             NameNumbers const& names, EncodeRules const& rules)
    : m_set(set),
      m_layout(set.layouts()[record]),
      m_names(names),
      m_record(record),
      m_rules(rules),
      m_plan(set, record, names),
      m_counts(m_layout.countSize()),
      m_counters(m_layout) {}

void RecordEncoder::begin() {
  m_layout.setAbsent(m_bytes);
  std::ranges::fill(m_counts, static_cast<unsigned char>(0));
  m_counters.clear();
  m_uses.clear();
  m_taken.clear();
  m_pool.clear();
  m_tableChecks.clear();
  m_areaChecks.clear();
  m_undecided.clear();
  m_openCounts.assign(m_layout.areas().size(), 0);
  m_viewErrors.clear();
  m_absorbedEnd = 0;
  m_isBegun = true;
}

void RecordEncoder::encode(Instances const& instances, std::span<ByteRun const> runs,
                           EncodeErrors& errors) {
  if (!m_isBegun) begin();
  m_isBegun = false;
  m_in = &instances;
  m_runs = runs;
  m_errors = &errors;
  m_nextSame.resize(instances.all.size());
  constexpr std::uint64_t kMaxAttempts = 1000;
  m_attemptsLeft = kMaxAttempts + 8 * instances.all.size();
  if (instances.all.empty() || instances.all[0].isNil) return;
  if (m_layout[0].count != kNone) writeCount(0, 1);
  encodeOne(0, 0, 0);
  checkTables(false);
  putRuns();
  resolveUndecided();
  checkTables(true);
  putRuns();
}

// One occurrence of an element or attribute.
void RecordEncoder::encodeOne(std::uint32_t node, std::uint32_t number, std::uint64_t base) {
  if (m_layout.item(node).item->isGroup()) {
    encodeElement(node, number, base);
    return;
  }
  Instance const& instance = m_in->all[number];
  if (instance.isBroken) {
    noteCounter(node, m_layout[node].offset + base, instance, true);
    return;
  }
  if (!checkShape(node, instance)) return;
  for (std::uint32_t i = instance.firstChild; i != kNoInstance; i = m_in->all[i].next) {
    refuseUnknown(node, m_in->all[i]);
  }
  if (m_layout[node].size > 0) static_cast<void>(encodeText(node, number, base));
}

void RecordEncoder::encodeElement(std::uint32_t node, std::uint32_t number, std::uint64_t base) {
  Instance const& instance = m_in->all[number];
  if (instance.isBroken || !checkShape(node, instance)) return;
  PlannedElement const& plan = m_plan.elementOf(node);
  std::uint32_t text = instance.shape == Instance::Shape::object ? kNoInstance : number;
  Frame frame{node, number, base, m_uses.size(), m_taken.size(), text};
  m_uses.resize(m_uses.size() + plan.names.size());
  m_taken.resize(m_taken.size() + plan.areas.size(), kNothing);
  matchChildren(frame);
  bool isUndecided = decideAreas(frame);
  for (std::uint32_t name = 0; name < plan.names.size(); ++name) {
    bool isLater = useOf(frame, name).area != kNone &&
                   (isUndecided || !m_plan.names[plan.names.begin + name].isShared);
    if (!isLater) encodeName(frame, name, false);
  }
  encodeTexts(frame, plan.texts);
  finishItems(frame, !isUndecided, true);
  if (isUndecided) return;
  // The frames of undecided elements below stay.
  bool isLast = m_uses.size() == frame.uses + plan.names.size() &&
                m_taken.size() == frame.taken + plan.areas.size();
  if (!isLast) return;
  m_uses.resize(frame.uses);
  m_taken.resize(frame.taken);
}

// Whether the shape of an instance is that of an element. Text where there is none is
// an error, but its children may be looked at.
bool RecordEncoder::checkShape(std::uint32_t node, Instance const& instance) {
  PlannedElement const& plan = m_plan.elementOf(node);
  using Shape = Instance::Shape;
  if (instance.shape == Shape::any) {
    if (plan.texts.isEmpty() && !isBlank(m_in->textOf(instance))) {
      addError(instance, node, {ErrorCode::text, "text where only elements are expected"});
    }
    return true;
  }
  bool isObject = plan.texts.isEmpty() || plan.hasAttributes || plan.hasElements;
  if (isObject == (instance.shape == Shape::object)) return true;
  addError(instance, node,
           {ErrorCode::json, isObject ? "expected an object, found a text or number"
                                      : "expected a text or number, found an object"});
  return false;
}

// Gathers the children by name. Children in the order of the record are found without a
// search.
void RecordEncoder::matchChildren(Frame& frame) {
  PlannedElement const& plan = planOf(frame);
  std::uint32_t guess = 0;
  for (std::uint32_t i = instanceOf(frame).firstChild; i != kNoInstance; i = m_in->all[i].next) {
    Instance const& child = m_in->all[i];
    if (child.name == kTextMember) {
      if (isTextMember(frame, child)) frame.text = i;
      continue;
    }
    std::uint32_t name = child.name == kNone
                             ? kNone
                             : m_plan.findName(frame.node, child.name, child.isAttribute, guess);
    if (name == kNone) {
      refuseUnknown(frame.node, child);
      continue;
    }
    guess = name;
    bool isArray = m_plan.names[plan.names.begin + name].isArray;
    NameUse& use = useOf(frame, name);
    if (child.isNil && (m_rules.isJson ? !child.isInArray : !isArray)) continue;
    if (child.isEmptyArray && isArray) continue;
    m_nextSame[i] = kNoInstance;
    if (use.count == 0) {
      use.first = i;
    } else {
      m_nextSame[use.last] = i;
    }
    use.last = i;
    use.count += child.standsFor;
    if (child.isAbsorbed) use.absorbed += child.standsFor;
  }
}

// JSON: whether a member "#text" is the text of the element. One that is null is not.
bool RecordEncoder::isTextMember(Frame const& frame, Instance const& child) {
  if (child.isBroken) return false;
  bool hasText = !planOf(frame).texts.isEmpty();
  bool isScalar = child.shape == Instance::Shape::scalar && !child.isInArray && !child.isEmptyArray;
  if (hasText && isScalar) return !child.isNil;
  if (hasText && child.isNil && !child.isInArray) return false;
  std::string text = hasText ? "expected a text or number" : "unexpected member \"#text\"";
  addError(child, frame.node, {ErrorCode::json, std::move(text)});
  return false;
}

void RecordEncoder::refuseUnknown(std::uint32_t node, Instance const& child) {
  if (m_rules.ignoresUnknown || child.isBroken) return;
  std::string name;
  if (child.unknownName != kNoInstance) {
    name = m_in->unknownNames[child.unknownName];
  } else if (child.name < m_names.size()) {
    name = (child.isAttribute ? "@" : "") + std::string(m_names.localName(child.name));
  }
  std::string what = m_rules.isJson      ? "no item for this member"
                     : child.isAttribute ? "no item for this attribute"
                                         : "no item for this element";
  DataError error{ErrorCode::unknown, std::move(what),
                  pathOf(m_layout, node, m_occurrence) + "/" + name};
  error.line = child.line;
  error.column = child.column;
  m_errors->add(std::move(error));
}

// Encodes the children of one name. Errors and checks of a tentative run are dropped:
// another one follows.
void RecordEncoder::encodeName(Frame const& frame, std::uint32_t number, bool isTentative) {
  NameUse const use = useOf(frame, number);
  if (use.count == 0 || use.hasFailed) return;
  PlannedName const& name = m_plan.names[planOf(frame).names.begin + number];
  std::size_t const errors = m_errors->size();
  std::size_t const checks = m_tableChecks.size();
  std::uint32_t child = use.first;
  std::uint64_t left = use.count;
  std::uint64_t absorbed = use.absorbed;
  std::uint32_t last = kNone;
  std::size_t lastCheck = m_tableChecks.size();
  for (std::uint32_t i = name.slots.begin; i < name.slots.end; ++i) {
    PlannedPart const& part = m_plan.parts[m_plan.slots[i]];
    if (!isActive(frame, part.view)) continue;
    if (last == kNone && !checkArray(part, use)) {
      useOf(frame, number).hasFailed = true;
      return;
    }
    last = part.node;
    std::uint64_t count = std::min(left, m_layout[last].most);
    lastCheck = m_tableChecks.size();
    if (m_layout[last].counter != kNone) {
      std::uint32_t at = count == 0 ? frame.instance : child;
      addTableCheck(last, count, true, at);
    }
    std::uint64_t const done = std::min(absorbed, count);
    if (done != 0) child = m_nextSame[child];  // it stands for them
    child = encodeSlot(frame, last, child, done, count);
    absorbed -= done;
    left -= count;
  }
  if (isTentative) {
    m_errors->truncate(errors);
    m_tableChecks.resize(checks);
  } else if (left > 0 && last != kNone) {
    if (m_layout[last].counter != kNone) m_tableChecks[lastCheck].hasFailed = true;
    std::uint64_t most = use.count - left;
    DataError error{ErrorCode::occurs, most == 1
                                           ? "more than one occurrence"
                                           : "more than " + std::to_string(most) + " occurrences"};
    error.path = pathOf(m_layout, last, m_occurrence, true);
    if (name.isArray) error.path += "[" + std::to_string(most + 1) + "]";
    error.line = m_in->all[child].line;
    error.column = m_in->all[child].column;
    m_errors->add(std::move(error));
  }
}

// JSON: whether the children of a name are an array where one is expected.
bool RecordEncoder::checkArray(PlannedPart const& part, NameUse const& use) {
  if (!m_rules.isJson) return true;
  Instance const& first = m_in->all[use.first];
  bool isArray = first.isInArray || first.isEmptyArray;
  bool isSecond = !part.isArray && !isArray && use.count > 1;
  if (isArray == part.isArray && !isSecond) return true;
  Instance const& at = isSecond ? m_in->all[m_nextSame[use.first]] : first;
  if (at.isBroken) return false;
  std::string text = "this member is there twice";
  if (!isSecond) text = part.isArray ? "expected an array" : "expected no array";
  DataError error{ErrorCode::json, std::move(text)};
  error.path = pathOf(m_layout, part.node, m_occurrence, true);
  error.line = at.line;
  error.column = at.column - at.bytesBefore;  // that of the array
  m_errors->add(std::move(error));
  return false;
}

// Encodes the occurrences of a part from `begin` on, and returns the child after them.
std::uint32_t RecordEncoder::encodeSlot(Frame const& frame, std::uint32_t number,
                                        std::uint32_t child, std::uint64_t begin,
                                        std::uint64_t end) {
  Node const& node = m_layout[number];
  for (std::uint64_t k = begin; k < end; ++k) {
    if (node.repeats) m_occurrence.at[node.depth] = k;
    if (!m_in->all[child].isNil) encodeOne(number, child, frame.base + k * node.size);
    child = m_nextSame[child];
  }
  if (node.repeats) m_occurrence.at[node.depth] = 0;
  if (node.count != kNone) writeCount(number, end);
  return child;
}

void RecordEncoder::encodeTexts(Frame const& frame, Range texts) {
  if (frame.text == kNoInstance) return;
  for (std::uint32_t i = texts.begin; i < texts.end; ++i) {
    PlannedItem const& text = m_plan.texts[i];
    if (!isActive(frame, text.view)) continue;
    if (!encodeText(text.node, frame.text, frame.base)) m_hasTextFailed = true;
  }
}

// False if the item does not accept the text.
bool RecordEncoder::encodeText(std::uint32_t number, std::uint32_t instanceNumber,
                               std::uint64_t base) {
  Node const& node = m_layout[number];
  Instance const& instance = m_in->all[instanceNumber];
  std::string_view text = m_in->textOf(instance);
  unsigned char* bytes = m_bytes.data() + node.offset + base;
  auto syntax = m_rules.isJson && !instance.isString ? values::NumberSyntax::exponent
                                                     : values::NumberSyntax::decimal;
  values::EncodeResult result = m_set.values().encode(node.format, text, bytes, syntax);
  bool hasFailed = result.error != values::ValueError::none;
  if (hasFailed) {
    m_plan.writeAbsent(number, bytes);
    DataError error{document::codeOf(result.error),
                    values::describeText(result, node.format, text)};
    error.offset = node.offset + base;
    error.size = node.size;
    addError(instance, number, std::move(error));
  }
  noteCounter(number, node.offset + base, instance, hasFailed);
  return !hasFailed;
}

// The tables without children and the counts of what is no part: those in views, and
// the others.
void RecordEncoder::finishItems(Frame const& frame, bool hasViews, bool hasOthers) {
  PlannedElement const& plan = planOf(frame);
  for (std::uint32_t i = plan.tables.begin; i < plan.tables.end; ++i) {
    PlannedItem const& table = m_plan.tables[i];
    if (!(table.view == kNone ? hasOthers : hasViews) || !isActive(frame, table.view)) continue;
    if (m_layout.item(table.node).role != Role::element) {
      addTableCheck(table.node, 0, false, frame.instance);
      continue;
    }
    std::uint32_t key = m_plan.keyOf(table.node);
    std::uint32_t name = m_plan.findName(frame.node, key, false, 0);
    NameUse const& use = useOf(frame, name);
    if (use.count == 0) addTableCheck(table.node, 0, true, frame.instance);
  }
  for (std::uint32_t i = plan.counts.begin; i < plan.counts.end; ++i) {
    PlannedItem const& item = m_plan.counts[i];
    if (!(item.view == kNone ? hasOthers : hasViews) || !isActive(frame, item.view)) continue;
    bool isThere = m_layout.item(item.node).role != Role::value || frame.text != kNoInstance;
    writeCount(item.node, isThere ? 1 : 0);
  }
}

void RecordEncoder::writeCount(std::uint32_t node, std::uint64_t count) {
  document::writeCount(m_set.values().conventions(), static_cast<std::uint32_t>(count),
                       m_counts.data() + countOffsetOf(m_layout, node, m_occurrence));
}

void RecordEncoder::addError(Instance const& instance, std::uint32_t node, DataError error,
                             bool isWhole) {
  error.path = pathOf(m_layout, node, m_occurrence, isWhole);
  error.line = instance.line;
  error.column = instance.column;
  m_errors->add(std::move(error));
}

// Whether an item is in no view, or in one that is taken.
bool RecordEncoder::isActive(Frame const& frame, std::uint32_t view) const {
  if (view == kNone) return true;
  std::uint32_t area = m_plan.views[view].area;
  return m_taken[frame.taken + (area - planOf(frame).areas.begin)] == view;
}

}  // namespace fdmorph::document
