#include "xml/parser_report.h"

#include <iostream>

#include "text/console.h"

namespace fdmorph {

void printReport(ParserReport const& report) {
  std::cerr << report.line << std::endl;
  if (report.kind == ParserReport::Kind::warning) ++console.m_nWarningCount;
  if (report.kind == ParserReport::Kind::error) ++console.m_nErrorCount;
}

bool nothingCounted() {
  return console.m_nErrorCount == 0 && console.m_nWarningCount == 0;
}

}  // namespace fdmorph
