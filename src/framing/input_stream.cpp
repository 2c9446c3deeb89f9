#include "framing/input_stream.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace fdmorph::framing {
namespace {

constexpr std::size_t kSkipBlock = std::size_t{64} << 10;
constexpr std::size_t kHeldBlock = std::size_t{256} << 10;
constexpr std::uint64_t kMaxRead = std::uint64_t{1} << 30;  // of one call of the system

bool isStandardInput(std::string const& path) {
  return path.empty() || path == "-";
}

}  // namespace

InputStream::~InputStream() {
  if (m_isOwned) ::close(m_file);
}

std::optional<std::string> InputStream::open(std::string const& path) {
  m_isOwned = !isStandardInput(path);
  m_file = m_isOwned ? ::open(path.c_str(), O_RDONLY | O_CLOEXEC) : STDIN_FILENO;
  struct stat state {};
  if (m_file < 0 || fstat(m_file, &state) != 0) {
    std::string reason = std::strerror(errno);
    m_isOwned = m_file >= 0 && m_isOwned;
    return reason;
  }
  if (S_ISDIR(state.st_mode)) return std::strerror(EISDIR);
  if (!S_ISREG(state.st_mode)) return std::nullopt;
  off_t const begin = lseek(m_file, 0, SEEK_CUR);  // the standard input may be used already
  if (begin < 0) return std::nullopt;
  // Files that the system makes up as they are read have the size 0, but bytes.
  char first = 0;
  if (state.st_size == 0 && pread(m_file, &first, 1, begin) != 0) return std::nullopt;
  m_isSeekable = true;
  m_end = static_cast<std::uint64_t>(std::max<off_t>(state.st_size - begin, 0));
  m_hasBytes = *m_end != 0;
  // A hint only.
  static_cast<void>(posix_fadvise(m_file, 0, 0, POSIX_FADV_SEQUENTIAL));
  return std::nullopt;
}

void InputStream::leaveTrailer(std::uint64_t bytes) {
  if (!m_end) {
    m_trailer = bytes;
    return;
  }
  if (bytes == 0) return;
  std::uint64_t const left = *m_end - std::min(*m_end, m_position);
  m_isTrailerPartial = left < bytes;
  m_end = *m_end - std::min(left, bytes);
  m_limit = m_end;
}

void InputStream::endAt(std::uint64_t offset) {
  m_limit = offset;
  m_end = std::min(m_end.value_or(offset), offset);
  m_trailer = 0;
}

std::uint64_t InputStream::room() const {
  if (!m_limit) return UINT64_MAX;
  return *m_limit - std::min(*m_limit, m_position);
}

std::size_t InputStream::read(char* to, std::size_t size) {
  std::size_t const wanted = static_cast<std::size_t>(std::min<std::uint64_t>(size, room()));
  std::size_t const got = m_trailer == 0 ? readFile(to, wanted) : readHeld(to, wanted);
  m_position += got;
  return got;
}

std::size_t InputStream::readFile(char* to, std::size_t size) {
  std::size_t done = 0;
  while (done < size && !m_failure) {
    std::size_t const step =
        static_cast<std::size_t>(std::min<std::uint64_t>(size - done, kMaxRead));
    ssize_t const got = ::read(m_file, to + done, step);
    if (got == 0) break;
    if (got > 0) {
      done += static_cast<std::size_t>(got);
      m_hasBytes = true;
    } else if (errno != EINTR) {
      m_failure = std::strerror(errno);
    }
  }
  return done;
}

// Hands out what is followed by the bytes of the trailer.
std::size_t InputStream::readHeld(char* to, std::size_t size) {
  std::size_t done = 0;
  while (done < size) {
    std::size_t const held = m_held.size() - m_heldBegin;
    if (held > m_trailer) {
      std::size_t const free = static_cast<std::size_t>(held - m_trailer);
      std::size_t const step = std::min(free, size - done);
      std::memcpy(to + done, m_held.data() + m_heldBegin, step);
      m_heldBegin += step;
      done += step;
      continue;
    }
    m_held.erase(m_held.begin(), m_held.begin() + static_cast<std::ptrdiff_t>(m_heldBegin));
    m_heldBegin = 0;
    m_held.resize(held + kHeldBlock);
    std::size_t const got = readFile(m_held.data() + held, kHeldBlock);
    m_held.resize(held + got);
    if (got == 0) {
      m_isTrailerPartial = held < m_trailer;
      break;
    }
  }
  return done;
}

std::uint64_t InputStream::skip(std::uint64_t size) {
  if (m_isSeekable) {
    // What is behind the end of the file is not passed over.
    std::uint64_t const left = *m_end - std::min(*m_end, m_position);
    std::uint64_t const step = std::min({size, left, room()});
    if (lseek(m_file, static_cast<off_t>(step), SEEK_CUR) >= 0) {
      m_position += step;
      return step;
    }
  }
  std::array<char, kSkipBlock> block;
  std::uint64_t done = 0;
  while (done < size) {
    std::size_t const step =
        static_cast<std::size_t>(std::min<std::uint64_t>(size - done, block.size()));
    std::size_t const got = read(block.data(), step);
    done += got;
    if (got < step) break;
  }
  return done;
}

}  // namespace fdmorph::framing
