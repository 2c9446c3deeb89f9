// The errors of one document's record while it is encoded.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "document/data_error.h"

namespace fdmorph::document {

/// Errors of a document in any order. Their number is bounded: of many the first in
/// the order of the document are kept.
class EncodeErrors {
 public:
  void clear() { m_errors.clear(); }
  void add(DataError error);

  /// Drops those that were added after the number was `size`. Valid as long as
  /// `isKeepingAll`.
  void truncate(std::size_t size) { m_errors.resize(std::min(size, m_errors.size())); }

  /// Errors are not dropped for their number while this is set.
  void keepAll(bool isKeepingAll) { m_isKeepingAll = isKeepingAll; }

  [[nodiscard]] std::vector<DataError>& all() { return m_errors; }
  [[nodiscard]] std::size_t size() const { return m_errors.size(); }
  [[nodiscard]] bool isEmpty() const { return m_errors.empty(); }

 private:
  std::vector<DataError> m_errors;
  bool m_isKeepingAll = false;
};

/// Sorts errors by line and column, and keeps the first `most`.
void sortErrors(std::vector<DataError>& errors, std::size_t most);

}  // namespace fdmorph::document
