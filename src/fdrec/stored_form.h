// The bytes of a record as they stand in a file, its count record included.
#pragma once

#include <string>
#include <string_view>

#include "document/encoder.h"
#include "document/residue.h"
#include "fdrec/data_input.h"

namespace fdmorph::fdrec {

/// Assembles records. Its memory is used again for each.
class StoredForm {
 public:
  /// `input` must outlive this object.
  explicit StoredForm(DataInput const& input) : m_input(input) {}

  /// The data of a record without a descriptor or line end. `residue` takes the place of
  /// what the document gave. Valid until the next call, and as
  /// long as the bytes of `record` are.
  [[nodiscard]] std::string_view assemble(document::EncodedRecord const& record,
                                          document::Residue const& residue = {});

 private:
  void append(std::span<unsigned char const> bytes) {
    m_bytes.append(reinterpret_cast<char const*>(bytes.data()), bytes.size());
  }

  DataInput const& m_input;
  std::string m_bytes;
};

}  // namespace fdmorph::fdrec
