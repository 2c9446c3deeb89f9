// The outputs of a data dictionary: what a writer is, and the walk that all of
// them share.
//
// The walk calls a writer's enter for the program, the data items and the
// values of conditions, and walks through the containers and the conditions
// themselves. It prints nothing. Everything else in a dictionary is skipped,
// with everything below it.
//
// Only one record is written: below a container the walk stops after the first
// child whose children were walked. A writer that leaves a record out therefore
// lets the next one in.
#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "dictionary/DMXMLCOBOLExternalMapping.h"
#include "dictionary/data_dictionary.h"
#include "xml/DMDOMFormatTarget.h"
#include "xml/DMXMLElement.h"

namespace fdmorph {

/// What the walk does after it entered an element.
struct Visit {
  bool descends = false;  ///< walk the children, `childDepth` deep
  bool isLeft = false;    ///< then call leave, also without children
  unsigned childDepth = 0;

  /// Continue with the next element.
  static Visit skip() { return {}; }
  /// Walk the children and do not come back.
  static Visit descend(unsigned childDepth) { return {true, false, childDepth}; }
  /// Walk the children and call leave.
  static Visit around(unsigned childDepth) { return {true, true, childDepth}; }
};

/// One output. A writer sees an element once, or twice if it asks for leave.
class DictionaryWriter {
 public:
  virtual ~DictionaryWriter() = default;

  /// Writes what comes before the children. `depth` is the childDepth that the
  /// writer chose for the element above, and 0 at the top. Its meaning is up to
  /// the writer: blanks of indentation, or a level.
  virtual Visit enter(CDMXMLElement const& element, unsigned depth) = 0;

  /// Writes what comes after the children.
  virtual void leave(CDMXMLElement const& /*element*/, unsigned /*depth*/) {}
};

/// Walks `element`, or every child of the node that stands for the document.
/// Returns whether the children of the element were to be walked.
bool walkDictionary(CDMXMLElement const& element, unsigned depth, DictionaryWriter& writer);

/// What the writers work with. Nothing of it is owned.
struct WriterContext {
  XmlFormatter& xml;                          ///< for outputs in XML
  std::ostream& stream;                       ///< for other outputs
  CDMXMLCOBOLExternalMapping const* mapping;  ///< null without a mapping file
  std::string_view dictionaryFile;
  std::string_view prefix;  ///< of COBOL data names
  bool countIn;             ///< whether "count in" clauses are allowed

  /// The name of an elementary item by its dictionary entry and the mapping.
  ItemName nameOf(CDMXMLElement const& element) const;
};

using WriterFactory = std::unique_ptr<DictionaryWriter>(WriterContext const& context);

// Each factory is defined in the source of its writer.
#define FDMORPH_OUTPUT_FORMAT(type, number, name, isXml, factory) WriterFactory factory;
#include "dictionary/output_formats.def"
#undef FDMORPH_OUTPUT_FORMAT

/// Whether a start tag is followed by content.
inline bool hasChildren(CDMXMLElement const& element) {
  return element.getFirstChildElem() != nullptr;
}

inline constexpr std::string_view kInstanceNamespace = "http://www.w3.org/2001/XMLSchema-instance";

}  // namespace fdmorph
