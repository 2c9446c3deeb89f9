#include "cobol/DMCOBOLGenerator.h"

#include <string>
#include <string_view>

#include "cobol/record_output.h"
#include "cobol/recursion.h"
#include "cobol/schema_walker.h"
#include "text/console.h"
#include "text/output_file.h"
#include "text/status_line.h"

namespace fdmorph {
namespace {

constexpr unsigned kMaxOneDigitLevel = 9;

// False, with a message, if nothing of the schema is converted. The word "true"
// alone is refused: "qualified" passes.
bool ProcessSchemaElement(CDMXMLElement const* element) {
  if (findAttrByName(element, "attributeFormDefault") != "true") return true;
  err() << "Error : COBOL XML does not support namespace qualifiers for attributes"
        << " in instance documents" << endLine;
  return false;
}

/// A head element and its place among the others, for who waits for its record.
struct HeadStep {
  CDMXMLElement* element;
  std::string part;  // " (2 of 5)"

  std::string_view name() const { return findAttrByName(element, "name").value_or(""); }
};

// Builds and writes the record of a head element. True if it was written.
bool convertHeadElement(HeadStep const& head, RecordOutput::Options const& options,
                        SchemaWalker& walker, std::ostream& stream) {
  bool isWritten = false;
  try {
    statusLine.beginStep("converting", head.name(), StepUnit::items, head.part);
    CDMCOBOLRecordItem* record = walker.buildRecord(head.element);
    statusLine.beginStep("writing", head.name(), StepUnit::items, head.part);
    RecordOutput output(options, walker.builder().store().texts(), stream);
    isWritten = output.OutputCOBOLItem(record);
    if (isWritten) endLine(stream);
  } catch (RecordTooLarge const&) {
    err(Shown::always) << "Error : Record of " << head.name() << " exceeds "
                       << static_cast<long long>(walker.builder().store().limits().items)
                       << " items" << endLine;
  }
  walker.endRecord();
  return isWritten;
}

}  // namespace

CDMCOBOLGenerator::CDMCOBOLGenerator(CDMXMLSchemaDoc const* document, RecordLimits const& limits)
    : schemaDoc(document),
      m_limits(limits),
      m_namespaces(document),
      m_components(document, m_namespaces),
      m_substitutions(document, m_namespaces) {}

bool CDMCOBOLGenerator::GenerateFile(std::string const& fileName, std::string const& prefix,
                                     bool countInClauses, bool unique) {
  if (fileName.empty()) {
    out() << "Invalid filename.  Outputting  to console:" << endLine << endLine;
  }
  OutputFile file;
  bool isFile = file.open(fileName);
  // The banner of a quiet run goes to the file as well.
  file.aimStandardOutput();
  if (isReady()) {
    convertSchema({prefix, countInClauses, unique}, file.stream());
    err() << endLine;
  }
  if (isFile) file.close();
  return isFile;
}

bool CDMCOBOLGenerator::isReady() const {
  if (schemaDoc == nullptr) {
    err() << "Internal Error : Error initializing schema document" << endLine << endLine;
    return false;
  }
  if (schemaDoc->rootElement == nullptr) {
    err() << "Internal Error : Unable to locate schema element" << endLine << endLine;
    return false;
  }
  return true;
}

void CDMCOBOLGenerator::convertSchema(RecordOutput::Options const& options,
                                      std::ostream& stream) const {
  if (!ProcessSchemaElement(schemaDoc->rootElement)) return;
  HeadElements heads = getSchemaHeadElement();
  if (heads.all.empty()) return;
  SchemaWalker walker(m_namespaces, m_components, m_substitutions, m_limits);
  long long converted = 0;
  std::size_t number = 0;
  std::string const all = std::to_string(heads.all.size());
  for (CDMXMLElement* element : heads.all) {
    HeadStep const head{element, " (" + std::to_string(++number) + " of " + all + ")"};
    if (convertHeadElement(head, options, walker, stream)) ++converted;
  }
  err() << endLine << "Successfully converted " << converted << " of "
        << static_cast<long long>(heads.all.size()) << " schema head element(s)." << endLine;
}

HeadElements CDMCOBOLGenerator::getSchemaHeadElement() const {
  return findHeadElements(schemaDoc, m_namespaces);
}

bool CDMCOBOLGenerator::convertXMLtoCOBOL(CDMCOBOLRecordItem* item,
                                          std::string_view typeName) const {
  return fdmorph::convertXMLtoCOBOL(item, typeName, m_namespaces);
}

bool CDMCOBOLGenerator::isRecursivePattern(CDMCOBOLRecordItem const* item) const {
  return fdmorph::isRecursivePattern(item, m_components);
}

void CDMCOBOLGenerator::writeIndent(unsigned count) {
  out() << std::string(count, ' ') << std::flush;
}

void CDMCOBOLGenerator::writeLevelNumber(unsigned level) {
  out() << (level <= kMaxOneDigitLevel ? "0" : "") << static_cast<long long>(level) << "  "
        << std::flush;
}

bool CDMCOBOLGenerator::writeRecordName(std::string const& name) {
  if (name.empty()) return false;
  out() << name << " " << std::flush;
  return true;
}

bool CDMCOBOLGenerator::writeCOBOLType(std::string const& type) {
  if (type.empty()) return false;
  out() << type << " ";
  return true;
}

bool CDMCOBOLGenerator::writeIdentifiedBy(std::string const& name) {
  if (name.empty()) return false;
  out() << "identified by \"" << name << "\" ";
  return true;
}

void CDMCOBOLGenerator::writeIsAttribute(bool isAttribute) {
  if (isAttribute) out() << "is attribute";
}

void CDMCOBOLGenerator::writeRecordItem(std::string const& name, std::string const& identifiedBy,
                                        std::string const& type, unsigned level, unsigned indent,
                                        bool isAttribute) {
  if (name.empty()) return;
  writeIndent(indent);
  writeLevelNumber(level);
  writeRecordName(name);
  writeCOBOLType(type);
  writeIdentifiedBy(identifiedBy);
  writeIsAttribute(isAttribute);
}

void CDMCOBOLGenerator::dumpElement(CDMXMLElement const* element, bool recurse,
                                    std::string const& indent) {
  if (element == nullptr) return;
  std::string below = indent;
  if (element->isParent()) {
    Message message = err();
    message << indent << element->name << " ";
    for (CDMXMLAttribute const* attribute : element->getAttributes()) {
      message << attribute->name << "=\"" << attribute->value << "\" ";
    }
    message << endLine;
    if (!recurse) return;
    below += ' ';
  }
  // The document's own node has no line, and does not indent its children.
  for (CDMXMLElement const* child : element->getChildElements()) {
    dumpElement(child, recurse, below);
  }
}

}  // namespace fdmorph
