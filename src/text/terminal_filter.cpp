#include "text/terminal_filter.h"

#include "text/status_line.h"

namespace fdmorph {
namespace {

constexpr char kReplacement = '?';
constexpr wchar_t kFirstPrintable = 0x20;
constexpr wchar_t kDelete = 0x7F;
constexpr wchar_t kFirstAboveControls = 0xA0;

bool isControl(wchar_t character) {
  if (character == L'\n' || character == L'\t') return false;
  return character < kFirstPrintable || (character >= kDelete && character < kFirstAboveControls);
}

// Clears the status line for `text`. The target may also hold text of before, which a
// call without text writes.
void makeRoom(std::string_view text) {
  statusLine.hide();
  if (!text.empty()) statusLine.noteText(text.back() == '\n');
}

}  // namespace

TerminalFilter::int_type TerminalFilter::overflow(int_type byte) {
  if (traits_type::eq_int_type(byte, traits_type::eof())) return traits_type::not_eof(byte);
  char character = traits_type::to_char_type(byte);
  return xsputn(&character, 1) == 1 ? byte : traits_type::eof();
}

std::streamsize TerminalFilter::xsputn(char const* text, std::streamsize size) {
  m_filtered.clear();
  filter({text, static_cast<std::size_t>(size)});
  auto wanted = static_cast<std::streamsize>(m_filtered.size());
  makeRoom(m_filtered);
  return m_target.sputn(m_filtered.data(), wanted) == wanted ? size : 0;
}

int TerminalFilter::sync() {
  m_filtered.clear();
  endCharacter();
  auto wanted = static_cast<std::streamsize>(m_filtered.size());
  makeRoom(m_filtered);
  bool isWritten = m_target.sputn(m_filtered.data(), wanted) == wanted;
  return m_target.pubsync() == 0 && isWritten ? 0 : -1;
}

void TerminalFilter::filter(std::string_view text) {
  constexpr auto kInvalid = static_cast<std::size_t>(-1);
  constexpr auto kIncomplete = static_cast<std::size_t>(-2);
  for (char byte : text) {
    m_character += byte;
    wchar_t character = 0;
    std::size_t length = std::mbrtowc(&character, &byte, 1, &m_state);
    if (length == kIncomplete) continue;
    if (length == kInvalid) {
      // The last byte can begin another character.
      m_character.pop_back();
      bool isFirst = m_character.empty();
      endCharacter();
      m_character = byte;
      if (isFirst || std::mbrtowc(&character, &byte, 1, &m_state) == kInvalid) {
        endCharacter();
        continue;
      }
      if (std::mbsinit(&m_state) == 0) continue;
    }
    if (isControl(character)) {
      m_filtered += kReplacement;
    } else {
      m_filtered += m_character;
    }
    m_character.clear();
  }
}

// The bytes so far are no character: a terminal sees them one by one.
void TerminalFilter::endCharacter() {
  for (char byte : m_character) {
    bool isControlByte = isControl(static_cast<unsigned char>(byte));
    m_filtered += isControlByte ? kReplacement : byte;
  }
  m_character.clear();
  m_state = {};
}

}  // namespace fdmorph
