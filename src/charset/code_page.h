// The character set of data.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph::charset {

/// UTF-8, or a character set of one byte a character. Immutable, so that threads
/// share it.
class CodePage {
 public:
  /// A code page, or why there is none.
  struct Opened {
    std::shared_ptr<CodePage const> page;  ///< null after an error
    std::string error;
  };

  /// Opens `ascii`, `latin-1`, `utf-8` or any single-byte character set by a name
  /// or alias of ICU, in any case. The tables have no fallbacks.
  [[nodiscard]] static Opened open(std::string_view name);

  /// The name that it was opened with.
  [[nodiscard]] std::string const& name() const { return m_name; }

  [[nodiscard]] bool isUtf8() const { return m_isUtf8; }

  /// Whether the digit zero is x'F0'. It is x'30' otherwise.
  [[nodiscard]] bool isEbcdic() const { return m_isEbcdic; }

  [[nodiscard]] std::uint8_t blank() const { return m_isEbcdic ? 0x40 : 0x20; }
  [[nodiscard]] std::uint8_t zeroDigit() const { return m_isEbcdic ? 0xF0 : 0x30; }

  /// The code point of a byte; -1 if it has none. In UTF-8 only bytes below x'80'
  /// have one.
  [[nodiscard]] std::int32_t characterOf(std::uint8_t byte) const { return m_characters[byte]; }

  /// The byte of a code point; -1 if it has none, or several in UTF-8.
  [[nodiscard]] int byteOf(char32_t character) const {
    return character < m_lowBytes.size() ? m_lowBytes[character] : findByte(character);
  }

 private:
  struct HighByte {
    char32_t character;
    std::uint8_t byte;
  };

  CodePage() = default;
  bool setTable(std::string_view name, std::string& error);
  void setBytes();
  [[nodiscard]] bool hasUsualDigits() const;
  [[nodiscard]] int findByte(char32_t character) const;

  std::string m_name;
  bool m_isUtf8 = false;
  bool m_isEbcdic = false;
  std::array<std::int32_t, 256> m_characters{};
  std::array<std::int16_t, 256> m_lowBytes{};  ///< of the code points below 256
  std::vector<HighByte> m_highBytes;           ///< of the others, in their order
};

}  // namespace fdmorph::charset
