// The XML parser's reports: each becomes one line on the error stream and one
// count. For this folder only.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>
#include <xercesc/sax/ErrorHandler.hpp>

#include "xml/DMDOMParser.h"
#include "xml/transcoding.h"

namespace fdmorph {

/// Prints and counts the reports of a parser.
class CDMDOMErrorHandler : public xerces::ErrorHandler {
 public:
  void warning(xerces::SAXParseException const& e) override;
  void error(xerces::SAXParseException const& e) override;
  void fatalError(xerces::SAXParseException const& e) override;

  /// The library calls this before some parses. It does nothing, because the
  /// counts are those of the whole process.
  void resetErrors() override {}

  /// Prints the two counts of the process, "E error(s), W warning(s)".
  void DisplayErrorMsgSummary();

  /// Whether reports include the parser's message, after the position.
  void setVerboseError(bool verbose) { m_bVerbose = verbose; }

  /// Prints and counts `report`, and keeps it if reports are being recorded.
  virtual void emit(ParserReport const& report);

  /// A report about a place, without its message.
  [[nodiscard]] static ParserReport placedReport(char const* type, ParserReport::Kind kind,
                                                 std::string file, std::size_t line,
                                                 std::size_t column);

  /// Has the next report of the library replaced by `message`, with its place, and
  /// drops the reports after it: they follow from what has been refused. Ends
  /// with beginParse.
  void refuse(std::string message) { m_refusal = std::move(message); }

  /// Drops all reports of the library up to beginParse, after a refusal that has
  /// been reported.
  void dropReports() { m_isDropping = true; }

  /// Reports are printed again.
  void beginParse();

  /// The number of reports printed so far.
  [[nodiscard]] std::size_t reports() const { return m_reports; }

  /// Keeps each report in `record` as well, until called with null.
  void recordReports(std::vector<ParserReport>* record) { m_pRecord = record; }

 private:
  void DisplayErrorMsg(char const* type, ParserReport::Kind kind,
                       xerces::SAXParseException const& e);

  bool m_bVerbose = false;
  std::optional<std::string> m_refusal;
  bool m_isDropping = false;
  std::size_t m_reports = 0;
  std::vector<ParserReport>* m_pRecord = nullptr;
};

}  // namespace fdmorph
