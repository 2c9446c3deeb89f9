#include "show/page.h"

#include <string_view>

#include "show/page_data.h"
#include "show/page_text.h"
#include "source/diagnostics.h"

namespace fdmorph::show {
namespace {

std::string escaped(std::string_view text) {
  std::string out;
  for (char each : text) {
    switch (each) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      default:
        out += each;
    }
  }
  return out;
}

// Moves the text before `mark` to `out`, and `mark` away.
void appendBefore(std::string& out, std::string_view& text, std::string_view mark) {
  std::size_t at = text.find(mark);
  out += text.substr(0, at);
  text.remove_prefix(at + mark.size());
}

}  // namespace

std::string printPage(ShownSource const& source) {
  std::string_view rest = kPageText;
  std::string out;
  appendBefore(out, rest, "{{title}}");
  std::string_view name = record::dataNameOf(*source.records.front().root().item);
  out += escaped(compiler::printable(name)) + " - fdrec";
  appendBefore(out, rest, "{{data}}");
  out += pageData(source);
  out += rest;
  return out;
}

}  // namespace fdmorph::show
