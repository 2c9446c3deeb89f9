#include "text/output_file.h"

#include <iostream>

#include "text/console.h"

namespace fdmorph {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{64} << 10;

}  // namespace

void OutputFile::Blocks::open() {
  m_block = std::make_unique_for_overwrite<char[]>(kBlockBytes);
  setp(m_block.get(), m_block.get() + kBlockBytes);
}

OutputFile::Blocks::int_type OutputFile::Blocks::overflow(int_type c) {
  if (sync() != 0) return traits_type::eof();
  if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
  return sputc(traits_type::to_char_type(c));
}

int OutputFile::Blocks::sync() {
  std::string_view text(pbase(), static_cast<std::size_t>(pptr() - pbase()));
  m_hasFailed = m_hasFailed || (!text.empty() && !m_file.write(text));
  setp(m_block.get(), m_hasFailed ? m_block.get() : m_block.get() + kBlockBytes);
  return m_hasFailed ? -1 : 0;
}

OutputFile::~OutputFile() {
  restoreStandardOutput();
}

bool OutputFile::open(std::string const& name) {
  if (name.empty()) return false;
  m_name = name;
  FileReplacement::Start start = m_file.begin(name);
  if (start == FileReplacement::Start::refused) return false;
  m_blocks.open();
  // A name that can be written and has no room for the file is reported when
  // the file is closed, as a full disk is.
  if (start == FileReplacement::Start::failed) m_blocks.fail();
  m_isOpen = true;
  return true;
}

std::ostream& OutputFile::stream() {
  return m_isOpen && !m_isAimed ? m_stream : std::cout;
}

void OutputFile::aimStandardOutput() {
  if (!m_isOpen || m_isAimed) return;
  m_savedBuffer = redirectOutput(&m_blocks);
  m_isAimed = true;
}

bool OutputFile::close() {
  if (!m_isOpen) return false;
  m_blocks.pubsync();
  restoreStandardOutput();
  m_isOpen = false;
  bool isWhole = m_blocks.isComplete() && m_file.commit();
  if (!isWhole) reportWriteFailure(m_name);
  return isWhole;
}

void OutputFile::restoreStandardOutput() {
  if (m_isAimed) redirectOutput(m_savedBuffer);
  m_isAimed = false;
}

}  // namespace fdmorph
