// Files that refer to each other in a circle are read once.
//
// Every include, redefine and import is an edge from the file that is being
// read to another. A file that such edges lead back to is part of a circle
// (a strongly connected component of more than one file, or a file that refers
// to itself): it is read once in a run. A file outside all circles is read
// each time that it is reached. As reading follows the edges depth first, the
// components come out of Tarjan's algorithm while the files are read, and the
// question for a file that was seen before always has its answer: it is either
// still unfinished, hence in a circle with the file that asks, or its
// component is complete.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace fdmorph {

class FileCircles {
 public:
  /// Notes that the file being read refers to `location`, a path or a URL.
  /// True if that file is to be read now; the caller then reads it and calls
  /// leave. False if it is to be passed over.
  bool enter(std::string const& location);

  /// Notes that the file entered last has been read, references included.
  void leave();

 private:
  struct File {
    std::size_t order = 0;   // in which the files were seen first
    std::size_t lowest = 0;  // order of the first unfinished file it leads to
    bool isUnfinished = true;
    bool isInCircle = false;
  };

  File* reading() const { return m_reading.empty() ? nullptr : m_reading.back(); }
  void finishComponent(File* first);

  std::unordered_map<std::string, File> m_files;  // by resolved absolute path
  std::vector<File*> m_reading;                   // null for a file read again
  std::vector<File*> m_unfinished;
};

}  // namespace fdmorph
