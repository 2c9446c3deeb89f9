// Records from sources in memory as documents.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "document/decoder.h"
#include "support/record_source.h"

namespace fdmorph::document {

/// The documents of the first record of a copybook in free format. Data are ASCII, in
/// the sizes and byte orders of GnuCOBOL. Set the rules before the first call.
class Decoded {
 public:
  explicit Decoded(std::string const& copybook) : source(copybook) {
    auto opened = charset::CodePage::open("ascii");
    rules.conventions =
        values::makeConventions(compiler::Dialect::gnuCobol, opened.page).conventions;
  }

  /// The document of a record without its line feed, or the errors: "code offset path".
  std::string xml(std::string_view bytes, std::string_view counts = {}) {
    output.syntax = Syntax::xml;
    return convert(bytes, counts);
  }

  std::string json(std::string_view bytes, std::string_view counts = {}) {
    output.syntax = Syntax::json;
    return convert(bytes, counts);
  }

  layout::RecordSet const& set() {
    if (!m_set) {
      std::vector<record::RecordTree> trees;
      m_trees.push_back(std::move(source.tree));
      m_set = std::make_unique<layout::RecordSet>(m_trees, rules, when, source.diagnostics());
    }
    return *m_set;
  }

  record::RecordSource source;
  layout::LayoutRules rules;
  std::vector<std::string> when;
  OutputRules output{Syntax::xml, false, false, false};
  LengthRules lengths;

 private:
  static std::span<unsigned char const> bytesOf(std::string_view text) {
    return {reinterpret_cast<unsigned char const*>(text.data()), text.size()};
  }

  std::string convert(std::string_view bytes, std::string_view counts) {
    Programs programs(set(), output, source.diagnostics());
    if (source.diagnostics().hasErrors()) return source.reports();
    Decoder decoder(programs, lengths);
    TextBuffer text;
    DataErrors errors;
    bool isDecoded = decoder.decode({bytesOf(bytes), bytesOf(counts)}, text, errors);
    std::string result;
    for (DataError const& error : errors) {
      result += std::string(nameOf(error.code)) + ' ' + std::to_string(error.offset) + ' ' +
                error.path + '\n';
    }
    if (!isDecoded) return result;
    result = text.text();
    if (result.ends_with('\n')) result.pop_back();
    return result;
  }

  std::vector<record::RecordTree> m_trees;
  std::unique_ptr<layout::RecordSet> m_set;
};

}  // namespace fdmorph::document
