#include "xml/DMDOMFormatTarget.h"

#include <iostream>

#include "text/console.h"

namespace fdmorph {

std::ostream& CDMDOMFormatTarget::stream() const {
  return m_target == nullptr ? std::cout : *m_target;
}

void XmlFormatter::begin() {
  std::ostream& stream = m_target.stream();
  m_writer.setTarget(&stream, isLineByLine(stream.rdbuf()));
}

}  // namespace fdmorph
