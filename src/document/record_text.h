// The text of a record of a document.
#pragma once

#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace fdmorph::document {

/// A text that is in memory; most of a long one is in a temporary file, as far as that
/// can be made. Its memory is used again.
class RecordText {
 public:
  /// The bytes of a text that are worth a file.
  static constexpr std::size_t kLong = std::size_t{1} << 20;

  void clear();
  [[nodiscard]] bool isEmpty() const { return m_memory.empty() && m_file == nullptr; }

  RecordText& operator+=(std::string_view text) {
    m_memory += text;
    return *this;
  }
  RecordText& operator+=(char c) {
    m_memory += c;
    return *this;
  }

  /// The bytes in memory: the whole text, if spill() was not called.
  [[nodiscard]] std::string const& memory() const { return m_memory; }

  /// Moves what is in memory from `begin` on, which is always the same place, to the
  /// file.
  void spill(std::size_t begin);

  /// Inserts a text at a place that is not after the one where spill() begins.
  void insert(std::size_t place, std::string_view text);

  /// Reads the text from an offset on, up to the size of `to`. The result is the number
  /// of bytes; fewer only at the end. Nothing must have been inserted, and spill() begins
  /// at 0.
  [[nodiscard]] std::size_t read(std::uint64_t offset, std::span<char> to) const;

  /// Gives the whole text to `write`, in pieces.
  void write(std::function<void(std::string_view)> const& write) const;

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  std::string m_memory;
  std::size_t m_filePlace = 0;  // in m_memory
  std::unique_ptr<std::FILE, CloseFile> m_file;
};

}  // namespace fdmorph::document
