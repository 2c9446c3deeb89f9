#include "fdrec/data_input.h"

#include <algorithm>

#include "fdrec/files.h"
#include "source/diagnostics.h"

namespace fdmorph::fdrec {

using framing::Format;

namespace {

/// Whether the bytes of an item can be a line feed by chance.
bool isBinary(values::ItemFormat const& format) {
  switch (format.kind) {
    case values::Kind::packed:
    case values::Kind::unsignedPacked:
    case values::Kind::binary:
    case values::Kind::floating:
      return true;
    default:
      return false;
  }
}

}  // namespace

DataInput::DataInput(std::string const& copybook, CommonOptions const& common, DataOptions& data,
                     TreeChange const& change)
    : m_common(common), m_data(data), m_rules(makeDataRules(common, data)) {
  if (data.binarySize) m_common.source.binarySize = data.binarySize;
  if (!m_rules.error.empty()) return;
  m_copybook.emplace(copybook, m_common);
  if (change) m_copybook->changeTrees(change);
  m_copybook->checkLayout();
  if (!m_copybook->isUsable() || diagnostics().hasErrors()) return;
  for (record::RecordTree const& tree : m_copybook->trees()) {
    if (tree.root().role == record::Role::element) continue;
    diagnostics().report(
        compiler::Code::layout, tree.root().item->place,
        "record " + compiler::quoted(record::dataNameOf(*tree.root().item)) + " has no XML name");
  }
  m_set = std::make_unique<layout::RecordSet>(m_copybook->trees(), m_rules.layout, data.when,
                                              diagnostics());
}

int DataInput::complete() {
  if (!m_rules.error.empty()) return refuse(m_rules.error);
  int status = m_copybook->status();
  if (!hasLayout() || diagnostics().hasErrors()) return status;
  m_status = status;
  if (!m_set->usageError().empty()) return refuse(m_set->usageError());
  return completeFraming();
}

int DataInput::finish() {
  int status = complete();
  if (hasCopybook()) static_cast<void>(m_copybook->finish());
  if (!m_usageError.empty()) printError(m_usageError, "usage");
  for (std::string const& each : m_lineWarnings) printWarning(each, "lines");
  return status;
}

int DataInput::refuse(std::string error) {
  m_usageError = std::move(error);
  return kUsageError;
}

int DataInput::completeFraming() {
  charset::CodePage const& page = *m_set->rules().conventions.codePage;
  std::string error = m_data.framing.complete(m_set->maxSize(), static_cast<char>(page.blank()));
  if (!error.empty()) return refuse(std::move(error));
  m_framing = m_data.framing.rules();
  if (m_framing.format == Format::lines) checkLines();
  if (!m_set->rules().hasCounts) return kClean;
  if (m_framing.format == Format::fixed) m_rules.lengths.countsAt = m_framing.recordLength;
  m_framing.recordLength += m_set->maxCountSize();
  m_framing.maxRecordLength += m_set->maxCountSize();
  return kClean;
}

// A line feed ends a record wherever it stands. One warning a record.
void DataInput::checkLines() {
  for (layout::Layout const& each : m_set->layouts()) {
    auto const count = static_cast<std::uint32_t>(each.tree().nodes().size());
    std::uint32_t item = 0;
    while (item < count && (each.item(item).item->isGroup() || !isBinary(each[item].format))) {
      ++item;
    }
    if (item == count) continue;
    m_lineWarnings.push_back("item " + compiler::quoted(record::dataNameOf(*each.item(item).item)) +
                             " of record " +
                             compiler::quoted(record::dataNameOf(*each.item(0).item)) +
                             " is binary or packed; its bytes can end a line");
    if (m_common.hasWarningsAsErrors) m_status = kErrors;
  }
}

}  // namespace fdmorph::fdrec
