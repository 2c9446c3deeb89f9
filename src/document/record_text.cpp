#include "document/record_text.h"

#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace fdmorph::document {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 16;  // bytes

}  // namespace

void RecordText::clear() {
  m_memory.clear();
  m_file.reset();
  m_filePlace = 0;
}

// What cannot be written stays in memory.
void RecordText::spill(std::size_t begin) {
  bool const isNew = m_file == nullptr;
  if (isNew) m_file.reset(std::tmpfile());
  if (m_file == nullptr) return;
  if (isNew) m_filePlace = begin;
  std::size_t const size = m_memory.size() - m_filePlace;
  long const before = std::ftell(m_file.get());
  bool const isWritten =
      std::fwrite(m_memory.data() + m_filePlace, 1, size, m_file.get()) == size &&
      std::fflush(m_file.get()) == 0;
  if (isWritten) {
    m_memory.resize(m_filePlace);
  } else if (std::fseek(m_file.get(), before, SEEK_SET) != 0 && isNew) {
    m_file.reset();
  }
}

void RecordText::insert(std::size_t place, std::string_view text) {
  m_memory.insert(place, text);
  if (m_file != nullptr) m_filePlace += text.size();
}

std::size_t RecordText::read(std::uint64_t offset, std::span<char> to) const {
  std::uint64_t inFile = 0;
  if (m_file != nullptr) inFile = static_cast<std::uint64_t>(std::ftell(m_file.get()));
  std::size_t done = 0;
  while (done < to.size() && offset < inFile) {
    std::size_t const size =
        static_cast<std::size_t>(std::min<std::uint64_t>(to.size() - done, inFile - offset));
    ssize_t const got =
        ::pread(fileno(m_file.get()), to.data() + done, size, static_cast<off_t>(offset));
    if (got <= 0) return done;
    done += static_cast<std::size_t>(got);
    offset += static_cast<std::uint64_t>(got);
  }
  std::uint64_t const begin = offset - std::min(offset, inFile);
  if (offset < inFile || begin >= m_memory.size()) return done;
  std::size_t const at = static_cast<std::size_t>(begin);
  std::size_t const size = std::min(to.size() - done, m_memory.size() - at);
  std::memcpy(to.data() + done, m_memory.data() + at, size);
  return done + size;
}

void RecordText::write(std::function<void(std::string_view)> const& write) const {
  std::string_view const memory(m_memory);
  if (m_file == nullptr) return write(memory);
  write(memory.substr(0, m_filePlace));
  std::vector<char> block(kBlock);
  std::uint64_t offset = 0;
  auto const end = static_cast<std::uint64_t>(std::ftell(m_file.get()));
  while (offset < end) {
    std::size_t const most = std::min<std::uint64_t>(kBlock, end - offset);
    std::size_t const size = read(offset, std::span(block).first(most));
    if (size == 0) break;
    write({block.data(), size});
    offset += size;
  }
  write(memory.substr(m_filePlace));
}

}  // namespace fdmorph::document
