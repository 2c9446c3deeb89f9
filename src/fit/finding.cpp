#include "fit/finding.h"

#include <algorithm>
#include <utility>

namespace fdmorph::fit {
namespace {

using compiler::Severity;

struct CodeRow {
  FindingCode code;
  std::string_view name;
  Severity severity;
};

constexpr std::array kCodes{
    CodeRow{FindingCode::noItem, "no-item", Severity::error},
    CodeRow{FindingCode::noElement, "no-element", Severity::error},
    CodeRow{FindingCode::occurs, "occurs", Severity::error},
    CodeRow{FindingCode::length, "length", Severity::error},
    CodeRow{FindingCode::lengthUnbounded, "length-unbounded", Severity::note},
    CodeRow{FindingCode::digits, "digits", Severity::error},
    CodeRow{FindingCode::fraction, "fraction", Severity::error},
    CodeRow{FindingCode::sign, "sign", Severity::error},
    CodeRow{FindingCode::digitsUnbounded, "digits-unbounded", Severity::note},
    CodeRow{FindingCode::category, "category", Severity::error},
    CodeRow{FindingCode::value, "value", Severity::warning},
    CodeRow{FindingCode::order, "order", Severity::note},
    CodeRow{FindingCode::choice, "choice", Severity::note},
    CodeRow{FindingCode::any, "any", Severity::note},
    CodeRow{FindingCode::mixed, "mixed", Severity::note},
    CodeRow{FindingCode::recursive, "recursive", Severity::note},
    CodeRow{FindingCode::substitution, "substitution", Severity::note},
    CodeRow{FindingCode::nillable, "nillable", Severity::note},
};

// A code is the index of its row.
constexpr bool isInOrder() {
  for (std::size_t i = 0; i < kCodes.size(); ++i) {
    if (static_cast<std::size_t>(kCodes[i].code) != i) return false;
  }
  return true;
}
static_assert(isInOrder());

}  // namespace

std::string_view nameOf(FindingCode code) {
  return kCodes[static_cast<std::size_t>(code)].name;
}

Severity severityOf(FindingCode code) {
  return kCodes[static_cast<std::size_t>(code)].severity;
}

void Findings::add(Finding finding) {
  ++m_counts[static_cast<std::size_t>(finding.severity)];
  if (m_kept.size() < kMaxKept) m_kept.push_back(std::move(finding));
}

void Findings::sort(compiler::Sources const& sources) {
  std::ranges::stable_sort(m_kept, [&sources](Finding const& left, Finding const& right) {
    compiler::Place const a = left.item;
    compiler::Place const b = right.item;
    if (!a.isKnown() || !b.isKnown()) return !a.isKnown() && b.isKnown();
    return a.text == b.text ? a.offset < b.offset : sources.isBefore(a, b);
  });
}

std::size_t Findings::count() const {
  return m_counts[0] + m_counts[1] + m_counts[2];
}

}  // namespace fdmorph::fit
