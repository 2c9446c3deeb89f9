// Files that the programs write.
#pragma once

#include <fstream>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace fdmorph {

/// A text output that goes to a file, or to the standard output stream if no
/// file is open. The destructor closes the file and restores the buffer of the
/// standard output stream; only close() reports a failed write.
class OutputFile {
 public:
  OutputFile() = default;
  ~OutputFile();
  OutputFile(OutputFile const&) = delete;
  OutputFile& operator=(OutputFile const&) = delete;

  /// Creates the file `name`, or truncates it. It is written in blocks of
  /// 64 KB. False, without a message, if it cannot be opened; an empty name
  /// never can. To be called once.
  [[nodiscard]] bool open(std::string const& name);

  bool isOpen() const { return m_file.is_open(); }

  /// The stream to write to.
  std::ostream& stream();

  /// Redirects the standard output stream to the file until the file is closed.
  /// Does nothing if no file is open. Redirections nest: the last one must end
  /// first.
  void aimStandardOutput();

  /// Completes the file and restores the buffer of the standard output stream.
  /// Text that did not reach the file is reported by reportWriteFailure.
  /// False in that case, and if no file is open.
  bool close();

 private:
  bool finish();

  std::string m_name;
  std::unique_ptr<char[]> m_block;  // must outlive m_file, which writes from it
  std::ofstream m_file;
  bool m_isAimed = false;
  std::streambuf* m_savedBuffer = nullptr;  // of the standard output stream
};

/// The folder of a path with its slash; empty for the current one.
std::string folderOf(std::string_view path);

/// Puts a file in place as a whole. It is first written under another name in
/// the same folder; on failure nothing of it stays, and an earlier file of the
/// name does. The result is the reason of a failure, in words, or nothing.
[[nodiscard]] std::optional<std::string> replaceFile(std::string const& path,
                                                     std::string const& content);

}  // namespace fdmorph
