#include "xml/transcoding.h"

#include <algorithm>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

#include "text/multibyte.h"
#include "xml/xerces_fwd.h"

namespace fdmorph {
namespace {

constexpr XMLCh kFirstNonAscii = 0x80;

bool isHighSurrogate(XMLCh unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool isLowSurrogate(XMLCh unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

std::wstring toWide(XMLCh const* text) {
  std::wstring wide;
  for (; *text != 0; ++text) {
    auto character = static_cast<wchar_t>(*text);
    if (isHighSurrogate(*text) && isLowSurrogate(text[1])) {
      character = static_cast<wchar_t>(0x10000 + ((text[0] - 0xD800) << 10) + (text[1] - 0xDC00));
      ++text;
    }
    wide += character;
  }
  return wide;
}

}  // namespace

std::string toMultibyte(XMLCh const* text) {
  if (text == nullptr) return {};
  std::string narrow;
  XMLCh const* end = text;
  while (*end != 0 && *end < kFirstNonAscii) ++end;
  if (*end != 0) return my_wcstombs(toWide(text).c_str());
  narrow.resize(static_cast<std::size_t>(end - text));
  std::transform(text, end, narrow.begin(), [](XMLCh unit) { return static_cast<char>(unit); });
  return narrow;
}

std::string toLocalText(XMLCh const* text) {
  if (text == nullptr) return {};
  char* transcoded = xerces::XMLString::transcode(text);
  std::string local = transcoded;
  xerces::XMLString::release(&transcoded);
  return local;
}

std::basic_string<XMLCh> toLibraryText(std::string const& text) {
  XMLCh* transcoded = xerces::XMLString::transcode(text.c_str());
  std::basic_string<XMLCh> wide = transcoded;
  xerces::XMLString::release(&transcoded);
  return wide;
}

}  // namespace fdmorph
