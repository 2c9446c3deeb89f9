// Single items, compiled from the clauses of a data description.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "frontend/compiled_source.h"
#include "support/memory_tree.h"
#include "values/comparand.h"
#include "values/values.h"

namespace fdmorph::values {

using Bytes = std::vector<unsigned char>;

/// Bytes from hexadecimal digits; blanks are left out.
inline Bytes hex(std::string_view digits) {
  std::string text;
  for (char c : digits) {
    if (c != ' ') text += c;
  }
  Bytes bytes;
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
    bytes.push_back(static_cast<unsigned char>(std::stoul(text.substr(i, 2), nullptr, 16)));
  }
  return bytes;
}

inline std::string hexOf(Bytes const& bytes) {
  std::string text;
  for (unsigned char each : bytes) {
    text += "0123456789ABCDEF"[each >> 4U];
    text += "0123456789ABCDEF"[each & 0xFU];
  }
  return text;
}

inline Conventions conventionsOf(compiler::Dialect dialect, char const* encoding) {
  ConventionsResult result = makeConventions(dialect, charset::CodePage::open(encoding).page);
  EXPECT_EQ(result.error, "");
  return result.conventions;
}

inline Conventions ibm() {
  return conventionsOf(compiler::Dialect::ibm, "cp037");
}
inline Conventions gnuCobol() {
  return conventionsOf(compiler::Dialect::gnuCobol, "utf-8");
}

/// An item of a record, as `05 ITEM` with clauses.
class OneItem {
 public:
  OneItem(std::string const& clauses, Conventions const& conventions,
          compiler::Dialect dialect = compiler::Dialect::gnuCobol,
          std::string const& before = "01 R.\n")
      : m_source("a.cpy", options(dialect), treeOf(before + " 05 ITEM " + clauses + ".\n")),
        values(conventions) {
    for (compiler::DataItem const& each : m_source.data().items) {
      if (each.name == "ITEM") m_item = &each;
    }
    EXPECT_FALSE(m_source.diagnostics().hasErrors()) << clauses;
    format = makeItemFormat(*m_item, conventions);
  }

  compiler::DataItem const& item() const { return *m_item; }

  /// The text of the bytes, or the code of the error in brackets.
  template <Target target = Target::xmlText>
  std::string textOf(Bytes const& bytes) const {
    EXPECT_EQ(bytes.size(), format.size);
    std::vector<char> out(Values::maxTextSize(format));
    DecodeResult const result = values.decode<target>(format, bytes.data(), out.data());
    if (result.error != ValueError::none) return '[' + nameOf(result.error) + ']';
    if (result.isOmitted) return "(omitted)";
    return {out.data(), result.end};
  }
  std::string textOf(std::string_view digits) const { return textOf(hex(digits)); }

  /// The bytes of a text in hexadecimal digits, or the code of the error in brackets.
  std::string bytesOf(std::string_view text, NumberSyntax syntax = NumberSyntax::decimal) const {
    Bytes bytes(format.size, 0xEE);
    EncodeResult const result = values.encode(format, text, bytes.data(), syntax);
    return result.error == ValueError::none ? hexOf(bytes) : '[' + nameOf(result.error) + ']';
  }

  static std::string nameOf(ValueError error) {
    constexpr char const* kNames[] = {"none",   "digit",    "range",     "character",
                                      "number", "overflow", "precision", "length"};
    return kNames[static_cast<std::size_t>(error)];
  }

 private:
  static compiler::SourceOptions options(compiler::Dialect dialect) {
    compiler::SourceOptions options;
    options.reading.format = compiler::Format::free;
    options.dialect = dialect;
    return options;
  }

  compiler::MemoryTree& treeOf(std::string const& content) {
    m_files.files["a.cpy"] = content;
    return m_files;
  }

  compiler::MemoryTree m_files;
  compiler::CompiledSource m_source;
  compiler::DataItem const* m_item = nullptr;

 public:
  Values values;
  ItemFormat format;
};

/// An item of data in EBCDIC, and one in UTF-8.
inline OneItem ibmItem(std::string const& clauses, Conventions const& conventions = ibm()) {
  return OneItem(clauses, conventions, compiler::Dialect::ibm);
}
inline OneItem gnuItem(std::string const& clauses, Conventions const& conventions = gnuCobol()) {
  return OneItem(clauses, conventions);
}

}  // namespace fdmorph::values
