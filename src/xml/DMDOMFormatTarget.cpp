#include "xml/DMDOMFormatTarget.h"

#include <iostream>

#include "text/console.h"

namespace fdmorph {

CDMDOMFormatTarget::CDMDOMFormatTarget() : m_SavedBuffer(std::cout.rdbuf()) {}

void CDMDOMFormatTarget::writeChars(XMLByte const* bytes, XMLSize_t count, xerces::XMLFormatter*) {
  std::cout.write(reinterpret_cast<char const*>(bytes), static_cast<std::streamsize>(count));
}

void CDMDOMFormatTarget::setTarget(std::ofstream& file) {
  redirectOutput(file.rdbuf());
}

void CDMDOMFormatTarget::restoreTarget() {
  redirectOutput(m_SavedBuffer);
}

}  // namespace fdmorph
