// What the generator of copybooks has to say. It reports to the console of fdmorph,
// with whose counts and banner fdrec has nothing to do.
#pragma once

#include <memory>
#include <streambuf>
#include <string>
#include <vector>

namespace fdmorph::fdrec {

/// Keeps the messages of the generator for its lifetime, instead of showing them.
/// Nothing else may use the standard C++ streams meanwhile.
class GeneratorMessages {
 public:
  /// More of them are dropped.
  static constexpr std::size_t kMaxBytes = 20'000;

  GeneratorMessages();
  ~GeneratorMessages();
  GeneratorMessages(GeneratorMessages const&) = delete;
  GeneratorMessages& operator=(GeneratorMessages const&) = delete;

  /// The errors and warnings so far, without "Error :" and "Warning :".
  [[nodiscard]] std::vector<std::string> texts() const;

 private:
  class Buffer;

  std::unique_ptr<Buffer> m_buffer;
  std::streambuf* m_out;
  std::streambuf* m_err;
  bool m_hadHeader;
};

}  // namespace fdmorph::fdrec
