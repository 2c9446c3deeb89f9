// A tree of record items as COBOL text.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "cobol/DMCOBOLRecordItem.h"
#include "cobol/fixed_format.h"

namespace fdmorph {

/// Makes the data names of one record unique (-unique).
///
/// The rule: an item keeps its name unless an item before it in output order,
/// the root apart, has the same one. Then "-1", "-2" and so on is tried after
/// the name. Each try is a walk over the record from its root, and that walk
/// warns again about every item without content that it passes, up to the
/// holder of the name or else up to the item itself. The walks are not made.
/// An index that grows in output order knows what they would find and print.
/// What they would print is counted at once when the run no longer shows
/// messages, so a step without a message takes constant time.
class UniqueNames {
 public:
  /// Made names are kept in `texts`.
  explicit UniqueNames(TextPool& texts) : m_texts(texts) {}

  /// Gives the item that is written next its final `dataName` and, in any
  /// case, the `countInName` that belongs to it.
  void settleName(CDMCOBOLRecordItem& item);

  /// Notes that an item was reached that cannot be written.
  void noteUnwritten(CDMCOBOLRecordItem const& item);

 private:
  /// The tries "-1" to `suffix` after one name, all of which have failed. The
  /// holder of a name never changes, and neither do the items before it, so
  /// every repetition fails again, and prints the same warnings again.
  struct FailedTries {
    unsigned suffix = 0;
    unsigned silentSuffix = 0;  ///< up to this one no try prints anything
    long long warnings = 0;     ///< that all of them print
  };

  std::string_view freeName(std::string_view base, unsigned limit);
  unsigned repeatTries(FailedTries const& tries) const;
  void noteFailure(FailedTries& tries, unsigned suffix, unsigned holder) const;
  unsigned holderBefore(std::string_view name, unsigned limit) const;
  long long emptyItemsBefore(unsigned limit) const;
  void repeatWarnings(unsigned limit) const;

  TextPool& m_texts;
  unsigned m_lastPosition = 0;  // in the walk's order, from 1 for the root
  std::unordered_map<std::string_view, unsigned> m_holders;   // first holder's position
  std::unordered_map<std::string_view, FailedTries> m_tries;  // by base name
  std::vector<std::pair<unsigned, CDMCOBOLRecordItem const*>> m_emptyItems;
};

/// Writes one record. Each item becomes one logical line of clauses, which by
/// default the fixed-format writer breaks over physical lines.
class RecordOutput {
 public:
  struct Options {
    std::string_view prefix = {};  ///< of data names and count fields
    bool countIn = true;           ///< write "count in" clauses
    bool uniqueNames = false;      ///< make data names unique within the record

    /// Write the namespace of an element where it differs from that of the element
    /// around it, also if there is none, and that of each attribute in one.
    bool exactNamespaces = false;

    /// Writes a logical line.
    void (*writeLine)(std::string_view line, std::ostream& stream) = OutputFixedFormatCOBOL;
  };

  /// `texts` is the record's pool, for names made unique. It, the text in
  /// `options` and `stream` must outlive the output.
  RecordOutput(Options const& options, TextPool& texts, std::ostream& stream)
      : m_options(options), m_uniqueNames(texts), m_stream(stream) {}

  /// Writes `item` and what is below it; an item that cannot be written is
  /// left out with its subtree. True if `item` itself was written.
  bool OutputCOBOLItem(CDMCOBOLRecordItem* item);

 private:
  void buildLogicalLine(CDMCOBOLRecordItem const& item);
  void appendPicture(CDMCOBOLRecordItem const& item);
  void appendConditionValue(CDMCOBOLRecordItem const& item);
  void appendRedefines(CDMCOBOLRecordItem const& item);
  void appendXmlClauses(CDMCOBOLRecordItem const& item);

  Options m_options;
  UniqueNames m_uniqueNames;
  std::ostream& m_stream;
  std::string m_line;
};

}  // namespace fdmorph
