#include "document/json_parts.h"

#include <algorithm>

namespace fdmorph::document {

JsonParts::JsonParts(NameNumbers const& index, ReaderOptions const& options)
    : m_index(&index),
      m_options(&options),
      m_followers(index.size(), 0),
      m_seen(2 * index.size() + 1, 0),
      m_absorption(options.absorption) {}

bool JsonParts::read(std::string_view line, std::size_t begin, DocumentRecord& record) {
  std::size_t const malformed = findMalformedUtf8(line);
  JsonScanner scanner(line.substr(0, malformed), begin);
  // Texts are no longer than the line. Growing would copy them.
  record.instances.texts.reserve(line.size());
  readWith(scanner, record);
  return finish(scanner, malformed);
}

void JsonParts::readWith(JsonScanner& scanner, DocumentRecord& record) {
  m_scanner = &scanner;
  m_record = &record;
  m_levels.clear();
  m_members.clear();
  m_faults.clear();
  m_absorption.reset();
  static_cast<void>(scanner.peek());
  record.column = scanner.offset() + 1;
  readText();
}

// Reports what is wrong. False if the line has only parts that are ignored.
bool JsonParts::finish(JsonScanner const& scanner, std::size_t malformed) {
  if (malformed != std::string_view::npos && scanner.offset() >= malformed) {
    reportMalformed(malformed, "malformed UTF-8");
  } else if (scanner.hasFault()) {
    reportMalformed(scanner.offset(), scanner.fault());
  } else {
    reportFaults();
    return !m_record->instances.all.empty() || !m_record->errors.empty();
  }
  return true;
}

void JsonParts::readText() {
  std::size_t const begin = m_scanner->offset();
  if (m_options->records.size() == 1) {
    Target record{.name = m_options->records.front(), .isPart = true};
    readValue(record);
  } else if (m_scanner->peek() == '{') {
    open({.kind = Level::Kind::choice});
  } else {
    addFault(begin, ErrorCode::json, "not an object with the name of a record", {});
    readValue({});
  }
  while (!m_levels.empty() && !m_scanner->hasFault()) readLevel();
  if (m_scanner->hasFault()) return;
  if (!m_scanner->isAtEnd()) m_scanner->fail("text after the value");
}

// What is next in the innermost object or array: its end, or a value.
void JsonParts::readLevel() {
  if (m_absorption.isDue(m_record->instances)) absorbParts();
  Level& level = m_levels.back();
  bool isArray = level.kind == Level::Kind::array;
  char next = m_scanner->peek();
  if (next == (isArray ? ']' : '}')) {
    m_scanner->take();
    if (!isArray) closeObject(level);
    m_levels.pop_back();
    return;
  }
  if (!level.isFresh) {
    if (next != ',') {
      return m_scanner->fail(isArray ? "expected ',' or ']'" : "expected ',' or '}'");
    }
    m_scanner->take();
  }
  level.isFresh = false;
  if (isArray) {
    readValue(Target(level.element));
  } else {
    readMember();
  }
}

void JsonParts::readMember() {
  if (m_scanner->peek() != '"') return m_scanner->fail("expected a name in quotes");
  JsonScanner::String key = m_scanner->readString();
  if (m_scanner->hasFault()) return;
  Target target = memberOf(m_levels.back(), key.text, key.hasLoneSurrogate);
  if (m_scanner->peek() != ':') return m_scanner->fail("expected ':'");
  m_scanner->take();
  static_cast<void>(m_scanner->peek());
  std::size_t offset = m_scanner->offset();
  if (m_levels.back().kind != Level::Kind::choice) {
    if (target.isPart) m_members.push_back({.target = target, .offset = offset});
    return readValue(target);
  }
  if (target.unknownName != kNoInstance) {
    addFault(offset, ErrorCode::unknown, "no record has this name", target);
    target.isPart = false;
  } else if (target.isPart && m_levels.back().part != kNoInstance) {
    addFault(offset, ErrorCode::json, "a second record in a line", target);
    target.isPart = false;
  }
  if (target.isPart) m_levels.back().part = 0;
  readValue(target);
}

JsonParts::Target JsonParts::memberOf(Level const& level, std::string_view key, bool isBrokenKey) {
  Target target{.parent = level.part};
  bool isChoice = level.kind == Level::Kind::choice;
  if (!isChoice && level.part == kNoInstance) return {};
  if (isChoice) {
    target.parent = kNoInstance;
    target.name = isBrokenKey ? layout::kNone : find(key);
    auto const& records = m_options->records;
    if (std::find(records.begin(), records.end(), target.name) == records.end()) {
      target.name = layout::kNone;
    }
  } else if (key == "#text") {
    target.name = kTextMember;
  } else if (!isBrokenKey) {
    target.isAttribute = key.starts_with('@');
    target.name = find(target.isAttribute ? key.substr(1) : key);
  }
  target.isPart = target.name != layout::kNone || !m_options->ignoresUnknown;
  if (target.isPart && target.name == layout::kNone) target.unknownName = addUnknownName(key);
  return target;
}

std::uint32_t JsonParts::find(std::string_view name) {
  std::uint32_t expected = m_followers[m_lastName];
  if (m_index->localName(expected) != name) {
    expected = m_index->find({}, name);
    if (expected == layout::kNone) return expected;
    m_followers[m_lastName] = expected;
  }
  m_lastName = expected;
  return expected;
}

std::uint32_t JsonParts::addUnknownName(std::string_view name) {
  std::vector<std::string>& names = m_record->instances.unknownNames;
  appendJsonEscaped(names.emplace_back(), name);
  return static_cast<std::uint32_t>(names.size() - 1);
}

void JsonParts::open(Level const& level) {
  if (m_levels.size() >= m_options->limits.depth) {
    return m_scanner->fail("too many objects and arrays in one another");
  }
  m_scanner->take();
  m_levels.push_back(level);
}

void JsonParts::readValue(Target const& target) {
  switch (m_scanner->peek()) {
    case '{': {
      std::size_t offset = m_scanner->offset();
      std::uint32_t part =
          target.isPart ? addPart(target, Instance::Shape::object, offset) : kNoInstance;
      open({.kind = Level::Kind::object, .part = part, .members = m_members.size()});
      break;
    }
    case '[':
      openArray(target);
      break;
    default:
      readScalar(target);
  }
}

void JsonParts::openArray(Target const& target) {
  std::size_t offset = m_scanner->offset();
  Target element = target;
  element.isInArray = true;
  if (target.isPart && target.isInArray) {
    std::uint32_t part = addPart(target, Instance::Shape::any, offset);
    m_record->instances.all[part].isBroken = true;
    addFault(offset, ErrorCode::json, "an array in an array", target, part);
    element.isPart = false;
  } else if (target.isPart && target.parent == kNoInstance) {
    addFault(offset, ErrorCode::json, "an array for a record", target);
    element.isPart = false;
  }
  open({.kind = Level::Kind::array, .element = element});
  if (m_scanner->hasFault() || m_scanner->peek() != ']' || !element.isPart) return;
  Target array = target;
  m_record->instances.all[addPart(array, Instance::Shape::any, offset)].isEmptyArray = true;
}

void JsonParts::readScalar(Target const& target) {
  std::size_t offset = m_scanner->offset();
  JsonScanner::String value;
  bool isNull = false;
  char const first = m_scanner->peek();
  bool const isString = first == '"';
  switch (first) {
    case '"':
      value = m_scanner->readString();
      break;
    case 't':
      value.text = m_scanner->readLiteral("true");
      break;
    case 'f':
      value.text = m_scanner->readLiteral("false");
      break;
    case 'n':
      static_cast<void>(m_scanner->readLiteral("null"));
      isNull = true;
      break;
    case '-':
    case '0':
    case '1':
    case '2':
    case '3':
    case '4':
    case '5':
    case '6':
    case '7':
    case '8':
    case '9':
      value.text = m_scanner->readNumber();
      break;
    default:
      m_scanner->fail("expected a value");
  }
  bool isAbsent = isNull && !target.isInArray && target.parent != kNoInstance;
  if (m_scanner->hasFault() || !target.isPart || isAbsent) return;
  Instances& instances = m_record->instances;
  std::uint32_t part = addPart(target, Instance::Shape::scalar, offset);
  Instance& instance = instances.all[part];
  instance.isNil = isNull;
  instance.textBegin = instances.texts.size();
  if (value.hasLoneSurrogate) {
    instance.isBroken = true;
    addFault(offset, ErrorCode::character, "a surrogate stands alone", target, part);
    return;
  }
  instance.isString = isString;
  instance.textSize = value.text.size();
  instances.texts += value.text;
}

std::uint32_t JsonParts::addPart(Target const& target, Instance::Shape shape, std::size_t offset) {
  Instances& instances = m_record->instances;
  if (instances.all.size() >= m_options->limits.parts) m_scanner->fail("too many values");
  Instance part{.name = target.name, .parent = target.parent};
  part.unknownName = target.unknownName;
  part.shape = shape;
  part.isAttribute = target.isAttribute;
  part.isInArray = target.isInArray;
  part.line = m_record->line;
  part.column = offset + 1;
  std::uint32_t number = instances.add(part);
  if (target.parent != kNoInstance) {
    Member& member = m_members.back();
    if (member.parts++ == 0) {
      member.firstPart = number;
      instances.all[number].bytesBefore = static_cast<std::uint32_t>(offset - member.offset);
    }
  }
  return number;
}

// A member is there once. The later ones are dropped, with an error at their value.
void JsonParts::closeObject(Level const& level) {
  if (level.kind == Level::Kind::choice) {
    if (level.isFresh) addFault(m_record->column - 1, ErrorCode::json, "no record in a line", {});
    return;
  }
  ++m_objects;
  std::vector<std::size_t> repeated;
  std::vector<std::size_t> unknown;
  for (std::size_t i = level.members; i < m_members.size(); ++i) {
    Target const& target = m_members[i].target;
    if (target.name == layout::kNone) {
      unknown.push_back(i);
      continue;
    }
    std::size_t slot = target.name == kTextMember
                           ? 2 * m_index->size()
                           : target.name + (target.isAttribute ? m_index->size() : 0);
    if (m_seen[slot] == m_objects) repeated.push_back(i);
    m_seen[slot] = m_objects;
  }
  if (unknown.size() > 1) {
    auto nameOfMember = [this](std::size_t i) -> std::string const& {
      return m_record->instances.unknownNames[m_members[i].target.unknownName];
    };
    std::stable_sort(unknown.begin(), unknown.end(), [&](std::size_t a, std::size_t b) {
      return nameOfMember(a) < nameOfMember(b);
    });
    for (std::size_t i = 1; i < unknown.size(); ++i) {
      if (nameOfMember(unknown[i - 1]) == nameOfMember(unknown[i])) repeated.push_back(unknown[i]);
    }
  }
  if (!repeated.empty()) {
    std::sort(repeated.begin(), repeated.end());
    dropRepeated(level, repeated);
  }
  m_members.resize(level.members, {});
}

void JsonParts::dropRepeated(Level const& level, std::vector<std::size_t> const& repeated) {
  std::vector<Instance>& all = m_record->instances.all;
  std::vector<std::uint32_t> dropped;  // ascending, as the parts of the object are
  for (std::size_t i : repeated) {
    Member const& member = m_members[i];
    addFault(member.offset, ErrorCode::json, "a member that is there twice", member.target);
    std::uint32_t part = member.firstPart;
    for (std::uint32_t k = 0; k < member.parts; ++k, part = all[part].next) dropped.push_back(part);
  }
  Instance& object = all[level.part];
  std::uint32_t last = kNoInstance;
  auto next = dropped.begin();
  for (std::uint32_t part = object.firstChild; part != kNoInstance;) {
    std::uint32_t const following = all[part].next;
    if (next != dropped.end() && *next == part) {
      all[part].isBroken = true;
      all[part].isDropped = true;
      ++next;
    } else {
      (last == kNoInstance ? object.firstChild : all[last].next) = part;
      last = part;
    }
    part = following;
  }
  object.lastChild = last;
  (last == kNoInstance ? object.firstChild : all[last].next) = kNoInstance;
}

}  // namespace fdmorph::document
