#include "xml/DMDOMErrorHandler.h"

#include <iostream>
#include <xercesc/sax/SAXParseException.hpp>

#include "text/console.h"

namespace fdmorph {

void CDMDOMErrorHandler::warning(xerces::SAXParseException const& e) {
  DisplayErrorMsg("Warning", ParserReport::Kind::warning, e);
}

void CDMDOMErrorHandler::error(xerces::SAXParseException const& e) {
  DisplayErrorMsg("Error", ParserReport::Kind::error, e);
}

// Does not throw, so the parser decides whether to continue.
void CDMDOMErrorHandler::fatalError(xerces::SAXParseException const& e) {
  DisplayErrorMsg("Fatal Error", ParserReport::Kind::error, e);
}

void CDMDOMErrorHandler::DisplayErrorMsg(char const* type, ParserReport::Kind kind,
                                         xerces::SAXParseException const& e) {
  if (m_isDropping) return;
  std::string message = m_refusal.value_or(toLocalText(e.getMessage()));
  m_isDropping = m_refusal.has_value();
  ParserReport report = placedReport(type, kind, toLocalText(e.getSystemId()), e.getLineNumber(),
                                     e.getColumnNumber());
  if (m_bVerbose) report.line += " : " + message;
  report.message = std::move(message);
  report.isLimit = m_isDropping;
  emit(report);
}

ParserReport CDMDOMErrorHandler::placedReport(char const* type, ParserReport::Kind kind,
                                              std::string file, std::size_t line,
                                              std::size_t column) {
  std::string head = std::string(type) + " : " + file + "(Line " + std::to_string(line) + ", Col " +
                     std::to_string(column) + ")";
  return {kind, std::move(head), false, std::move(file), line, column, {}};
}

void CDMDOMErrorHandler::beginParse() {
  m_refusal.reset();
  m_isDropping = false;
}

void CDMDOMErrorHandler::emit(ParserReport const& report) {
  ++m_reports;
  printReport(report);
  if (m_pRecord != nullptr) m_pRecord->push_back(report);
}

void CDMDOMErrorHandler::DisplayErrorMsgSummary() {
  std::cerr << console.m_nErrorCount << " error(s), " << console.m_nWarningCount << " warning(s)"
            << std::endl;
}

}  // namespace fdmorph
