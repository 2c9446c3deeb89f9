// Text in the locale's multibyte encoding: conversion at the edges, and the
// comparisons blind to case that the command line uses.
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

/// Pointer to the last character of `text` that equals the start of `wanted`,
/// blind to case, stepping by multibyte characters. Without a match, a pointer
/// to an empty string, never null.
char const* my_strrchr(char const* text, char const* wanted);

/// Difference of the lower-case forms at the first place where two strings
/// differ, 0 when they are equal but for case.
int my_stricmp(char const* left, char const* right);

/// The same over at most `n` bytes. A string that ends earlier differs from
/// one that goes on.
int my_strnicmp(char const* left, char const* right, int n);

/// Writes `value` into `buffer`: radix 10 as decimal, radix 16 as upper-case
/// hexadecimal; any other radix leaves the buffer as it is. 12 bytes suffice.
void itoa(int value, char* buffer, int radix);

/// True when every byte of `text` is ASCII, which all locales share.
bool isAscii(std::string_view text);

}  // namespace fdmorph
