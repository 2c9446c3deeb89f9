#include "text/multibyte.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>

#include "text/console.h"
#include "text/utf8.h"

namespace fdmorph {
namespace {

constexpr std::size_t kInvalid = static_cast<std::size_t>(-1);
constexpr int kMaxIntSize = 12;

int lower(char c) {
  return std::tolower(static_cast<unsigned char>(c));
}

// A byte that does not start a valid character counts as a character.
int characterLength(char const* text) {
  return std::max(1, std::mblen(text, static_cast<std::size_t>(MB_CUR_MAX)));
}

}  // namespace

std::wstring my_mbstowcs(char const* text) {
  if (text == nullptr) return {};
  std::size_t length = std::mbstowcs(nullptr, text, 0);
  if (length == kInvalid) {
    err() << "Error : Unable to convert multibyte character to Unicode";
    return {};
  }
  std::wstring wide(length, L'\0');
  std::mbstowcs(wide.data(), text, length);
  return wide;
}

std::string my_wcstombs(wchar_t const* text) {
  if (text == nullptr) return {};
  std::size_t length = std::wcstombs(nullptr, text, 0);
  if (length == kInvalid) {
    err() << "Error : Unable to convert Unicode character to multibyte";
    return {};
  }
  std::string narrow(length, '\0');
  std::wcstombs(narrow.data(), text, length);
  return narrow;
}

std::string localeToUtf8(std::string_view text) {
  std::string result(text);
  if (isAscii(text)) return result;
  std::wstring wide = my_mbstowcs(result.c_str());
  result.clear();
  for (wchar_t character : wide) appendUtf8(result, static_cast<unsigned>(character));
  return result;
}

char const* my_strrchr(char const* text, char const* wanted) {
  char const* found = "";
  for (char const* at = text; *at != '\0';) {
    int length = characterLength(at);
    if (my_strnicmp(at, wanted, length) == 0) found = at;
    at += length;
  }
  return found;
}

int my_stricmp(char const* left, char const* right) {
  while (*left != '\0' && *right != '\0' && lower(*left) == lower(*right)) {
    ++left;
    ++right;
  }
  return lower(*left) - lower(*right);
}

int my_strnicmp(char const* left, char const* right, int n) {
  for (; n > 0; --n, ++left, ++right) {
    int difference = lower(*left) - lower(*right);
    if (difference != 0 || *left == '\0') return difference;
  }
  return 0;
}

void itoa(int value, char* buffer, int radix) {
  if (radix == 10) {
    std::snprintf(buffer, kMaxIntSize, "%d", value);
  } else if (radix == 16) {
    std::snprintf(buffer, kMaxIntSize, "%X", static_cast<unsigned>(value));
  }
}

bool isAscii(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
}

}  // namespace fdmorph
