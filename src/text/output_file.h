// Files that the converter writes.
#pragma once

#include <memory>
#include <ostream>
#include <streambuf>
#include <string>

#include "text/file_replacement.h"

namespace fdmorph {

/// A text output that goes to a file, or to the standard output stream if no
/// file is open. An earlier file of the name stays until close() replaces it as
/// a whole. The destructor restores the buffer of the standard output stream,
/// and drops a file that was not closed.
class OutputFile {
 public:
  OutputFile() = default;
  ~OutputFile();
  OutputFile(OutputFile const&) = delete;
  OutputFile& operator=(OutputFile const&) = delete;

  /// Begins a new file `name`, which is written in blocks of 64 KB. False,
  /// without a message, if the name cannot be opened for writing; an empty name
  /// never can. To be called once.
  [[nodiscard]] bool open(std::string const& name);

  bool isOpen() const { return m_isOpen; }

  /// The stream to write to.
  std::ostream& stream();

  /// Redirects the standard output stream to the file until the file is closed.
  /// Does nothing if no file is open. Redirections nest: the last one must end
  /// first.
  void aimStandardOutput();

  /// Completes the file, puts it in place, and restores the buffer of the
  /// standard output stream. If some text did not reach the file, this is
  /// reported by reportWriteFailure, and an earlier file stays. False in that
  /// case, and if no file is open.
  bool close();

 private:
  /// Collects blocks and hands them to the file. After a failed write it
  /// accepts nothing.
  class Blocks : public std::streambuf {
   public:
    explicit Blocks(FileReplacement& file) : m_file(file) {}

    void open();
    void fail() { m_hasFailed = true; }
    bool isComplete() const { return !m_hasFailed; }

   protected:
    int_type overflow(int_type c) override;
    int sync() override;

   private:
    FileReplacement& m_file;
    std::unique_ptr<char[]> m_block;
    bool m_hasFailed = false;
  };

  void restoreStandardOutput();

  std::string m_name;
  FileReplacement m_file;
  Blocks m_blocks{m_file};
  std::ostream m_stream{&m_blocks};
  bool m_isOpen = false;
  bool m_isAimed = false;
  std::streambuf* m_savedBuffer = nullptr;  // of the standard output stream
};

}  // namespace fdmorph
