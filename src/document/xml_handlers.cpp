#include "document/xml_handlers.h"

#include <algorithm>
#include <array>
#include <utility>

#include "charset/code_page.h"

namespace fdmorph::document {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool isDeclaration(char const* attribute) {
  std::string_view name(attribute);
  return name.starts_with("xmlns") && (name.size() == 5 || name[5] == ':');
}

/// XML Schema: Datatypes, 3.2.2.
bool isTrue(std::string_view value) {
  value.remove_prefix(std::min(value.find_first_not_of(kBlanks), value.size()));
  value = value.substr(0, value.find_last_not_of(kBlanks) + 1);
  return value == "true" || value == "1";
}

}  // namespace

XmlHandlers::XmlHandlers(NameNumbers const& index, LineIndex& lines, ReaderOptions const& options)
    : m_lines(&lines),
      m_options(&options),
      m_isRecord(index.size(), 0),
      m_names(index, m_scopes, {options.limits.names + 4 * index.size(), options.limits.nameBytes}),
      m_absorption(options.absorption) {
  for (std::uint32_t record : options.records) m_isRecord[record] = 1;
}

void XmlHandlers::attach(XML_Parser parser, bool isWrapped) {
  m_parser = parser;
  m_isWrapped = isWrapped;
  m_isInCdata = false;
  m_open.clear();
  XML_SetUserData(parser, this);
  XML_SetElementHandler(parser, onStart, onEnd);
  XML_SetCharacterDataHandler(parser, onText);
  XML_SetCdataSectionHandler(parser, onCdata, onCdataEnd);
  XML_SetUnknownEncodingHandler(parser, onEncoding, nullptr);
  if (!isWrapped) {
    XML_SetXmlDeclHandler(parser, onDeclaration);
    XML_SetDefaultHandler(parser, onOther);  // until the root
  }
}

void XmlHandlers::restart() {
  while (isInNamespaces()) m_scopes.leave();
  m_open.clear();
  m_shift = 0;
  m_recordCount = 0;
  m_recordDepth = 0;
  m_failure.reset();
  m_encoding.clear();
  m_hasDeclaration = m_isInRecord = m_isRecordDone = false;
}

void XMLCALL XmlHandlers::onStart(void* self, char const* name, char const** attributes) {
  static_cast<XmlHandlers*>(self)->startTag(name, attributes);
}

void XMLCALL XmlHandlers::onEnd(void* self, char const* name) {
  static_cast<XmlHandlers*>(self)->endTag(name);
}

void XMLCALL XmlHandlers::onText(void* self, char const* text, int size) {
  static_cast<XmlHandlers*>(self)->text({text, static_cast<std::size_t>(size)});
}

void XMLCALL XmlHandlers::onCdata(void* self) {
  auto& handlers = *static_cast<XmlHandlers*>(self);
  handlers.m_isInCdata = true;
  if (handlers.m_isWrapped && handlers.m_open.size() == 1) {
    handlers.fail("text outside of a record");
  }
}

void XMLCALL XmlHandlers::onCdataEnd(void* self) {
  static_cast<XmlHandlers*>(self)->m_isInCdata = false;
}

void XMLCALL XmlHandlers::onDeclaration(void* self, char const*, char const* encoding, int) {
  auto& handlers = *static_cast<XmlHandlers*>(self);
  handlers.m_hasDeclaration = true;
  if (encoding != nullptr) handlers.m_encoding = encoding;
}

// An encoding that the parser does not know. It accepts those that have ASCII's
// characters at their places.
int XMLCALL XmlHandlers::onEncoding(void*, char const* name, XML_Encoding* encoding) {
  std::shared_ptr<charset::CodePage const> page = charset::CodePage::open(name).page;
  if (page == nullptr || page->isUtf8()) return XML_STATUS_ERROR;
  for (unsigned i = 0; i < 256; ++i) {
    encoding->map[i] = page->characterOf(static_cast<std::uint8_t>(i));
  }
  encoding->data = nullptr;
  encoding->convert = nullptr;
  encoding->release = nullptr;
  return XML_STATUS_OK;
}

// Nothing else before the root begins so. Its entities are never looked at.
void XMLCALL XmlHandlers::onOther(void* self, char const* text, int size) {
  if (std::string_view(text, static_cast<std::size_t>(size)).starts_with("<!D")) {
    static_cast<XmlHandlers*>(self)->fail("document type declaration");
  }
}

void XmlHandlers::fail(std::string text) {
  if (m_failure) return;
  m_failure = {std::move(text), offset()};
  XML_StopParser(m_parser, XML_FALSE);
}

void XmlHandlers::countRecord(BytePlace place) {
  m_record->number = ++m_recordCount;
  m_record->line = place.line;
  m_record->column = place.column;
}

