// The words of one data description entry.
#pragma once

#include <vector>

#include "copybook/copybook_writer.h"
#include "copybook/item_names.h"

namespace fdmorph::copybook {

/// The clauses of an item as words, without its level number.
class EntryWords {
 public:
  /// `change` may be null. All arguments must outlive this object.
  EntryWords(compiler::DataItem const& item, ItemChange const* change, ItemNames const& names,
             std::vector<Word>& words)
      : m_item(item), m_change(change), m_names(names), m_words(words) {}

  /// A data item, a condition, or an item of level 66.
  void write(bool hasXmlClauses);

 private:
  void add(std::string_view word) { m_words.push_back({std::string(word), false}); }
  void writeData(bool hasXmlClauses);
  void writeRedefines();
  void writePicture();
  void writeUsageAndSign();
  void writeOccurs();
  void writeKeys();
  void writeFlags();
  void writeXmlClauses();
  void writeValues();
  void writeRenames();
  void writeLiteral(compiler::Literal const& literal);

  compiler::DataItem const& m_item;
  ItemChange const* m_change;
  ItemNames const& m_names;
  std::vector<Word>& m_words;
};

}  // namespace fdmorph::copybook
