// Between the records of a set and documents of one syntax.
#pragma once

#include <string>

#include "document/programs.h"
#include "fdrec/document_rules.h"

namespace fdmorph::library {

/// All that does not change from one record to the next. Immutable; threads share it.
class Conversion {
 public:
  /// The set and the options must outlive this object. Errors of the layout are
  /// reported; nothing can be converted then.
  Conversion(layout::RecordSet const& set, fdrec::DataOptions const& data, document::Syntax syntax,
             compiler::Diagnostics& diagnostics);

  [[nodiscard]] document::Syntax syntax() const { return m_syntax; }
  [[nodiscard]] layout::RecordSet const& set() const { return m_programs.set(); }
  [[nodiscard]] document::Programs const& programs() const { return m_programs; }
  [[nodiscard]] document::NameNumbers const& names() const { return m_names; }
  [[nodiscard]] document::ReaderOptions const& readerOptions() const { return m_readerOptions; }
  [[nodiscard]] document::EncodeRules const& encodeRules() const { return m_encodeRules; }

  /// What stands before and after the element of a record: text of --single. A record
  /// has a line feed of its own, which is left out without it.
  [[nodiscard]] bool isSingle() const { return m_isSingle; }

 private:
  document::Syntax m_syntax;
  document::Programs m_programs;
  document::NameNumbers m_names;
  document::ReaderOptions m_readerOptions;
  document::EncodeRules m_encodeRules;
  bool m_isSingle;
};

}  // namespace fdmorph::library
