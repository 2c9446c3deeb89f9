// A stream buffer in front of a terminal. Names and values of a document can
// hold control characters, which a terminal obeys.
#pragma once

#include <cwchar>
#include <streambuf>
#include <string>
#include <string_view>

namespace fdmorph {

/// Passes text on to another buffer with each control character as "?", line
/// feed and tab excepted: those of ASCII, delete, and the C1 characters of the
/// locale's encoding (ECMA-48). A byte that is no character of the locale and
/// has the value of a control character is "?" too.
class TerminalFilter : public std::streambuf {
 public:
  /// `target` must outlive the filter.
  explicit TerminalFilter(std::streambuf& target) : m_target(target) {}

 protected:
  int_type overflow(int_type byte) override;
  std::streamsize xsputn(char const* text, std::streamsize size) override;
  int sync() override;

 private:
  void filter(std::string_view text);
  void endCharacter();

  std::streambuf& m_target;
  std::mbstate_t m_state{};
  std::string m_character;  // the bytes of a character that is not complete
  std::string m_filtered;   // what a call passes on
};

}  // namespace fdmorph
