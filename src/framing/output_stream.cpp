#include "framing/output_stream.h"

#include <unistd.h>

#include <cerrno>

namespace fdmorph::framing {
namespace {

bool writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t const written = ::write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

std::optional<std::string> OutputStream::open(std::string const& path) {
  m_isStandard = path.empty() || path == "-";
  if (!m_isStandard && m_file.begin(path) != FileReplacement::Start::opened) {
    m_failure = std::strerror(errno);
    return m_failure;
  }
  m_block = std::make_unique_for_overwrite<char[]>(kBlockBytes);
  m_used = 0;
  return std::nullopt;
}

// A long text goes out without being copied.
void OutputStream::writeLong(std::string_view bytes) {
  if (!flush()) return;
  if (bytes.size() >= kBlockBytes) return writeThrough(bytes);
  std::memcpy(m_block.get(), bytes.data(), bytes.size());
  m_used = bytes.size();
}

bool OutputStream::flush() {
  if (m_failure || !m_block) return false;
  std::string_view const text(m_block.get(), m_used);
  m_used = 0;
  writeThrough(text);
  return !m_failure;
}

void OutputStream::writeThrough(std::string_view bytes) {
  if (m_failure) return;
  bool const isWritten = m_isStandard ? writeAll(STDOUT_FILENO, bytes) : m_file.write(bytes);
  if (!isWritten) m_failure = std::strerror(errno);
}

bool OutputStream::commit() {
  if (!flush()) return false;
  if (!m_isStandard && !m_file.commit()) m_failure = std::strerror(errno);
  return !m_failure;
}

}  // namespace fdmorph::framing
