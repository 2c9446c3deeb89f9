#include "syntax/keywords.h"

#include <algorithm>
#include <array>

#include "text/letter_case.h"
#include "text/name_table.h"

namespace fdmorph::compiler {
namespace {

constexpr auto kWords = makeNameTable<Keyword>({
    {"ALL", Keyword::all},
    {"ANY", Keyword::any},
    {"ARE", Keyword::are},
    {"AS", Keyword::as},
    {"ASCENDING", Keyword::ascending},
    {"BASED", Keyword::based},
    {"BINARY", Keyword::binary},
    {"BINARY-C-LONG", Keyword::binaryCLong},
    {"BINARY-CHAR", Keyword::binaryChar},
    {"BINARY-DOUBLE", Keyword::binaryDouble},
    {"BINARY-INT", Keyword::binaryInt},
    {"BINARY-LONG", Keyword::binaryLong},
    {"BINARY-LONG-LONG", Keyword::binaryDouble},
    {"BINARY-SHORT", Keyword::binaryShort},
    {"BIT", Keyword::bit},
    {"BLANK", Keyword::blank},
    {"BY", Keyword::by},
    {"CHARACTER", Keyword::character},
    {"CHARACTERS", Keyword::character},
    {"COMMA", Keyword::comma},
    {"COMMUNICATION", Keyword::communication},
    {"COMP", Keyword::comp},
    {"COMP-0", Keyword::comp},
    {"COMP-1", Keyword::comp1},
    {"COMP-2", Keyword::comp2},
    {"COMP-3", Keyword::comp3},
    {"COMP-4", Keyword::comp4},
    {"COMP-5", Keyword::comp5},
    {"COMP-6", Keyword::comp6},
    {"COMP-N", Keyword::compN},
    {"COMP-X", Keyword::compX},
    {"COMPUTATIONAL", Keyword::comp},
    {"COMPUTATIONAL-1", Keyword::comp1},
    {"COMPUTATIONAL-2", Keyword::comp2},
    {"COMPUTATIONAL-3", Keyword::comp3},
    {"COMPUTATIONAL-4", Keyword::comp4},
    {"COMPUTATIONAL-5", Keyword::comp5},
    {"COMPUTATIONAL-6", Keyword::comp6},
    {"COMPUTATIONAL-N", Keyword::compN},
    {"COMPUTATIONAL-X", Keyword::compX},
    {"CONFIGURATION", Keyword::configuration},
    {"CONSTANT", Keyword::constant},
    {"CURRENCY", Keyword::currency},
    {"DATA", Keyword::data},
    {"DECIMAL-POINT", Keyword::decimalPoint},
    {"DEPENDING", Keyword::depending},
    {"DESCENDING", Keyword::descending},
    {"DISPLAY", Keyword::display},
    {"DISPLAY-1", Keyword::display1},
    {"DIVISION", Keyword::division},
    {"DYNAMIC", Keyword::dynamic},
    {"END", Keyword::end},
    {"ENVIRONMENT", Keyword::environment},
    {"EXTERNAL", Keyword::external},
    {"FD", Keyword::fd},
    {"FILE", Keyword::file},
    {"FILLER", Keyword::filler},
    {"FLOAT-BINARY-128", Keyword::floatBinary128},
    {"FLOAT-BINARY-32", Keyword::floatBinary32},
    {"FLOAT-BINARY-64", Keyword::floatBinary64},
    {"FLOAT-DECIMAL-16", Keyword::floatDecimal16},
    {"FLOAT-DECIMAL-34", Keyword::floatDecimal34},
    {"FLOAT-EXTENDED", Keyword::floatExtended},
    {"FLOAT-LONG", Keyword::floatLong},
    {"FLOAT-SHORT", Keyword::floatShort},
    {"FROM", Keyword::from},
    {"FUNCTION-ID", Keyword::programId},
    {"FUNCTION-POINTER", Keyword::functionPointer},
    {"GLOBAL", Keyword::global},
    {"HANDLE", Keyword::handle},
    {"HIGH-VALUE", Keyword::highValue},
    {"HIGH-VALUES", Keyword::highValue},
    {"ID", Keyword::id},
    {"IDENTIFICATION", Keyword::identification},
    {"IN", Keyword::in},
    {"INDEX", Keyword::index},
    {"INDEXED", Keyword::indexed},
    {"INPUT-OUTPUT", Keyword::inputOutput},
    {"IS", Keyword::is},
    {"JUST", Keyword::just},
    {"JUSTIFIED", Keyword::just},
    {"KEY", Keyword::key},
    {"LEADING", Keyword::leading},
    {"LEFT", Keyword::left},
    {"LENGTH", Keyword::length},
    {"LINKAGE", Keyword::linkage},
    {"LOCAL-STORAGE", Keyword::localStorage},
    {"LOW-VALUE", Keyword::lowValue},
    {"LOW-VALUES", Keyword::lowValue},
    {"NATIONAL", Keyword::national},
    {"NULL", Keyword::null},
    {"NULLS", Keyword::null},
    {"OBJECT", Keyword::object},
    {"OCCURS", Keyword::occurs},
    {"OF", Keyword::of},
    {"ON", Keyword::on},
    {"PACKED-DECIMAL", Keyword::packedDecimal},
    {"PIC", Keyword::picture},
    {"PICTURE", Keyword::picture},
    {"POINTER", Keyword::pointer},
    {"PROCEDURE", Keyword::procedure},
    {"PROCEDURE-POINTER", Keyword::procedurePointer},
    {"PROGRAM", Keyword::program},
    {"PROGRAM-ID", Keyword::programId},
    {"PROGRAM-POINTER", Keyword::programPointer},
    {"QUOTE", Keyword::quote},
    {"QUOTES", Keyword::quote},
    {"RECORD", Keyword::record},
    {"REDEFINES", Keyword::redefines},
    {"REFERENCE", Keyword::reference},
    {"RENAMES", Keyword::renames},
    {"REPORT", Keyword::report},
    {"RIGHT", Keyword::right},
    {"SCREEN", Keyword::screen},
    {"SD", Keyword::sd},
    {"SECTION", Keyword::section},
    {"SEPARATE", Keyword::separate},
    {"SIGN", Keyword::sign},
    {"SIGNED", Keyword::signedWord},
    {"SIGNED-INT", Keyword::signedInt},
    {"SIGNED-LONG", Keyword::signedLong},
    {"SIGNED-SHORT", Keyword::signedShort},
    {"SIZE", Keyword::size},
    {"SPACE", Keyword::space},
    {"SPACES", Keyword::space},
    {"SYMBOL", Keyword::symbol},
    {"SYMBOLIC", Keyword::symbolic},
    {"SYNC", Keyword::sync},
    {"SYNCHRONISED", Keyword::sync},
    {"SYNCHRONIZED", Keyword::sync},
    {"THROUGH", Keyword::thru},
    {"THRU", Keyword::thru},
    {"TIMES", Keyword::times},
    {"TO", Keyword::to},
    {"TRAILING", Keyword::trailing},
    {"UNSIGNED", Keyword::unsignedWord},
    {"UNSIGNED-INT", Keyword::unsignedInt},
    {"UNSIGNED-LONG", Keyword::unsignedLong},
    {"UNSIGNED-SHORT", Keyword::unsignedShort},
    {"USAGE", Keyword::usage},
    {"VALUE", Keyword::value},
    {"VALUES", Keyword::value},
    {"VOLATILE", Keyword::volatileWord},
    {"WHEN", Keyword::when},
    {"WORKING-STORAGE", Keyword::workingStorage},
    {"ZERO", Keyword::zero},
    {"ZEROES", Keyword::zero},
    {"ZEROS", Keyword::zero},
});
static_assert(kWords.isSorted());

struct UsageWord {
  Keyword keyword;
  Usage usage;
};

constexpr std::array kUsageWords{
    UsageWord{Keyword::display, Usage::display},
    UsageWord{Keyword::comp, Usage::comp},
    UsageWord{Keyword::comp1, Usage::comp1},
    UsageWord{Keyword::comp2, Usage::comp2},
    UsageWord{Keyword::comp3, Usage::comp3},
    UsageWord{Keyword::comp5, Usage::comp5},
    UsageWord{Keyword::comp6, Usage::comp6},
    UsageWord{Keyword::compN, Usage::compN},
    UsageWord{Keyword::compX, Usage::compX},
    UsageWord{Keyword::national, Usage::national},
    UsageWord{Keyword::display1, Usage::display1},
    UsageWord{Keyword::index, Usage::index},
    UsageWord{Keyword::pointer, Usage::pointer},
    UsageWord{Keyword::programPointer, Usage::programPointer},
    UsageWord{Keyword::procedurePointer, Usage::procedurePointer},
    UsageWord{Keyword::functionPointer, Usage::functionPointer},
    UsageWord{Keyword::object, Usage::object},
    UsageWord{Keyword::binaryChar, Usage::binaryChar},
    UsageWord{Keyword::binaryShort, Usage::binaryShort},
    UsageWord{Keyword::binaryLong, Usage::binaryLong},
    UsageWord{Keyword::binaryDouble, Usage::binaryDouble},
    UsageWord{Keyword::binaryCLong, Usage::binaryCLong},
    UsageWord{Keyword::binaryInt, Usage::binaryInt},
    UsageWord{Keyword::floatShort, Usage::floatShort},
    UsageWord{Keyword::floatLong, Usage::floatLong},
    UsageWord{Keyword::floatBinary32, Usage::floatBinary32},
    UsageWord{Keyword::floatBinary64, Usage::floatBinary64},
    UsageWord{Keyword::floatBinary128, Usage::floatBinary128},
    UsageWord{Keyword::floatDecimal16, Usage::floatDecimal16},
    UsageWord{Keyword::floatDecimal34, Usage::floatDecimal34},
    UsageWord{Keyword::floatExtended, Usage::floatExtended},
    UsageWord{Keyword::signedShort, Usage::signedShort},
    UsageWord{Keyword::signedInt, Usage::signedInt},
    UsageWord{Keyword::signedLong, Usage::signedLong},
    UsageWord{Keyword::unsignedShort, Usage::unsignedShort},
    UsageWord{Keyword::unsignedInt, Usage::unsignedInt},
    UsageWord{Keyword::unsignedLong, Usage::unsignedLong},
    UsageWord{Keyword::handle, Usage::handle},
    UsageWord{Keyword::bit, Usage::bit},
    UsageWord{Keyword::comp4, Usage::comp},
    UsageWord{Keyword::binary, Usage::comp},
    UsageWord{Keyword::packedDecimal, Usage::comp3},
};

// The usages by keyword, none for all other keywords.
constexpr auto kUsages = [] {
  std::array<Usage, kKeywordCount> usages{};
  for (UsageWord const& each : kUsageWords) {
    usages[static_cast<std::size_t>(each.keyword)] = each.usage;
  }
  return usages;
}();

}  // namespace

Keyword keywordOf(std::string_view word) {
  std::array<char, kWords.maxLength()> upper{};
  if (word.size() > upper.size()) return Keyword::none;
  std::transform(word.begin(), word.end(), upper.begin(), toUpper);
  return kWords.find({upper.data(), word.size()}, Keyword::none);
}

std::optional<Usage> usageOf(Keyword keyword) {
  Usage usage = kUsages[static_cast<std::size_t>(keyword)];
  return usage == Usage::none ? std::nullopt : std::optional(usage);
}

}  // namespace fdmorph::compiler