void XmlHandlers::startTag(char const* name, char const** attributes) {
  if (m_failure) return;
  bool isRoot = m_open.empty();
  if (isRoot && !beginRoot()) return;
  QualifiedNames::Spelling& spelling = m_names.find(name);
  Open open{kNoInstance};
  if (*attributes != nullptr) {
    std::uint64_t outer = m_scopes.depth();
    if (!declare(attributes)) return;
    open.declares = m_scopes.depth() != outer;
  }
  std::optional<std::uint32_t> number = m_names.elementNumber(spelling);
  if (!number || !spelling.isName) return failName(spelling);

  std::uint32_t parent = isRoot ? kNoInstance : m_open.back().part;
  bool isKnown = *number != layout::kNone;
  bool isPart = parent != kNoInstance && (isKnown || !m_options->ignoresUnknown);
  if (!m_isInRecord && m_open.size() <= 1) {
    isPart = isKnown && m_isRecord[*number] != 0;
    if (isPart || (!isRoot && !m_options->ignoresUnknown)) {
      beginRecord(spelling, isPart, open.declares);
    }
  } else if (isPart) {
    m_place = m_lines->at(offset());
  }
  if (m_isInRecord && m_options->keepsText) {
    m_recordLine.startTag(name, attributes);
    m_recordLine.use(spelling.prefix);
  }
  if (isPart) {
    open.part = addPart(*number, parent);
    if (!isKnown) nameUnknown(open.part, "", spelling.local());
  }
  if (*attributes != nullptr && !readAttributes(attributes, open)) return;
  m_open.push_back(open);
  if (areLimitsPassed()) failLimit();
}

// The root is of our own making, or ends what comes before it.
bool XmlHandlers::beginRoot() {
  XML_SetDefaultHandler(m_parser, nullptr);
  if (m_isWrapped) m_open.push_back({kNoInstance});
  return !m_isWrapped;
}

void XmlHandlers::failName(QualifiedNames::Spelling const& spelling) {
  fail(spelling.isName ? "the prefix of '" + spelling.text + "' is not declared"
                       : "'" + spelling.text + "' is not a name");
}

bool XmlHandlers::areLimitsPassed() const {
  DocumentLimits const& limits = m_options->limits;
  return m_names.areTooMany() || m_open.size() > limits.depth + (m_isWrapped ? 1 : 0) ||
         m_record->instances.all.size() > limits.parts;
}

void XmlHandlers::failLimit() {
  DocumentLimits const& limits = m_options->limits;
  if (m_names.areTooMany()) return fail("too many different names");
  if (m_record->instances.all.size() > limits.parts) {
    return fail("a record of more than " + std::to_string(limits.parts) + " parts");
  }
  fail("more than " + std::to_string(limits.depth) + " elements in one another");
}

std::uint32_t XmlHandlers::addPart(std::uint32_t name, std::uint32_t parent) {
  return m_record->instances.add(
      {.name = name, .parent = parent, .line = m_place.line, .column = m_place.column});
}

void XmlHandlers::nameUnknown(std::uint32_t part, char const* mark, std::string_view local) {
  Instances& instances = m_record->instances;
  instances.all[part].unknownName = static_cast<std::uint32_t>(instances.unknownNames.size());
  instances.unknownNames.emplace_back(mark).append(local);
}

void XmlHandlers::beginRecord(QualifiedNames::Spelling const& spelling, bool isKnown,
                              bool declares) {
  m_isInRecord = true;
  m_recordDepth = m_open.size();
  m_recordOffset = offset();
  m_recordName = spelling.text;
  m_place = m_lines->at(m_recordOffset);
  countRecord(m_place);
  m_texts.begin(m_record->instances);
  m_absorption.reset();
  if (m_options->keepsText) {
    m_recordLine.begin(m_record->text, m_scopes, m_scopes.depth() - (declares ? 1 : 0));
  }
  if (isKnown) return;
  m_record->errors.push_back({.code = ErrorCode::unknown,
                              .text = "no record has this name",
                              .path = std::string(spelling.local()),
                              .line = m_place.line,
                              .column = m_place.column});
}

bool XmlHandlers::declare(char const** attributes) {
  m_declarations.clear();
  std::size_t count = 0;
  for (char const** at = attributes; *at != nullptr; at += 2, ++count) {
    if (!isDeclaration(*at)) continue;
    std::string_view name(*at);
    if (name.size() == 6) {
      fail("a declaration of an empty prefix");
      return false;
    }
    // Known by its spelling as well, so that the number of prefixes is limited.
    std::uint32_t prefix = NamespaceScopes::kDefaultPrefix;
    if (name.size() > 5) {
      if (!m_names.find(*at).isName) {
        fail("'" + std::string(name) + "' is not a name");
        return false;
      }
      prefix = m_scopes.prefixNumber(name.substr(6));
    }
    m_declarations.push_back({prefix, at[1]});
  }
  if (count > m_options->limits.attributes) {
    fail("more than " + std::to_string(m_options->limits.attributes) + " attributes");
    return false;
  }
  if (m_declarations.empty()) return true;
  std::optional<std::string> wrong = m_scopes.enter(m_declarations);
  if (wrong) fail(std::move(*wrong));
  return !wrong;
}

