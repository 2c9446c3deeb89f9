// CDMCOBOLGenerator: one-line forms of items and schema elements, for looking
// at a conversion under a debugger.

#include "cobol/DMCOBOLGenerator.h"
#include "text/console.h"

namespace fdmorph {
namespace {

constexpr unsigned kMaxOneDigitLevel = 9;

}  // namespace

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
  // The document's own node has no line; its children stand where it would.
  for (CDMXMLElement const* child : element->getChildElements()) {
    dumpElement(child, recurse, below);
  }
}

}  // namespace fdmorph
