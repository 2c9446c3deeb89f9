#include "text/output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>

#include "text/console.h"

namespace fdmorph {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{64} << 10;
constexpr int kMaxTries = 100;
constexpr mode_t kMode = 0666;  // less what the user masks

bool writeAll(int file, std::string const& content) {
  std::size_t done = 0;
  while (done < content.size()) {
    ssize_t written = ::write(file, content.data() + done, content.size() - done);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    done += static_cast<std::size_t>(written);
  }
  return true;
}

int createBeside(std::string const& path, std::string& name) {
  for (int i = 0; i < kMaxTries; ++i) {
    // The file's own name may be as long as a name can be.
    name = folderOf(path) + ".zbc-" + std::to_string(::getpid()) + "-" + std::to_string(i) + ".tmp";
    int file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kMode);
    if (file >= 0 || errno != EEXIST) return file;
  }
  return -1;
}

}  // namespace

OutputFile::~OutputFile() {
  finish();
}

bool OutputFile::open(std::string const& name) {
  if (name.empty()) return false;
  m_name = name;
  m_block = std::make_unique_for_overwrite<char[]>(kBlockBytes);
  m_file.rdbuf()->pubsetbuf(m_block.get(), static_cast<std::streamsize>(kBlockBytes));
  m_file.open(name, std::ios::out | std::ios::trunc);
  return m_file.is_open();
}

// Text must pass through one stream, whose state then tells of every loss.
std::ostream& OutputFile::stream() {
  return m_file.is_open() && !m_isAimed ? m_file : std::cout;
}

void OutputFile::aimStandardOutput() {
  if (!m_file.is_open() || m_isAimed) return;
  m_savedBuffer = redirectOutput(m_file.rdbuf());
  m_isAimed = true;
}

bool OutputFile::close() {
  if (!m_file.is_open()) return false;
  bool isComplete = finish();
  if (!isComplete) reportWriteFailure(m_name);
  return isComplete;
}

// False if some text did not reach the file.
bool OutputFile::finish() {
  if (!m_file.is_open()) return true;
  bool isLost = m_isAimed && std::cout.bad();
  m_file.close();
  if (m_isAimed) redirectOutput(m_savedBuffer);
  m_isAimed = false;
  return !isLost && !m_file.fail();
}

std::string folderOf(std::string_view path) {
  std::size_t slash = path.rfind('/');
  return std::string(slash == std::string_view::npos ? std::string_view()
                                                     : path.substr(0, slash + 1));
}

std::optional<std::string> replaceFile(std::string const& path, std::string const& content) {
  std::string name;
  int file = createBeside(path, name);
  if (file < 0) return std::strerror(errno);
  bool isWritten = writeAll(file, content);
  int fault = errno;
  bool isClosed = ::close(file) == 0;
  if (isWritten && !isClosed) fault = errno;
  bool isInPlace = isWritten && isClosed && std::rename(name.c_str(), path.c_str()) == 0;
  if (isWritten && isClosed && !isInPlace) fault = errno;
  if (isInPlace) return std::nullopt;
  ::unlink(name.c_str());
  return std::strerror(fault);
}

}  // namespace fdmorph