bool XmlHandlers::readAttributes(char const** attributes, Open& open) {
  std::uint32_t const part = open.part;
  m_prefixed.clear();
  for (; *attributes != nullptr; attributes += 2) {
    if (isDeclaration(*attributes)) continue;
    QualifiedNames::Spelling& spelling = m_names.find(*attributes);
    std::optional<std::uint32_t> number = m_names.attributeNumber(spelling);
    if (!number || !spelling.isName) {
      failName(spelling);
      return false;
    }
    if (spelling.hasPrefix()) {
      m_prefixed.push_back(&spelling);
      if (m_isInRecord && m_options->keepsText) m_recordLine.use(spelling.prefix);
    }
    if (part == kNoInstance) continue;
    std::string_view value(attributes[1]);
    if (*number == kSchemaInstanceName) {
      if (spelling.local() == "nil" && isTrue(value)) {
        m_record->instances.all[part].isNil = true;
        open.part = kNoInstance;
      }
      continue;
    }
    if (*number == layout::kNone && m_options->ignoresUnknown) continue;
    Instances& instances = m_record->instances;
    std::uint32_t attribute = addPart(*number, part);
    instances.all[attribute].isAttribute = true;
    instances.all[attribute].textBegin = instances.texts.size();
    instances.all[attribute].textSize = value.size();
    instances.texts += value;
    if (*number == layout::kNone) nameUnknown(attribute, "@", spelling.local());
  }
  if (m_prefixed.size() < 2 || areDistinct()) return true;
  fail("two attributes of one name");
  return false;
}

// Namespaces in XML 1.0, 6.3. The parser has compared the spellings.
bool XmlHandlers::areDistinct() const {
  std::vector<std::pair<std::string_view, std::string_view>> names;
  names.reserve(m_prefixed.size());
  for (auto const* spelling : m_prefixed) {
    names.emplace_back(m_scopes.namespaceOf(spelling->prefix).value_or(""), spelling->local());
  }
  std::sort(names.begin(), names.end());
  return std::adjacent_find(names.begin(), names.end()) == names.end();
}

void XmlHandlers::endTag(char const* name) {
  if (m_failure) return;
  Open const open = m_open.back();
  m_open.pop_back();
  if (open.declares) m_scopes.leave();
  if (!m_isInRecord) return;
  if (m_options->keepsText) {
    m_recordLine.endTag(name);
    if (m_options->absorption.absorber != nullptr) m_recordLine.spill();
  }
  if (open.pieces != 0) m_texts.join(open.part, open.pieces);
  if (m_open.size() != m_recordDepth) {
    if (m_absorption.isDue(m_record->instances)) absorbParts();
    return;
  }
  if (m_options->keepsText) m_recordLine.finish();
  m_isInRecord = false;
  m_isRecordDone = true;
  XML_StopParser(m_parser, m_open.empty() ? XML_FALSE : XML_TRUE);
}

void XmlHandlers::absorbParts() {
  Instances& instances = m_record->instances;
  if (instances.all.empty()) return;
  std::vector<std::uint32_t> open;
  for (std::size_t i = m_recordDepth; i < m_open.size(); ++i) {
    if (m_open[i].part == kNoInstance) break;
    open.push_back(m_open[i].part);
  }
  // The pieces of inner elements stand behind those of outer ones.
  for (std::size_t i = m_open.size(); i-- > m_recordDepth;) {
    if (m_open[i].pieces != 0) m_texts.join(m_open[i].part, m_open[i].pieces);
    m_open[i].pieces = 0;
  }
  std::vector<std::uint32_t> const removed =
      m_options->absorption.absorber->absorb(instances, open);
  Instances::Renumbering const numbers = instances.remove(removed);
  for (Open& each : m_open) {
    if (each.part != kNoInstance) each.part = numbers.parts[each.part];
  }
  m_absorption.set(instances);
}

void XmlHandlers::text(std::string_view text) {
  if (m_failure) return;
  if (m_isInRecord) {
    Open& open = m_open.back();
    if (open.part != kNoInstance) m_texts.append(open.part, open.pieces, text);
    if (m_options->keepsText) m_recordLine.text(text);
  } else if (m_isWrapped && m_open.size() == 1 &&
             text.find_first_not_of(kBlanks) != std::string_view::npos) {
    fail("text outside of a record");
  }
}

}  // namespace fdmorph::document
