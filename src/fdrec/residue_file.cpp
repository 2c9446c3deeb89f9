#include "fdrec/residue_file.h"

#include "fdrec/command.h"
#include "fdrec/files.h"
#include "fdrec/framing_options.h"
#include "source/diagnostics.h"

namespace fdmorph::fdrec {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{1} << 16;

}  // namespace

int ResidueFile::open(std::string const& path) {
  m_path = path;
  if (auto why = m_input.open(path)) {
    printReadFailure(path, *why);
    return kFailed;
  }
  if (!readLine() || m_line != document::kResidueHead) {
    printError(path + ":1: expected '" + std::string(document::kResidueHead) + "'", "residue");
    return kErrors;
  }
  m_line.reset();
  return kClean;
}

// Reads the next line into m_line. False at the end of the file.
bool ResidueFile::readLine() {
  std::size_t end = m_buffer.find('\n', m_begin);
  while (end == std::string::npos) {
    m_buffer.erase(0, m_begin);
    m_begin = 0;
    std::size_t size = m_buffer.size();
    m_buffer.resize(size + kBlockBytes);
    std::size_t read = m_input.read(m_buffer.data() + size, kBlockBytes);
    m_buffer.resize(size + read);
    if (read == 0) {
      m_line.reset();
      return false;
    }
    end = m_buffer.find('\n', size);
  }
  ++m_lineNumber;
  m_line = m_buffer.substr(m_begin, end - m_begin);
  m_begin = end + 1;
  return true;
}

bool ResidueFile::read(std::uint64_t number, document::Residue& residue) {
  residue.clear();
  while (m_line || readLine()) {
    document::Residue line;
    std::optional<std::uint64_t> found = document::addResidueLine(*m_line, line);
    if (!found) return fail(*m_line);
    if (*found > number) return true;
    if (*found == number) static_cast<void>(document::addResidueLine(*m_line, residue));
    m_line.reset();
  }
  if (m_input.failure()) {
    printReadFailure(m_path, *m_input.failure());
    return false;
  }
  return true;
}

bool ResidueFile::fail(std::string const& found) {
  printError(m_path + ':' + std::to_string(m_lineNumber) +
                 ": expected the number of a record, an offset and bytes, found " +
                 compiler::quoted(found),
             "residue");
  return false;
}

}  // namespace fdmorph::fdrec
