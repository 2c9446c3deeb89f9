// Files that refer to each other in a circle are read once.
//
// Every include, redefine and import is an edge from the file being read to
// another file. A file that such edges lead back to is part of a circle: a
// strongly connected component of several files, or a file that refers to
// itself. It is read once in a run. Any other file is read each time it is
// reached.
//
// Reading follows the edges depth first, so Tarjan's algorithm finds the
// components on the way. The answer for a file seen before is always known:
// either it is unfinished, and then it is in a circle with the file that refers
// to it, or its component is complete.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace fdmorph {

class FileCircles {
 public:
  /// Notes that the file being read refers to `location`, a path or a URL.
  /// True if that file is to be read now. The caller then reads it and calls
  /// leave. False if it is to be skipped.
  [[nodiscard]] bool enter(std::string const& location);

  /// Notes that the file entered last has been read, and all it refers to.
  void leave();

 private:
  struct File {
    std::size_t order = 0;   // number in the order of first sight, from 1
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
