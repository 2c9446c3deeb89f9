#include "charset/code_page.h"

#include <algorithm>

#include "charset/icu_table.h"
#include "text/letter_case.h"

namespace fdmorph::charset {
namespace {

constexpr std::int32_t kNone = -1;
constexpr unsigned kAsciiEnd = 0x80;

}  // namespace

CodePage::Opened CodePage::open(std::string_view name) {
  Opened opened;
  std::shared_ptr<CodePage> page(new CodePage);
  page->m_name = name;
  if (!page->setTable(name, opened.error)) return opened;
  page->setBytes();
  if (page->hasUsualDigits()) {
    opened.page = std::move(page);
  } else {
    opened.error = "encoding '" + std::string(name) + "' is based neither on ASCII nor on EBCDIC";
  }
  return opened;
}

// The names of the usual sets are not all known to ICU.
bool CodePage::setTable(std::string_view name, std::string& error) {
  unsigned identical = 0;
  if (equalsIgnoringCase(name, "utf-8") || equalsIgnoringCase(name, "utf8")) {
    m_isUtf8 = true;
    identical = kAsciiEnd;
  } else if (equalsIgnoringCase(name, "ascii")) {
    identical = kAsciiEnd;
  } else if (equalsIgnoringCase(name, "latin-1")) {
    identical = 256;
  }
  IcuTable table;
  if (identical == 0) {
    table = readIcuTable(std::string(name));
    if (table.outcome == IcuOutcome::utf8) {
      m_isUtf8 = true;
      identical = kAsciiEnd;
    }
  }
  if (identical == 0 && table.outcome != IcuOutcome::found) {
    error = table.outcome == IcuOutcome::multiByte
                ? "encoding '" + std::string(name) + "' has characters of several bytes"
                : "unknown encoding '" + std::string(name) + "'";
    return false;
  }
  for (unsigned byte = 0; byte < m_characters.size(); ++byte) {
    char32_t const character = identical == 0     ? table.characters[byte]
                               : byte < identical ? char32_t{byte}
                                                  : kNoCharacter;
    m_characters[byte] = character == kNoCharacter ? kNone : static_cast<std::int32_t>(character);
  }
  return true;
}

void CodePage::setBytes() {
  m_lowBytes.fill(kNone);
  for (unsigned byte = 0; byte < m_characters.size(); ++byte) {
    if (m_characters[byte] == kNone) continue;
    auto const character = static_cast<char32_t>(m_characters[byte]);
    if (character < m_lowBytes.size()) {
      m_lowBytes[character] = static_cast<std::int16_t>(byte);
    } else {
      m_highBytes.push_back({character, static_cast<std::uint8_t>(byte)});
    }
  }
  std::sort(
      m_highBytes.begin(), m_highBytes.end(),
      [](HighByte const& left, HighByte const& right) { return left.character < right.character; });
  m_isEbcdic = m_lowBytes['0'] == 0xF0;
}

// Numbers and blanks are looked at as bytes.
bool CodePage::hasUsualDigits() const {
  for (unsigned digit = 0; digit < 10; ++digit) {
    if (m_lowBytes['0' + digit] != zeroDigit() + static_cast<int>(digit)) return false;
  }
  return m_lowBytes[' '] == blank() && m_lowBytes['+'] != kNone && m_lowBytes['-'] != kNone;
}

int CodePage::findByte(char32_t character) const {
  auto const found = std::lower_bound(
      m_highBytes.begin(), m_highBytes.end(), character,
      [](HighByte const& each, char32_t wanted) { return each.character < wanted; });
  return found != m_highBytes.end() && found->character == character ? found->byte : kNone;
}

}  // namespace fdmorph::charset
