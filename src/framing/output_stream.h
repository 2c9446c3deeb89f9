// The bytes of an output file.
#pragma once

#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "text/file_replacement.h"

namespace fdmorph::framing {

/// A file that is replaced as a whole, or the standard output, written in blocks of
/// 1 MB. After a failed write it accepts nothing. A run may have several.
class OutputStream {
 public:
  OutputStream() = default;
  OutputStream(OutputStream const&) = delete;
  OutputStream& operator=(OutputStream const&) = delete;

  /// Begins a new version of a file; the standard output if `path` is empty or "-".
  /// The result is the reason of a failure, in words, or nothing. To be called once.
  [[nodiscard]] std::optional<std::string> open(std::string const& path);

  /// Appends bytes. Blocks are written when they are full; failure() says whether
  /// that failed.
  void write(std::string_view bytes) {
    if (bytes.empty()) return;
    if (bytes.size() > kBlockBytes - m_used) return writeLong(bytes);
    std::memcpy(m_block.get() + m_used, bytes.data(), bytes.size());
    m_used += bytes.size();
  }

  /// Writes what is collected. False after any failure.
  bool flush();

  /// Completes the output and puts a file in place. Without this call an earlier file
  /// stays as it is. False after any failure; then an earlier file stays, too.
  [[nodiscard]] bool commit();

  /// Whether this is the standard output: what was written cannot be taken back.
  [[nodiscard]] bool isStandardOutput() const { return m_isStandard; }

  /// Why something could not be written, in words.
  [[nodiscard]] std::optional<std::string> const& failure() const { return m_failure; }

 private:
  static constexpr std::size_t kBlockBytes = std::size_t{1} << 20;

  void writeLong(std::string_view bytes);
  void writeThrough(std::string_view bytes);

  FileReplacement m_file;
  bool m_isStandard = false;
  std::unique_ptr<char[]> m_block;
  std::size_t m_used = kBlockBytes;  // of the block; full as long as there is none
  std::optional<std::string> m_failure;
};

}  // namespace fdmorph::framing
