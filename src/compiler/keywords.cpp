#include "compiler/keywords.h"

#include <algorithm>
#include <array>

#include "compiler/letters.h"

namespace fdmorph::compiler {
namespace {

struct Entry {
  std::string_view word;
  Keyword keyword;
};

constexpr std::array kWords{
    Entry{"ALL", Keyword::all},
    Entry{"ANY", Keyword::any},
    Entry{"ARE", Keyword::are},
    Entry{"AS", Keyword::as},
    Entry{"ASCENDING", Keyword::ascending},
    Entry{"BASED", Keyword::based},
    Entry{"BINARY", Keyword::binary},
    Entry{"BINARY-C-LONG", Keyword::binaryCLong},
    Entry{"BINARY-CHAR", Keyword::binaryChar},
    Entry{"BINARY-DOUBLE", Keyword::binaryDouble},
    Entry{"BINARY-INT", Keyword::binaryInt},
    Entry{"BINARY-LONG", Keyword::binaryLong},
    Entry{"BINARY-LONG-LONG", Keyword::binaryDouble},
    Entry{"BINARY-SHORT", Keyword::binaryShort},
    Entry{"BIT", Keyword::bit},
    Entry{"BLANK", Keyword::blank},
    Entry{"BY", Keyword::by},
    Entry{"CHARACTER", Keyword::character},
    Entry{"CHARACTERS", Keyword::character},
    Entry{"COMMA", Keyword::comma},
    Entry{"COMMUNICATION", Keyword::communication},
    Entry{"COMP", Keyword::comp},
    Entry{"COMP-0", Keyword::comp},
    Entry{"COMP-1", Keyword::comp1},
    Entry{"COMP-2", Keyword::comp2},
    Entry{"COMP-3", Keyword::comp3},
    Entry{"COMP-4", Keyword::comp4},
    Entry{"COMP-5", Keyword::comp5},
    Entry{"COMP-6", Keyword::comp6},
    Entry{"COMP-N", Keyword::compN},
    Entry{"COMP-X", Keyword::compX},
    Entry{"COMPUTATIONAL", Keyword::comp},
    Entry{"COMPUTATIONAL-1", Keyword::comp1},
    Entry{"COMPUTATIONAL-2", Keyword::comp2},
    Entry{"COMPUTATIONAL-3", Keyword::comp3},
    Entry{"COMPUTATIONAL-4", Keyword::comp4},
    Entry{"COMPUTATIONAL-5", Keyword::comp5},
    Entry{"COMPUTATIONAL-6", Keyword::comp6},
    Entry{"COMPUTATIONAL-N", Keyword::compN},
    Entry{"COMPUTATIONAL-X", Keyword::compX},
    Entry{"CONFIGURATION", Keyword::configuration},
    Entry{"CONSTANT", Keyword::constant},
    Entry{"CURRENCY", Keyword::currency},
    Entry{"DATA", Keyword::data},
    Entry{"DECIMAL-POINT", Keyword::decimalPoint},
    Entry{"DEPENDING", Keyword::depending},
    Entry{"DESCENDING", Keyword::descending},
    Entry{"DISPLAY", Keyword::display},
    Entry{"DISPLAY-1", Keyword::display1},
    Entry{"DIVISION", Keyword::division},
    Entry{"DYNAMIC", Keyword::dynamic},
    Entry{"END", Keyword::end},
    Entry{"ENVIRONMENT", Keyword::environment},
    Entry{"EXTERNAL", Keyword::external},
    Entry{"FD", Keyword::fd},
    Entry{"FILE", Keyword::file},
    Entry{"FILLER", Keyword::filler},
    Entry{"FLOAT-BINARY-128", Keyword::floatBinary128},
    Entry{"FLOAT-BINARY-32", Keyword::floatBinary32},
    Entry{"FLOAT-BINARY-64", Keyword::floatBinary64},
    Entry{"FLOAT-DECIMAL-16", Keyword::floatDecimal16},
    Entry{"FLOAT-DECIMAL-34", Keyword::floatDecimal34},
    Entry{"FLOAT-EXTENDED", Keyword::floatExtended},
    Entry{"FLOAT-LONG", Keyword::floatLong},
    Entry{"FLOAT-SHORT", Keyword::floatShort},
    Entry{"FROM", Keyword::from},
    Entry{"FUNCTION-ID", Keyword::programId},
    Entry{"FUNCTION-POINTER", Keyword::functionPointer},
    Entry{"GLOBAL", Keyword::global},
    Entry{"HANDLE", Keyword::handle},
    Entry{"HIGH-VALUE", Keyword::highValue},
    Entry{"HIGH-VALUES", Keyword::highValue},
    Entry{"ID", Keyword::id},
    Entry{"IDENTIFICATION", Keyword::identification},
    Entry{"IN", Keyword::in},
    Entry{"INDEX", Keyword::index},
    Entry{"INDEXED", Keyword::indexed},
    Entry{"INPUT-OUTPUT", Keyword::inputOutput},
    Entry{"IS", Keyword::is},
    Entry{"JUST", Keyword::just},
    Entry{"JUSTIFIED", Keyword::just},
    Entry{"KEY", Keyword::key},
    Entry{"LEADING", Keyword::leading},
    Entry{"LEFT", Keyword::left},
    Entry{"LENGTH", Keyword::length},
    Entry{"LINKAGE", Keyword::linkage},
    Entry{"LOCAL-STORAGE", Keyword::localStorage},
    Entry{"LOW-VALUE", Keyword::lowValue},
    Entry{"LOW-VALUES", Keyword::lowValue},
    Entry{"NATIONAL", Keyword::national},
    Entry{"NULL", Keyword::null},
    Entry{"NULLS", Keyword::null},
    Entry{"OBJECT", Keyword::object},
    Entry{"OCCURS", Keyword::occurs},
    Entry{"OF", Keyword::of},
    Entry{"ON", Keyword::on},
    Entry{"PACKED-DECIMAL", Keyword::packedDecimal},
    Entry{"PIC", Keyword::picture},
    Entry{"PICTURE", Keyword::picture},
    Entry{"POINTER", Keyword::pointer},
    Entry{"PROCEDURE", Keyword::procedure},
    Entry{"PROCEDURE-POINTER", Keyword::procedurePointer},
    Entry{"PROGRAM", Keyword::program},
    Entry{"PROGRAM-ID", Keyword::programId},
    Entry{"PROGRAM-POINTER", Keyword::programPointer},
    Entry{"QUOTE", Keyword::quote},
    Entry{"QUOTES", Keyword::quote},
    Entry{"RECORD", Keyword::record},
    Entry{"REDEFINES", Keyword::redefines},
    Entry{"REFERENCE", Keyword::reference},
    Entry{"RENAMES", Keyword::renames},
    Entry{"REPORT", Keyword::report},
    Entry{"RIGHT", Keyword::right},
    Entry{"SCREEN", Keyword::screen},
    Entry{"SD", Keyword::sd},
    Entry{"SECTION", Keyword::section},
    Entry{"SEPARATE", Keyword::separate},
    Entry{"SIGN", Keyword::sign},
    Entry{"SIGNED", Keyword::signedWord},
    Entry{"SIGNED-INT", Keyword::signedInt},
    Entry{"SIGNED-LONG", Keyword::signedLong},
    Entry{"SIGNED-SHORT", Keyword::signedShort},
    Entry{"SIZE", Keyword::size},
    Entry{"SPACE", Keyword::space},
    Entry{"SPACES", Keyword::space},
    Entry{"SYMBOL", Keyword::symbol},
    Entry{"SYMBOLIC", Keyword::symbolic},
    Entry{"SYNC", Keyword::sync},
    Entry{"SYNCHRONISED", Keyword::sync},
    Entry{"SYNCHRONIZED", Keyword::sync},
    Entry{"THROUGH", Keyword::thru},
    Entry{"THRU", Keyword::thru},
    Entry{"TIMES", Keyword::times},
    Entry{"TO", Keyword::to},
    Entry{"TRAILING", Keyword::trailing},
    Entry{"UNSIGNED", Keyword::unsignedWord},
    Entry{"UNSIGNED-INT", Keyword::unsignedInt},
    Entry{"UNSIGNED-LONG", Keyword::unsignedLong},
    Entry{"UNSIGNED-SHORT", Keyword::unsignedShort},
    Entry{"USAGE", Keyword::usage},
    Entry{"VALUE", Keyword::value},
    Entry{"VALUES", Keyword::value},
    Entry{"VOLATILE", Keyword::volatileWord},
    Entry{"WHEN", Keyword::when},
    Entry{"WORKING-STORAGE", Keyword::workingStorage},
    Entry{"ZERO", Keyword::zero},
    Entry{"ZEROES", Keyword::zero},
    Entry{"ZEROS", Keyword::zero},
};

constexpr bool isBefore(Entry const& left, Entry const& right) {
  return left.word < right.word;
}
static_assert(std::is_sorted(kWords.begin(), kWords.end(), isBefore));

constexpr std::size_t longestWord() {
  std::size_t longest = 0;
  for (Entry const& each : kWords) longest = std::max(longest, each.word.size());
  return longest;
}

}  // namespace

Keyword keywordOf(std::string_view word) {
  std::array<char, longestWord()> upper{};
  if (word.size() > upper.size()) return Keyword::none;
  std::transform(word.begin(), word.end(), upper.begin(), toUpper);
  std::string_view wanted(upper.data(), word.size());
  auto found =
      std::lower_bound(kWords.begin(), kWords.end(), Entry{wanted, Keyword::none}, isBefore);
  return found != kWords.end() && found->word == wanted ? found->keyword : Keyword::none;
}

bool isCommentParagraph(std::string_view word) {
  for (std::string_view each : {"AUTHOR", "DATE-COMPILED", "DATE-WRITTEN", "INSTALLATION",
                                "OPTIONS", "REMARKS", "SECURITY"}) {
    if (equalsBlindly(word, each)) return true;
  }
  return false;
}

bool beginsClause(Keyword keyword) {
  switch (keyword) {
    case Keyword::any:
    case Keyword::based:
    case Keyword::blank:
    case Keyword::constant:
    case Keyword::external:
    case Keyword::global:
    case Keyword::just:
    case Keyword::occurs:
    case Keyword::picture:
    case Keyword::redefines:
    case Keyword::renames:
    case Keyword::sign:
    case Keyword::leading:
    case Keyword::trailing:
    case Keyword::sync:
    case Keyword::usage:
    case Keyword::value:
    case Keyword::volatileWord:
      return true;
    default:
      return false;
  }
}

}  // namespace fdmorph::compiler
