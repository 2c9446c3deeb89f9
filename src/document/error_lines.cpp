#include "document/error_lines.h"

#include "source/diagnostics.h"

namespace fdmorph::document {
namespace {

constexpr std::size_t kShownBytes = 16;

std::string withoutPlace(DataError const& error) {
  std::string line;
  if (!error.path.empty()) line += ", " + compiler::printable(error.path);
  line += ": error: " + compiler::printable(error.text) + " [";
  line += nameOf(error.code);
  line += ']';
  return line;
}

}  // namespace

std::string hexadecimal(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text = "x'";
  for (char each : bytes.substr(0, kShownBytes)) {
    auto byte = static_cast<unsigned char>(each);
    text += kDigits[byte >> 4U];
    text += kDigits[byte & 0xFU];
  }
  text += '\'';
  if (bytes.size() > kShownBytes) text += "...";
  return text;
}

std::string byteErrorText(std::uint64_t begin, DataError const& error) {
  std::string text = "byte " + std::to_string(begin + error.offset);
  if (!error.bytes.empty()) text += " (" + hexadecimal(error.bytes) + ')';
  return text + withoutPlace(error);
}

std::string byteErrorLine(std::string_view file, std::uint64_t number, std::uint64_t begin,
                          DataError const& error) {
  return "fdrec: " + compiler::printable(file) + ": record " + std::to_string(number) + ", " +
         byteErrorText(begin, error) + '\n';
}

std::string documentErrorText(DataError const& error) {
  return std::to_string(error.line) + ':' + std::to_string(error.column) + withoutPlace(error);
}

std::string documentErrorLine(std::string_view file, std::uint64_t number, DataError const& error) {
  return "fdrec: " + compiler::printable(file) + ':' + std::to_string(error.line) + ':' +
         std::to_string(error.column) + ", record " + std::to_string(number) + withoutPlace(error) +
         '\n';
}

}  // namespace fdmorph::document
