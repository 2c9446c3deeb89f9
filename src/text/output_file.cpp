#include "text/output_file.h"

#include <iostream>

#include "text/console.h"

namespace fdmorph {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{64} << 10;

}  // namespace

OutputFile::~OutputFile() {
  finish();
}

bool OutputFile::open(std::string const& name) {
  if (name.empty()) return false;
  m_name = name;
  m_block = std::make_unique_for_overwrite<char[]>(kBlockBytes);
  m_file.rdbuf()->pubsetbuf(m_block.get(), static_cast<std::streamsize>(kBlockBytes));
  m_file.open(name, std::ios::out | std::ios::trunc);
  return m_file.is_open();
}

// All text passes through one stream, so that its state shows every loss.
std::ostream& OutputFile::stream() {
  return m_file.is_open() && !m_isAimed ? m_file : std::cout;
}

void OutputFile::aimStandardOutput() {
  if (!m_file.is_open() || m_isAimed) return;
  m_savedBuffer = redirectOutput(m_file.rdbuf());
  m_isAimed = true;
}

bool OutputFile::close() {
  if (!m_file.is_open()) return false;
  bool isComplete = finish();
  if (!isComplete) reportWriteFailure(m_name);
  return isComplete;
}

// False if some text did not reach the file.
bool OutputFile::finish() {
  if (!m_file.is_open()) return true;
  bool isLost = m_isAimed && std::cout.bad();
  m_file.close();
  if (m_isAimed) redirectOutput(m_savedBuffer);
  m_isAimed = false;
  return !isLost && !m_file.fail();
}

}  // namespace fdmorph
