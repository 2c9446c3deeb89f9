#include "xml/DMDOMFormatTarget.h"

#include <iostream>

#include "text/console.h"

namespace fdmorph {

std::ostream& CDMDOMFormatTarget::stream() const {
  return m_Target == nullptr ? std::cout : *m_Target;
}

void XmlFormatter::begin() {
  std::ostream& stream = m_target.stream();
  m_writer.setTarget(&stream, isLineByLine(stream.rdbuf()));
}

}  // namespace fdmorph
