// Text in the locale's multibyte encoding: conversions, and comparisons that
// ignore case.
#pragma once

#include <string>
#include <string_view>

namespace fdmorph {

/// The wide form of `text`; null gives an empty string. Text that is not valid
/// in the locale prints "Error : Unable to convert multibyte character to
/// Unicode" (counted, without a line end) and gives an empty string.
std::wstring my_mbstowcs(char const* text);

/// The multibyte form of `text`; null gives an empty string. Characters that
/// the locale lacks print "Error : Unable to convert Unicode character to
/// multibyte" (counted, without a line end) and give an empty string.
std::string my_wcstombs(wchar_t const* text);

/// The UTF-8 form of `text`, which is in the locale's encoding up to a NUL.
/// Text that is not valid there is reported as by my_mbstowcs and gives an
/// empty string.
std::string localeToUtf8(std::string_view text);

/// Pointer to the last multibyte character of `text` that equals the start of
/// `wanted`, ignoring case. Without a match, a pointer to an empty string, never
/// null.
char const* my_strrchr(char const* text, char const* wanted);

/// Difference of the lower-case forms at the first place where two strings
/// differ, 0 if they are equal but for case.
int my_stricmp(char const* left, char const* right);

/// The same over at most `n` bytes. A string that ends earlier differs from a
/// longer one.
int my_strnicmp(char const* left, char const* right, int n);

/// Writes `value` into `buffer`, which has at least 12 bytes: in decimal for
/// radix 10, in upper-case hexadecimal for radix 16. Any other radix leaves the
/// buffer as it is.
void itoa(int value, char* buffer, int radix);

/// True if every byte of `text` is ASCII, which all locales share.
[[nodiscard]] bool isAscii(std::string_view text);

}  // namespace fdmorph
