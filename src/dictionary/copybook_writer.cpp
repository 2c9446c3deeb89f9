// The enhanced copybook: the data again in COBOL, with every named item tied to
// its XML element. Level numbers are the depth in the tree, not those of the
// source.

#include "cobol/fixed_format.h"
#include "dictionary/dictionary_writer.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using enum DATADICT_ELEMENT_TYPE;

void appendUsage(CDMXMLElement const* element, std::string& line) {
  std::optional<std::string_view> usage = attributeOf(element, "usage");
  if (!usage || *usage == "display") return;
  line += " usage is ";
  line += getDataDictElementType(element) == DD_NATIONAL ? "national" : *usage;
}

void appendOccurs(CDMXMLElement const* element, std::string& line) {
  std::optional<std::string_view> maxOccurs = attributeOf(element, "maxOccurs");
  if (!maxOccurs || *maxOccurs == "1") return;
  line += " occurs ";
  std::optional<std::string_view> minOccurs = attributeOf(element, "minOccurs");
  if (minOccurs && *minOccurs != *maxOccurs) (line += *minOccurs) += " to ";
  (line += *maxOccurs) += " times";
  std::string_view object = attributeOf(element, "odo").value_or(std::string_view());
  // The name alone, without the prefix, which the entry of the object has.
  object = object.substr(object.rfind('.') + 1);
  if (!object.empty()) (line += " depending on ") += object;
}

void appendSign(CDMXMLElement const* element, std::string& line) {
  std::string_view sign = attributeOf(element, "sign").value_or(std::string_view());
  if (sign == "li" || sign == "ls") line += " sign is leading";
  if (sign == "ts") line += " sign is trailing";
  if (sign == "ls" || sign == "ts") line += " separate";
}

// The values of a condition depend on the item that the condition belongs to.
bool isQuoted(CDMXMLElement const* element) {
  DATADICT_ELEMENT_TYPE kind = getDataDictElementType(element);
  if (isConditionValue(kind)) {
    CDMXMLElement const* condition = element->getParent();
    CDMXMLElement const* item = condition == nullptr ? nullptr : condition->getParent();
    kind = item == nullptr ? DD_NONE : getDataDictElementType(item);
  }
  return kind == DD_ALPHANUMERIC || kind == DD_ALPHANUMERIC_EDITED || kind == DD_NATIONAL;
}

void appendValues(CDMXMLElement const* element, std::string& line) {
  std::string_view quote = isQuoted(element) ? "\"" : "";
  auto appendValue = [&](std::string_view value) { ((line += quote) += value) += quote; };
  if (std::optional<std::string_view> value = attributeOf(element, "value")) {
    line += " value is ";
    appendValue(*value);
  }
  std::optional<std::string_view> from = attributeOf(element, "from");
  std::optional<std::string_view> to = attributeOf(element, "to");
  if (!from || !to) return;
  // With quotes, no text is empty.
  if (quote.empty() && (from->empty() || to->empty())) return;
  line += " value is ";
  appendValue(*from);
  line += " through ";
  appendValue(*to);
}

// Values stand as they are: nothing inside is escaped.
void appendDataClauses(CDMXMLElement const* element, std::string& line) {
  if (std::optional<std::string_view> picture = attributeOf(element, "picture")) {
    (line += " pic ") += *picture;
  }
  appendUsage(element, line);
  appendOccurs(element, line);
  appendSign(element, line);
  if (attributeIs(element, "justified", "right")) line += " justified right";
  if (attributeIs(element, "blankWhenZero", "true")) line += " blank when zero";
  appendValues(element, line);
}

constexpr unsigned kMargin = 7;  // blanks before level 0
constexpr unsigned kRenamesLevel = 66;
constexpr unsigned kMaxPaddedLevel = 8;

void warnOfRedefines(std::string const& line) {
  err() << "Warning : The redefines clause is not supported by this version of the COBOL runtime. "
        << "The element \"" << std::string_view(line).substr(line.find_first_not_of(' '))
        << "\" and it's child data items will not be "
        << "converted by FDMORPH." << endLine;
}

bool hasNamedPredecessor(CDMXMLElement const* element) {
  CDMXMLElement const* before = element->getPrevSibling();
  return before != nullptr && !dataNameOf(before).empty();
}

class CopybookWriter : public DictionaryWriter {
 public:
  explicit CopybookWriter(WriterContext const& context) : m_context(context) {}

  Visit enter(CDMXMLElement const& element, unsigned depth) override;

 private:
  std::string levelAndName(CDMXMLElement const& element, unsigned level) const;
  void appendXmlClauses(CDMXMLElement const& element, std::string& line) const;

  WriterContext m_context;
};

// An item that is dropped lets the next record in.
Visit CopybookWriter::enter(CDMXMLElement const& element, unsigned depth) {
  if (getDataDictElementType(&element) == DD_PROGRAM) return Visit::descend(depth);
  unsigned level = depth + 1;
  bool isRenames = attributeIs(&element, "renames", "true");
  if (isRenames) {
    err() << "Warning : This version of FDMORPH does not support the RENAMES clause for ranges"
          << endLine;
  }
  std::string line(level + kMargin, ' ');
  line += levelAndName(element, isRenames ? kRenamesLevel : level);
  if (attributeIs(&element, "redefines", "true") && hasNamedPredecessor(&element)) {
    warnOfRedefines(line);
    return Visit::skip();
  }
  if (isRenames) {
    err() << "Warning : This version of FDMORPH does not support the RENAMES clause" << endLine;
    return Visit::skip();
  }
  appendDataClauses(&element, line);
  appendXmlClauses(element, line);
  line += '.';
  OutputFixedFormatCOBOL(line, m_context.stream);
  return Visit::descend(level);
}

std::string CopybookWriter::levelAndName(CDMXMLElement const& element, unsigned level) const {
  bool isValue = isConditionValue(getDataDictElementType(&element));
  std::string text = isValue ? "88 " : std::to_string(level) + ' ';
  if (!isValue && level <= kMaxPaddedLevel) text.insert(0, 1, '0');
  CDMXMLElement const* named = isValue ? element.getParent() : &element;
  std::optional<std::string_view> name = attributeOf(named, "name");
  if (name) (text += m_context.prefix) += *name;
  return text;
}

void CopybookWriter::appendXmlClauses(CDMXMLElement const& element, std::string& line) const {
  ItemName name = m_context.nameOf(element);
  if (name.xmlName.empty()) return;
  ((line += " identified by \"") += name.xmlName) += '"';
  if (!name.xmlNamespace.empty()) ((line += " namespace is \"") += name.xmlNamespace) += '"';
  if (name.isAttribute) line += " is attribute";
  if (name.countIn) (((line += " count in ") += m_context.prefix) += name.xmlName) += "-count";
}

}  // namespace

std::unique_ptr<DictionaryWriter> makeCopybookWriter(WriterContext const& context) {
  return std::make_unique<CopybookWriter>(context);
}

}  // namespace fdmorph
