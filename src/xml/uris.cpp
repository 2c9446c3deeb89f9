#include "xml/uris.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <system_error>

namespace fdmorph {
namespace {

constexpr std::string_view kFileScheme = "file";
constexpr std::string_view kUnescaped = "-._~/!$&'()*+,;=:@";
constexpr std::size_t kShortestScheme = 2;  // one letter is a name in a path
constexpr std::size_t kEscape = 3;          // "%20"
constexpr int kHexadecimal = 16;
constexpr char kHexDigits[] = "0123456789ABCDEF";

bool isLetterOrDigit(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

// What follows the scheme and its colon.
std::string_view afterScheme(std::string_view uri) {
  std::string_view scheme = uriScheme(uri);
  return scheme.empty() ? uri : uri.substr(scheme.size() + 1);
}

// Removes "." and ".." from a path, and keeps the slash at its end.
std::string normalPath(std::string const& path) {
  return std::filesystem::path(path).lexically_normal().generic_string();
}

}  // namespace

std::string_view uriScheme(std::string_view text) {
  std::size_t colon = text.find(':');
  if (colon == text.npos || colon < kShortestScheme) return {};
  std::string_view scheme = text.substr(0, colon);
  bool isScheme = std::isalpha(static_cast<unsigned char>(scheme.front())) != 0 &&
                  std::ranges::all_of(scheme, [](char c) {
                    return isLetterOrDigit(c) || c == '+' || c == '-' || c == '.';
                  });
  return isScheme ? scheme : std::string_view();
}

std::string fileUri(std::string const& path) {
  std::error_code error;
  std::filesystem::path absolute = std::filesystem::absolute(path, error);
  std::string uri = "file://";
  for (char c : normalPath(error ? path : absolute.string())) {
    if (isLetterOrDigit(c) || kUnescaped.find(c) != kUnescaped.npos) {
      uri += c;
      continue;
    }
    auto byte = static_cast<unsigned char>(c);
    uri += '%';
    uri += kHexDigits[byte / kHexadecimal];
    uri += kHexDigits[byte % kHexadecimal];
  }
  return uri;
}

std::optional<std::string> pathOfFileUri(std::string_view uri) {
  std::string_view scheme = uriScheme(uri);
  bool isFile = scheme.size() == kFileScheme.size() &&
                std::ranges::equal(scheme, kFileScheme, [](char left, char right) {
                  return std::tolower(static_cast<unsigned char>(left)) == right;
                });
  if (!isFile) return std::nullopt;
  std::string_view host = uriHost(uri);
  if (!host.empty() && host != "localhost") return std::nullopt;
  return decodeEscapes(uriPath(uri));
}

std::string decodeEscapes(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned char byte = 0;
    bool isEscape = false;
    if (text[i] == '%' && i + kEscape <= text.size()) {
      char const* end = text.data() + i + kEscape;
      auto result = std::from_chars(text.data() + i + 1, end, byte, kHexadecimal);
      isEscape = result.ec == std::errc() && result.ptr == end;
    }
    decoded += isEscape ? static_cast<char>(byte) : text[i];
    if (isEscape) i += kEscape - 1;
  }
  return decoded;
}

std::string resolveUri(std::string_view base, std::string_view reference) {
  if (!uriScheme(reference).empty()) return std::string(reference);
  if (reference.empty()) return std::string(base);
  std::string_view path = uriPath(base);
  auto head = static_cast<std::size_t>(path.data() - base.data());
  if (reference.starts_with("//")) {
    return std::string(base.substr(0, uriScheme(base).size() + 1)).append(reference);
  }
  std::string resolved(base.substr(0, head));
  if (reference.front() == '/') return resolved.append(normalPath(std::string(reference)));
  std::string joined(path.substr(0, path.rfind('/') + 1));
  if (joined.empty()) joined = "/";
  return resolved.append(normalPath(joined.append(reference)));
}

std::string_view uriHost(std::string_view uri) {
  std::string_view rest = afterScheme(uri);
  if (uriScheme(uri).empty() || !rest.starts_with("//")) return {};
  rest.remove_prefix(2);
  return rest.substr(0, rest.find('/'));
}

std::string_view uriPath(std::string_view uri) {
  if (uriScheme(uri).empty()) return uri;
  std::string_view rest = afterScheme(uri);
  if (rest.starts_with("//")) {
    std::size_t slash = rest.find('/', 2);
    rest = slash == rest.npos ? rest.substr(rest.size()) : rest.substr(slash);
  }
  return rest.substr(0, rest.find_first_of("?#"));
}

}  // namespace fdmorph
