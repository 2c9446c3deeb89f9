#include "document/encode_errors.h"

#include <tuple>

namespace fdmorph::document {
namespace {

// The errors that are kept while there are more; enough that sorting them is rare.
constexpr std::size_t kMaxKept = 64 * kMaxErrorsPerRecord;

}  // namespace

void EncodeErrors::add(DataError error) {
  m_errors.push_back(std::move(error));
  if (!m_isKeepingAll && m_errors.size() > kMaxKept) sortErrors(m_errors, kMaxErrorsPerRecord);
}

void sortErrors(std::vector<DataError>& errors, std::size_t most) {
  std::ranges::stable_sort(errors, [](DataError const& a, DataError const& b) {
    return std::tie(a.line, a.column) < std::tie(b.line, b.column);
  });
  if (errors.size() > most) errors.resize(most);
}

}  // namespace fdmorph::document
