#include "xml/transcoding.h"

#include <array>
#include <cstdint>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

#include "text/multibyte.h"
#include "text/utf8.h"

namespace fdmorph {
namespace {

constexpr std::size_t kShortText = 256;
constexpr XMLCh kFirstNonAscii = 0x80;
constexpr XMLCh kFirstHighSurrogate = 0xD800;
constexpr XMLCh kFirstLowSurrogate = 0xDC00;
constexpr XMLCh kPastLowSurrogates = 0xE000;
constexpr std::uint32_t kFirstSupplementary = 0x10000;

bool isHighSurrogate(XMLCh unit) {
  return unit >= kFirstHighSurrogate && unit < kFirstLowSurrogate;
}

bool isLowSurrogate(XMLCh unit) {
  return unit >= kFirstLowSurrogate && unit < kPastLowSurrogates;
}

std::uint32_t pairedCode(XMLCh high, XMLCh low) {
  std::uint32_t const upper = static_cast<std::uint32_t>(high) - kFirstHighSurrogate;
  std::uint32_t const lower = static_cast<std::uint32_t>(low) - kFirstLowSurrogate;
  return kFirstSupplementary + (upper << 10) + lower;
}

std::wstring toWide(XMLCh const* text) {
  std::wstring wide;
  for (; *text != 0; ++text) {
    std::uint32_t code = *text;
    if (isHighSurrogate(*text) && isLowSurrogate(text[1])) {
      code = pairedCode(text[0], text[1]);
      ++text;
    }
    wide += static_cast<wchar_t>(code);
  }
  return wide;
}

}  // namespace

std::string toMultibyte(XMLCh const* text) {
  if (text == nullptr) return {};
  // Nearly all text is short and ASCII, which all locales share.
  std::array<char, kShortText> ascii;
  std::size_t length = 0;
  while (length < ascii.size() && text[length] != 0 && text[length] < kFirstNonAscii) {
    ascii[length] = static_cast<char>(text[length]);
    ++length;
  }
  if (length < ascii.size() && text[length] == 0) return {ascii.data(), length};
  return my_wcstombs(toWide(text).c_str());
}

std::string toLocalText(XMLCh const* text) {
  if (text == nullptr) return {};
  char* transcoded = xerces::XMLString::transcode(text);
  std::string local = transcoded;
  xerces::XMLString::release(&transcoded);
  return local;
}

std::string toUtf8(XMLCh const* text) {
  std::string result;
  if (text == nullptr) return result;
  for (; *text != 0; ++text) {
    if (*text < kFirstNonAscii) {
      result += static_cast<char>(*text);
      continue;
    }
    bool const isPair = isHighSurrogate(*text) && isLowSurrogate(text[1]);
    appendUtf8(result, isPair ? pairedCode(text[0], text[1]) : *text);
    if (isPair) ++text;
  }
  return result;
}

std::basic_string<XMLCh> toLibraryText(std::string const& text) {
  XMLCh* transcoded = xerces::XMLString::transcode(text.c_str());
  std::basic_string<XMLCh> wide = transcoded;
  xerces::XMLString::release(&transcoded);
  return wide;
}

}  // namespace fdmorph
