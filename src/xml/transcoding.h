// The XML library's namespace, and conversion between its UTF-16 text and the
// locale's multibyte text. For this folder only.
#pragma once

#include <string>
#include <xercesc/util/XercesDefs.hpp>

namespace fdmorph {

namespace xerces = XERCES_CPP_NAMESPACE;

/// `text` in the locale's encoding; null gives an empty string. Characters
/// that the locale lacks are reported as my_wcstombs does and give an empty
/// string.
std::string toMultibyte(XMLCh const* text);

/// `text` in the library's local code page, for messages: characters that it
/// lacks are substituted, never reported.
std::string toLocalText(XMLCh const* text);

/// `text` in UTF-8, whatever the locale is; null gives an empty string.
std::string toUtf8(XMLCh const* text);

/// `text`, in the locale's encoding, as a terminated UTF-16 string.
std::basic_string<XMLCh> toLibraryText(std::string const& text);

}  // namespace fdmorph
