// A command line as main gets it.
#pragma once

#include <string>
#include <vector>

namespace fdmorph {

/// The arguments after the program's own name.
class Arguments {
 public:
  Arguments(std::initializer_list<std::string> arguments) : m_texts{"fdmorph"} {
    m_texts.insert(m_texts.end(), arguments);
    for (std::string& text : m_texts) m_pointers.push_back(text.data());
    m_pointers.push_back(nullptr);
  }
  Arguments(Arguments const&) = delete;
  Arguments& operator=(Arguments const&) = delete;

  int count() const { return static_cast<int>(m_texts.size()); }
  char** values() { return m_pointers.data(); }

 private:
  std::vector<std::string> m_texts;
  std::vector<char*> m_pointers;
};

}  // namespace fdmorph
