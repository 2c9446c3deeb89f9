// The bytes of an input file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace fdmorph::framing {

/// A file, or the standard input, that is read once from the beginning. Offsets are
/// in bytes from there. Nothing is buffered: callers read big blocks.
class InputStream {
 public:
  InputStream() = default;
  ~InputStream();
  InputStream(InputStream const&) = delete;
  InputStream& operator=(InputStream const&) = delete;

  /// Opens a file, or the standard input if `path` is empty or "-". The result is the
  /// reason of a failure, in words, or nothing. To be called once.
  [[nodiscard]] std::optional<std::string> open(std::string const& path);

  /// Leaves out the last bytes of the file. In a file of unknown size this many bytes
  /// are held in memory. To be called before the first read.
  void leaveTrailer(std::uint64_t bytes);

  /// Ends the data at an offset. There is no trailer then.
  void endAt(std::uint64_t offset);

  /// Reads up to `size` bytes; fewer only at the end of the data and after a failure.
  [[nodiscard]] std::size_t read(char* to, std::size_t size);

  /// Passes over bytes, without reading them where the file allows. The result is
  /// their number; fewer than `size` only at the end of the data and after a failure.
  std::uint64_t skip(std::uint64_t size);

  /// Offset of the next byte.
  [[nodiscard]] std::uint64_t position() const { return m_position; }

  /// Offset after the last byte of the data, if it is known: that of a regular file.
  [[nodiscard]] std::optional<std::uint64_t> end() const { return m_end; }

  /// Whether the file has fewer bytes than the trailer. Known at the end of the data.
  [[nodiscard]] bool isTrailerPartial() const { return m_isTrailerPartial; }

  /// Whether the file, trailer included, has any byte. Known at the end of the data.
  [[nodiscard]] bool hasBytes() const { return m_hasBytes; }

  /// Why the data could not be read to the end, in words.
  [[nodiscard]] std::optional<std::string> const& failure() const { return m_failure; }

 private:
  std::size_t readFile(char* to, std::size_t size);
  std::size_t readHeld(char* to, std::size_t size);
  std::uint64_t room() const;

  int m_file = -1;
  bool m_isOwned = false;
  bool m_isSeekable = false;
  std::uint64_t m_position = 0;
  std::optional<std::uint64_t> m_end;    // of the data, if known
  std::optional<std::uint64_t> m_limit;  // nothing is read beyond
  std::uint64_t m_trailer = 0;           // bytes to hold back
  std::vector<char> m_held;              // read, but perhaps of the trailer
  std::size_t m_heldBegin = 0;
  bool m_isTrailerPartial = false;
  bool m_hasBytes = false;
  std::optional<std::string> m_failure;
};

}  // namespace fdmorph::framing
