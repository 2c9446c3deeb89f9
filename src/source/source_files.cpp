#include "source/source_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "text/utf8.h"

namespace fdmorph::compiler {
namespace {

constexpr std::size_t kFirstBlock = std::size_t{64} << 10;  // bytes

std::size_t characterLength(std::string_view text) {
  return std::max<std::size_t>(utf8Length(text), 1);
}

bool readAll(int file, std::string& content) {
  std::size_t done = 0;
  for (;;) {
    // A buffer that is one byte too large shows the end of the file in one read.
    if (done == content.size()) content.resize(content.size() * 2);
    ssize_t got = ::read(file, content.data() + done, content.size() - done);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return false;
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
    if (done > DiskTree::kMaxFileSize) return false;
  }
  content.resize(done);
  return true;
}

}  // namespace

std::optional<std::string> DiskTree::read(std::string const& path) {
  if (path == kStandardInput) {
    std::optional<std::string> content(std::in_place, kFirstBlock, '\0');
    if (!readAll(STDIN_FILENO, *content)) content.reset();
    return content;
  }
  // Opening a pipe must not block.
  int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) return std::nullopt;
  struct stat state {};
  bool isRegular = ::fstat(file, &state) == 0 && S_ISREG(state.st_mode);
  std::optional<std::string> content;
  if (isRegular && static_cast<std::size_t>(state.st_size) <= kMaxFileSize) {
    content.emplace(static_cast<std::size_t>(state.st_size) + 1, '\0');
    if (!readAll(file, *content)) content.reset();
  }
  ::close(file);
  return content;
}

std::string whyUnreadable(std::string const& path) {
  if (path == kStandardInput) return std::strerror(EIO);
  struct stat state {};
  if (::stat(path.c_str(), &state) != 0) return std::strerror(errno);
  if (S_ISDIR(state.st_mode)) return std::strerror(EISDIR);
  if (!S_ISREG(state.st_mode)) return "Not a regular file";
  if (static_cast<std::size_t>(state.st_size) > DiskTree::kMaxFileSize) {
    return std::strerror(EFBIG);
  }
  return ::access(path.c_str(), R_OK) != 0 ? std::strerror(errno) : std::strerror(EIO);
}

LineTable::LineTable(std::string_view content) {
  m_begins.push_back(content.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0);
  for (std::size_t at = content.find('\n'); at != std::string_view::npos;
       at = content.find('\n', at + 1)) {
    m_begins.push_back(static_cast<std::uint32_t>(at + 1));
  }
}

std::size_t LineTable::lineAt(std::size_t offset) const {
  auto next = std::upper_bound(m_begins.begin(), m_begins.end(), offset);
  return next == m_begins.begin() ? 0 : static_cast<std::size_t>(next - m_begins.begin()) - 1;
}

SourceFile const* Sources::file(std::string const& path, std::string const& name) {
  auto known = m_files.find(path);
  if (known != m_files.end()) return known->second.get();
  std::optional<std::string> content = m_tree.read(path);
  if (!content) return nullptr;
  LineTable lines(*content);
  auto file = std::make_unique<SourceFile>(
      SourceFile{path, name.empty() ? path : name, std::move(*content), std::move(lines)});
  return (m_files[path] = std::move(file)).get();
}

std::uint32_t Sources::open(SourceFile const* file, Place copiedFrom) {
  m_texts.push_back({file, copiedFrom});
  return static_cast<std::uint32_t>(m_texts.size() - 1);
}

LinePlace Sources::locate(Place place) const {
  SourceFile const& file = *m_texts[place.text].file;
  std::string_view content = file.content;
  std::size_t offset = std::min<std::size_t>(place.offset, content.size());
  std::size_t line = file.lines.lineAt(offset);
  std::size_t begin = file.lines.beginOf(line);
  std::string_view text = content.substr(begin, content.find('\n', begin) - begin);
  if (!text.empty() && text.back() == '\r') text.remove_suffix(1);
  std::string_view before = content.substr(begin, offset - std::min(offset, begin));
  return {file.name, line + 1, countCharacters(before) + 1, text};
}

std::vector<Place> Sources::pathTo(Place place) const {
  std::vector<Place> path;
  for (; place.isKnown(); place = m_texts[place.text].copiedFrom) path.push_back(place);
  std::reverse(path.begin(), path.end());
  return path;
}

bool Sources::isBefore(Place left, Place right) const {
  std::vector<Place> lefts = pathTo(left);
  std::vector<Place> rights = pathTo(right);
  return std::lexicographical_compare(
      lefts.begin(), lefts.end(), rights.begin(), rights.end(), [](Place a, Place b) {
        // One statement may include several texts; their numbers ascend.
        return a.offset != b.offset ? a.offset < b.offset : a.text < b.text;
      });
}

std::size_t countCharacters(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(characterLength(text));
  return count;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (; end < text.size() && count > 0; --count) end += characterLength(text.substr(end));
  return text.substr(0, end);
}

}  // namespace fdmorph::compiler
