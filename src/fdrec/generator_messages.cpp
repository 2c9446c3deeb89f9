#include "fdrec/generator_messages.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <string_view>

#include "text/console.h"

namespace fdmorph::fdrec {

/// Takes everything and keeps the beginning.
class GeneratorMessages::Buffer : public std::streambuf {
 public:
  [[nodiscard]] std::string const& text() const { return m_text; }

 protected:
  int_type overflow(int_type c) override {
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    char byte = traits_type::to_char_type(c);
    xsputn(&byte, 1);
    return c;
  }

  std::streamsize xsputn(char const* text, std::streamsize size) override {
    std::size_t room = kMaxBytes - m_text.size();
    m_text.append(text, std::min(room, static_cast<std::size_t>(size)));
    return size;
  }

 private:
  std::string m_text;
};

GeneratorMessages::GeneratorMessages()
    : m_buffer(std::make_unique<Buffer>()),
      m_out(std::cout.rdbuf(m_buffer.get())),
      m_err(std::cerr.rdbuf(m_buffer.get())),
      m_hadHeader(console.headerShown) {
  console.headerShown = true;
}

GeneratorMessages::~GeneratorMessages() {
  std::cout.rdbuf(m_out);
  std::cerr.rdbuf(m_err);
  console.headerShown = m_hadHeader;
}

std::vector<std::string> GeneratorMessages::texts() const {
  constexpr std::array<std::string_view, 2> kHeads{"Error : ", "Warning : "};
  std::vector<std::string> texts;
  std::string_view rest = m_buffer->text();
  while (!rest.empty()) {
    std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    for (std::string_view head : kHeads) {
      if (line.starts_with(head)) texts.emplace_back(line.substr(head.size()));
    }
  }
  return texts;
}

}  // namespace fdmorph::fdrec
