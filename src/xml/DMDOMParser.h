// The front end of the validating XML parser: it sets the library up, parses a
// document or a schema, and copies the document into the tool's own tree.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "xml/expansion_limit.h"
#include "xml/input_files.h"
#include "xml/node_store.h"

namespace fdmorph {

/// One printed report of the parser front end.
struct ParserReport {
  enum class Kind { warning, error, uncounted };

  Kind kind;
  std::string line;      ///< as it stands on the error stream, without the line end
  bool isLimit = false;  ///< a limit ends the parse; the line is shown in any flood

  // The same line in its parts, of reports that have a place.
  std::string file = {};
  std::size_t lineNumber = 0;
  std::size_t column = 0;
  std::string message = {};
};

/// Prints `report` on the error stream and counts it by its kind. It does not use
/// the counting inserter, which would count it a second time.
void printReport(ParserReport const& report);

/// True while nothing, error or warning, has been counted in the process.
[[nodiscard]] bool nothingCounted();

/// One parser of the XML library with its error handler. Library exceptions
/// never leave it: they become messages and false or null results.
class CDMDOMParser {
 public:
  enum class FILE_TYPE {
    XML_DOCUMENT = 0,  ///< a document; validated or only checked for form
    XML_SCHEMA = 1,    ///< a schema file; its grammar is loaded first
  };

  /// Starts the XML library; the library counts the starts.
  static void InitializePlatform();

  /// The trees that this parser builds belong to `store`, which must outlive
  /// every use of them.
  explicit CDMDOMParser(CDMXMLNodeStore& store);

  /// The same for one of several parsers that share `files`, which must outlive
  /// them: each file is read from disk once, and a schema that the load of another
  /// one has shown to be good is not loaded again. Without shared files each parse
  /// reads its files anew.
  CDMDOMParser(CDMXMLNodeStore& store, InputFiles& files);

  /// The same with a validator, which the parser adopts. `Validator` is the
  /// library's SchemaValidator, which only this folder can name.
  template <typename Validator>
  CDMDOMParser(CDMXMLNodeStore& store, Validator& validator);

  /// Ends the parser's use of the XML library. Trees stay.
  ~CDMDOMParser();
  CDMDOMParser(CDMDOMParser const&) = delete;
  CDMDOMParser& operator=(CDMDOMParser const&) = delete;

  /// Parses `fileName`. For a schema, announces it, loads its grammar unless it
  /// is known to be good, and stops if anything at all has been counted in the process by then, a
  /// warning included; `validate` is not looked at. For a document, `validate`
  /// switches schema support and validation on or off, also for later parses.
  /// False if the document cannot be used; the reports have been printed.
  bool ParseFile(std::string const& fileName, FILE_TYPE type, bool validate);

  /// Reports what ParseFile would report for a document, in memory that does not
  /// grow with the document. Builds no tree.
  void CheckDocument(std::string const& fileName, bool validate);

  /// Prints the line that ParseFile prints before it loads a schema.
  static void announceSchema(std::string const& fileName);

  /// The tree of the last document, or null if it cannot be used. The top node
  /// stands for the document: it has no name, and the root element is its
  /// first child. Each call builds a new tree and a new formatter, which both
  /// belong to the store.
  [[nodiscard]] CDMXMLElement* getXMLDocument();

  /// Frees the library's document and grammars once the tree is built. They need
  /// more memory than the tree.
  void releaseDocument();

  /// Counts of the process.
  int getErrorCount() const;
  int getWarningCount() const;

  void setVerboseError(bool verbose);
  void DisplayErrorSummary();

  /// What the entities of a document may expand to, from now on.
  void setExpansionLimits(ExpansionLimits limits);

  /// Appends each report that ParseFile prints to `record`, until called with
  /// null.
  void recordReports(std::vector<ParserReport>* record);

 private:
  class Library;

  void prepareFiles();

  CDMXMLNodeStore& m_store;
  std::unique_ptr<InputFiles> m_ownFiles;  // null if they are shared
  std::unique_ptr<Library> m_library;
  bool m_bParsed = false;
};

}  // namespace fdmorph
