#include "source/source_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "text/letter_case.h"
#include "text/utf8.h"

namespace fdmorph::compiler {
namespace {

std::size_t charactersIn(std::string_view text) {
  return text.size() -
         static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isUtf8Continuation));
}

bool readAll(int file, std::string& content) {
  std::size_t done = 0;
  for (;;) {
    // One byte more than is left shows the end without another turn.
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
  // A pipe would wait for its other end.
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
  struct stat state {};
  if (::stat(path.c_str(), &state) != 0) return std::strerror(errno);
  if (S_ISDIR(state.st_mode)) return std::strerror(EISDIR);
  if (!S_ISREG(state.st_mode)) return "Not a regular file";
  if (static_cast<std::size_t>(state.st_size) > DiskTree::kMaxFileSize) {
    return std::strerror(EFBIG);
  }
  return ::access(path.c_str(), R_OK) != 0 ? std::strerror(errno) : std::strerror(EIO);
}

SourceFile const* Sources::file(std::string const& path, std::string const& name) {
  auto known = m_files.find(path);
  if (known != m_files.end()) return known->second.get();
  std::optional<std::string> content = m_tree.read(path);
  if (!content) return nullptr;
  auto file = std::make_unique<SourceFile>(
      SourceFile{path, name.empty() ? path : name, std::move(*content)});
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
  std::string_view before = content.substr(0, offset);
  std::size_t begin = before.rfind('\n') + 1;  // npos + 1 is 0
  std::string_view text = content.substr(begin);
  text = text.substr(0, text.find('\n'));
  if (!text.empty() && text.back() == '\r') text.remove_suffix(1);
  return {file.name, static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1,
          charactersIn(before.substr(begin)) + 1, text};
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
        // Texts of one statement are opened in order.
        return a.offset != b.offset ? a.offset < b.offset : a.text < b.text;
      });
}

}  // namespace fdmorph::compiler
