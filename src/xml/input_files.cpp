#include "xml/input_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace fdmorph {
namespace {

constexpr std::size_t kBlockSize = std::size_t{64} << 10;

InputFile::Kind kindOf(std::string const& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return InputFile::Kind::other;
  if (S_ISREG(status.st_mode)) return InputFile::Kind::regular;
  if (S_ISDIR(status.st_mode)) return InputFile::Kind::directory;
  return S_ISFIFO(status.st_mode) ? InputFile::Kind::pipe : InputFile::Kind::other;
}

std::string canonicalPath(std::string const& path) {
  std::error_code error;
  std::filesystem::path canonical = std::filesystem::weakly_canonical(path, error);
  return error ? path : canonical.string();
}

}  // namespace

InputFile::InputFile(std::string path, bool mayBePipe)
    : m_path(std::move(path)),
      m_name(canonicalPath(m_path)),
      m_kind(kindOf(m_path)),
      m_mayBePipe(mayBePipe) {}

InputFile::~InputFile() {
  if (m_descriptor >= 0) close(m_descriptor);
}

bool InputFile::canBeRead() {
  if (m_canBeRead) return *m_canBeRead;
  if (m_kind == Kind::regular) {
    // Another file may have taken the name since. Opening a FIFO must not wait.
    m_descriptor = open(m_path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat status {};
    if (m_descriptor >= 0 && (fstat(m_descriptor, &status) != 0 || !S_ISREG(status.st_mode))) {
      close(std::exchange(m_descriptor, -1));
    }
  } else if (m_kind == Kind::pipe && m_mayBePipe) {
    m_descriptor = open(m_path.c_str(), O_RDONLY | O_CLOEXEC);
  }
  m_canBeRead = m_descriptor >= 0;
  return *m_canBeRead;
}

// False after a read error. Closes the file at its end.
bool InputFile::readBlock() {
  std::size_t const known = m_bytes.size();
  m_bytes.resize(known + kBlockSize);
  ssize_t count = -1;
  do {
    count = ::read(m_descriptor, m_bytes.data() + known, kBlockSize);
  } while (count < 0 && errno == EINTR);
  m_bytes.resize(known + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  if (count == 0) close(std::exchange(m_descriptor, -1));
  return count >= 0;
}

std::optional<std::size_t> InputFile::read(std::size_t offset, std::span<std::byte> target) {
  while (m_descriptor >= 0 && m_bytes.size() < offset + target.size()) {
    if (!readBlock()) return std::nullopt;
  }
  if (offset >= m_bytes.size()) return 0;
  std::size_t count = std::min(target.size(), m_bytes.size() - offset);
  std::memcpy(target.data(), m_bytes.data() + offset, count);
  return count;
}

std::string_view InputFile::textBeforeZero() {
  std::size_t zero = m_bytes.find('\0');
  while (zero == std::string::npos && m_descriptor >= 0) {
    std::size_t const known = m_bytes.size();
    if (!readBlock()) break;
    zero = m_bytes.find('\0', known);
  }
  return std::string_view(m_bytes).substr(0, zero);
}

std::shared_ptr<InputFile> const& InputFiles::at(std::string const& path) {
  std::shared_ptr<InputFile>& file = m_spellings[path];
  if (file == nullptr) {
    auto found = std::make_shared<InputFile>(path);
    file = m_files.try_emplace(found->name(), found).first->second;
  }
  return file;
}

void InputFiles::clear() {
  m_spellings.clear();
  m_files.clear();
  m_references = SchemaReferences();
}

}  // namespace fdmorph
