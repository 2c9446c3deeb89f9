// Documents to bytes, from sources and documents in tests.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "document/encoder.h"
#include "document_text.h"
#include "frontend/compiled_source.h"
#include "record/record_choice.h"
#include "source/diagnostic_output.h"
#include "support/memory_tree.h"

namespace fdmorph::document {

struct EncodingRules {
  EncodeRules encode;
  std::vector<std::string> records;  ///< their names; empty: the first
  std::vector<std::string> when;
  std::vector<layout::GivenCounter> counters;
  bool hasCounts = false;
  bool shifts = false;
  std::string codePage = "latin-1";
};

/// Printable bytes as they are, others as \xHH.
inline std::string printBytes(std::span<unsigned char const> bytes) {
  std::string text;
  for (unsigned char each : bytes) {
    if (each >= 0x20 && each < 0x7F) {
      text += static_cast<char>(each);
    } else {
      char code[5];
      std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned>(each));
      text += code;
    }
  }
  return text;
}

/// A compiled copybook in free format, and an encoder of its records. The data are in
/// ASCII, numbers as on a little-endian machine.
class Encoding {
 public:
  explicit Encoding(std::string const& source, EncodingRules rules = {})
      : m_source("a.cpy", options(), treeOf(source)),
        m_trees(treesOf(m_source, rules)),
        set(m_trees, layoutRules(rules), rules.when, m_source.diagnostics()),
        m_names(set.names(), rules.encode.isJson ? NameMatch::local : NameMatch::exact),
        m_encoder(set, m_names, rules.encode),
        m_isJson(rules.encode.isJson) {}

  /// What is wrong with the source or its rules; empty if nothing.
  std::string reports() const {
    if (!m_source.diagnostics().hasErrors()) return set.usageError();
    return compiler::printDiagnostics(m_source.diagnostics());
  }

  /// The record of a document: printable bytes as they are, others as \xHH; or its
  /// errors, "COLUMN PATH [code]" each, separated by "; ".
  std::string run(std::string_view document, std::vector<ByteRun> const& runs = {}) {
    if (!reports().empty()) return reports();
    errors.clear();
    DocumentText text(document, m_names);
    Instances const instances =
        m_isJson ? text.readJson(set.layouts()[0].item(0).name) : text.readXml();
    if (!m_encoder.encode(instances, errors, runs)) return printErrors();
    return printBytes(m_encoder.result().bytes);
  }

  compiler::Diagnostics& diagnostics() { return m_source.diagnostics(); }
  std::string counts() const { return printBytes(m_encoder.result().counts); }
  std::uint32_t record() const { return m_encoder.result().record; }

 private:
  static compiler::SourceOptions options() {
    compiler::SourceOptions options;
    options.reading.format = compiler::Format::free;
    return options;
  }

  compiler::MemoryTree& treeOf(std::string const& content) {
    m_files.files["a.cpy"] = content;
    return m_files;
  }

  static std::vector<record::RecordTree> treesOf(compiler::CompiledSource& source,
                                                 EncodingRules const& rules) {
    std::vector<record::RecordTree> trees;
    for (compiler::DataItem const* each : record::chooseRecords(source, {rules.records})) {
      trees.emplace_back(*each, record::NamingRules{}, source.diagnostics());
    }
    return trees;
  }

  static layout::LayoutRules layoutRules(EncodingRules const& rules) {
    auto page = charset::CodePage::open(rules.codePage).page;
    layout::LayoutRules result;
    result.conventions = values::makeConventions(compiler::Dialect::gnuCobol, page).conventions;
    result.tables = rules.shifts ? layout::TableForm::shifted : layout::TableForm::largest;
    result.counters = rules.counters;
    result.hasCounts = rules.hasCounts;
    return result;
  }

  std::string printErrors() const {
    std::string text;
    for (DataError const& each : errors) {
      if (!text.empty()) text += "; ";
      text += std::to_string(each.column) + " " + each.path + " [" +
              std::string(nameOf(each.code)) + "]";
    }
    return text;
  }

  compiler::MemoryTree m_files;
  compiler::CompiledSource m_source;
  std::vector<record::RecordTree> m_trees;

 public:
  layout::RecordSet set;
  DataErrors errors;

 private:
  NameNumbers m_names;
  Encoder m_encoder;
  bool m_isJson;
};

/// An encoding of JSON.
inline EncodingRules json(EncodingRules rules = {}) {
  rules.encode.isJson = true;
  return rules;
}

}  // namespace fdmorph::document
