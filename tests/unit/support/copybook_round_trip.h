// What a data division has, as text, and whether writing it again keeps that.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "copybook/copybook_writer.h"
#include "frontend/compiled_source.h"
#include "record/record_tree.h"
#include "source/diagnostic_output.h"
#include "source/literals.h"
#include "support/memory_tree.h"

namespace fdmorph::copybook {

/// A source in memory with its data.
struct MemorySource {
  MemorySource(std::string const& text, LineForm form,
               compiler::Dialect dialect = compiler::Dialect::gnuCobol) {
    compiler::SourceOptions options;
    if (form == LineForm::free) options.reading.format = compiler::Format::free;
    options.dialect = dialect;
    tree.files["a.cpy"] = text;
    source = std::make_unique<compiler::CompiledSource>("a.cpy", options, tree);
  }

  std::string errors() const {
    if (!source->diagnostics().hasErrors()) return {};
    return printDiagnostics(source->diagnostics(), compiler::DiagnosticStyle::plain, "test");
  }

  compiler::MemoryTree tree;
  std::unique_ptr<compiler::CompiledSource> source;
};

inline std::vector<compiler::DataItem const*> recordsOf(compiler::RecordList const& list) {
  std::vector<compiler::DataItem const*> records;
  for (auto const* each = list.first; each != nullptr; each = each->next) records.push_back(each);
  return records;
}

// The content of a literal: what is written may have other quotes.
inline std::string describe(compiler::Literal const& value) {
  std::string text = std::to_string(static_cast<int>(value.kind)) + (value.isAll ? " all " : " ");
  if (value.kind == compiler::Literal::Kind::number) text += value.text;
  if (value.kind == compiler::Literal::Kind::text) {
    text += compiler::isNationalLiteral(value.text) ? "national " : "";
    text += compiler::decodeLiteral(value.text).text;
  }
  return text;
}

inline std::string describe(compiler::QualifiedName const& name) {
  std::string text(name.name);
  for (std::string_view each : name.qualifiers) (text += " of ") += each;
  return text;
}

inline std::string describe(compiler::OccursClause const& occurs) {
  std::string text =
      " occurs " + std::to_string(occurs.least) + " to " + std::to_string(occurs.most);
  for (std::size_t i = 0; i < occurs.keys.size(); ++i) {
    text += occurs.keyOrders[i] == compiler::KeyOrder::ascending ? " up " : " down ";
    text += describe(occurs.keys[i]);
  }
  for (std::string_view each : occurs.indexes) (text += " index ") += each;
  return text;
}

inline std::string describe(compiler::XmlClauses const& xml) {
  return " identified " + describe(xml.identifiedBy) + " namespace " + describe(xml.namespaceName) +
         (xml.isAttribute ? " attribute" : "") + " count " + std::string(xml.countIn.name);
}

/// An item with all that its storage, values and documents depend on, on one line.
inline std::string describe(compiler::DataItem const& item, bool hasXml) {
  auto number = [](auto value) { return " " + std::to_string(value); };
  bool isRenames = item.level == compiler::kRenamesLevel;
  std::string text = std::to_string(item.level) + " ";
  text += record::dataNameOf(item);
  text += number(item.offset) + number(item.size) + number(item.slack);
  if (item.picture != nullptr && !isRenames) text += " picture " + item.picture->text;
  text += number(static_cast<int>(item.effectiveUsage)) + (item.isUnsigned ? " unsigned" : "");
  text += number(static_cast<int>(item.effectiveSign.position));
  text += item.effectiveSign.isSeparate ? " separate" : "";
  text += item.isJustified ? " justified" : "";
  text += item.isBlankWhenZero ? " blank" : "";
  text += item.isSynchronized ? " synchronized" : "";
  if (item.redefined != nullptr) text += " redefines " + number(item.redefined->offset);
  if (item.occurs) text += describe(*item.occurs);
  if (item.dependingOn != nullptr) text += " depending " + number(item.dependingOn->offset);
  for (auto const& each : item.values) text += " value " + describe(each.from) + describe(each.to);
  if (item.falseValue) text += " false " + describe(*item.falseValue);
  if (isRenames && item.related) text += " renames " + describe(*item.related);
  if (isRenames && item.through) text += " through " + describe(*item.through);
  if (hasXml && item.xml) text += describe(*item.xml);
  return text + "\n";
}

/// The items in their order, a line each.
inline std::string describeItems(std::vector<compiler::DataItem const*> const& items, bool hasXml) {
  std::string text;
  for (auto const* item : items) {
    if (!item->isImplied) text += describe(*item, hasXml);
    for (auto const* first : {item->firstCondition, item->firstChild}) {
      std::vector<compiler::DataItem const*> parts;
      for (auto const* each = first; each != nullptr; each = each->next) parts.push_back(each);
      text += describeItems(parts, hasXml);
    }
  }
  return text;
}

}  // namespace fdmorph::copybook
