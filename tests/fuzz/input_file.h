// What the fuzz targets share.
#pragma once

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

#include "text/console.h"

namespace fdmorph {

/// Holds the bytes of one run in a file of the working directory, and sets the
/// console to a silent one with nothing counted.
class FuzzInputFile {
 public:
  FuzzInputFile(std::uint8_t const* data, std::size_t size, char const* extension)
      : m_name("fuzz-" + std::to_string(getpid()) + extension) {
    std::ofstream file(m_name, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<char const*>(data), static_cast<std::streamsize>(size));
    silence();
  }
  ~FuzzInputFile() { std::remove(m_name.c_str()); }
  FuzzInputFile(FuzzInputFile const&) = delete;
  FuzzInputFile& operator=(FuzzInputFile const&) = delete;

  std::string const& name() const { return m_name; }

  static void silence() {
    std::cout.rdbuf(nullptr);
    std::cerr.rdbuf(nullptr);
    console.m_nErrorCount = 0;
    console.m_nWarningCount = 0;
  }

 private:
  std::string m_name;
};

}  // namespace fdmorph
