// Reads and writes the values of items, for the tests that compare them with what
// other programs say.
//
//   item_values characters ENCODING             the code point of each byte, or -
//   item_values texts COPYBOOK ENCODING         records on stdin to lines of texts
//   item_values bytes COPYBOOK ENCODING         lines of texts on stdin to records
//
// A line has the text of each item of the record after `NAME=`, between tabs.
// Items are those of GnuCOBOL, and edited ones are numbers.

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "frontend/compiled_source.h"
#include "source/source_files.h"
#include "values/value_messages.h"
#include "values/values.h"

namespace {

using namespace fdmorph;
using namespace fdmorph::values;

struct Item {
  std::string_view name;
  std::size_t offset;
  ItemFormat format;
};

int printCharacters(charset::CodePage const& page) {
  for (unsigned byte = 0; byte < 256; ++byte) {
    auto const code = page.characterOf(static_cast<std::uint8_t>(byte));
    if (code < 0) {
      std::cout << "-\n";
    } else {
      std::cout << code << '\n';
    }
  }
  return 0;
}

void printTexts(Values const& values, std::vector<Item> const& items, std::string_view record) {
  char const* separator = "";
  for (Item const& item : items) {
    std::vector<char> text(Values::maxTextSize(item.format));
    auto const* bytes = reinterpret_cast<unsigned char const*>(record.data()) + item.offset;
    DecodeResult const result = values.decode<Target::plain>(item.format, bytes, text.data());
    std::cout << separator << item.name << '=';
    separator = "\t";
    if (result.error == ValueError::none) {
      std::cout << std::string_view(text.data(),
                                    static_cast<std::size_t>(result.end - text.data()));
    } else {
      std::cout << '[' << codeOf(result.error) << ']';
    }
  }
  std::cout << '\n';
}

bool printBytes(Values const& values, std::vector<Item> const& items, std::size_t size,
                std::string const& line) {
  std::vector<unsigned char> record(size, values.conventions().codePage->blank());
  std::istringstream parts(line);
  for (Item const& item : items) {
    std::string part;
    std::getline(parts, part, '\t');
    std::string const text = part.substr(part.find('=') + 1);
    EncodeResult const result = values.encode(item.format, text, record.data() + item.offset);
    if (result.error == ValueError::none) continue;
    std::cerr << item.name << ": " << describeText(result, item.format, text) << '\n';
    return false;
  }
  std::cout.write(reinterpret_cast<char const*>(record.data()),
                  static_cast<std::streamsize>(record.size()));
  return true;
}

}  // namespace

int main(int count, char** arguments) {
  std::vector<std::string> const words(arguments, arguments + count);
  if (words.size() < 3) return 2;
  auto const opened = charset::CodePage::open(words.back());
  if (opened.page == nullptr) {
    std::cerr << opened.error << '\n';
    return 1;
  }
  if (words[1] == "characters") return printCharacters(*opened.page);
  compiler::DiskTree tree;
  compiler::CompiledSource const source(words[2], {}, tree);
  if (source.diagnostics().hasErrors()) return 1;
  Conventions conventions = makeConventions(compiler::Dialect::gnuCobol, opened.page).conventions;
  conventions.hasEditedNumbers = true;
  Values const values(conventions);
  compiler::DataItem const& record = *source.data().workingStorage.first;
  std::vector<Item> items;
  for (compiler::DataItem const* each = record.firstChild; each != nullptr; each = each->next) {
    items.push_back({each->name, each->offset, makeItemFormat(*each, conventions)});
  }
  if (words[1] == "bytes") {
    for (std::string line; std::getline(std::cin, line);) {
      if (!printBytes(values, items, record.size, line)) return 1;
    }
    return 0;
  }
  std::string const data(std::istreambuf_iterator<char>(std::cin), {});
  for (std::size_t at = 0; at + record.size <= data.size(); at += record.size) {
    printTexts(values, items, std::string_view(data).substr(at, record.size));
  }
  return 0;
}
