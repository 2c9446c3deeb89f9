// A file with the residues of records, read along with their documents.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "document/residue.h"
#include "framing/input_stream.h"

namespace fdmorph::fdrec {

class ResidueFile {
 public:
  /// Opens the file, and prints why it cannot be read. The result is an exit status.
  [[nodiscard]] int open(std::string const& path);

  /// Reads the residue of a record into `residue`, which is empty if the file has none.
  /// The numbers must not decrease from call to call. False after an error in the file,
  /// which is printed.
  [[nodiscard]] bool read(std::uint64_t number, document::Residue& residue);

 private:
  [[nodiscard]] bool readLine();
  [[nodiscard]] bool fail(std::string const& found);

  std::string m_path;
  framing::InputStream m_input;
  std::string m_buffer;
  std::size_t m_begin = 0;  // of what is not read yet
  std::uint64_t m_lineNumber = 0;
  std::optional<std::string> m_line;  // read, but of a later record
};

}  // namespace fdmorph::fdrec
