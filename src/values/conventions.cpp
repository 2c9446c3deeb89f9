#include "values/conventions.h"

namespace fdmorph::values {

std::string_view nameOf(SignTable table) {
  switch (table) {
    case SignTable::ebcdic:
      return "ebcdic";
    case SignTable::gnuCobol:
      return "gnucobol";
    default:
      return "overpunch";
  }
}

ConventionsResult makeConventions(compiler::Dialect dialect,
                                  std::shared_ptr<charset::CodePage const> codePage,
                                  std::optional<SignTable> signs) {
  ConventionsResult result;
  bool const isIbm = dialect == compiler::Dialect::ibm;
  bool const isEbcdic = codePage->isEbcdic();
  if (signs && (*signs == SignTable::ebcdic) != isEbcdic) {
    result.error = "sign table '" + std::string(nameOf(*signs)) + "' does not go with encoding '" +
                   codePage->name() + "', which is based on " + (isEbcdic ? "EBCDIC" : "ASCII");
    return result;
  }
  SignTable const ofAscii = isIbm ? SignTable::overpunch : SignTable::gnuCobol;
  Conventions& conventions = result.conventions;
  conventions.signs = signs.value_or(isEbcdic ? SignTable::ebcdic : ofAscii);
  conventions.floats = isIbm ? FloatForm::ibm : FloatForm::ieeeLittle;
  conventions.isNativeBigEndian = isIbm;
  conventions.isNationalBigEndian = isIbm;
  conventions.codePage = std::move(codePage);
  return result;
}

}  // namespace fdmorph::values
