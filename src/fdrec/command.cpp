#include "fdrec/command.h"

namespace fdmorph::fdrec {

std::string CommonOptions::effectiveEncoding() const {
  if (!encoding.empty()) return encoding;
  return source.dialect == compiler::Dialect::ibm ? "cp037" : "utf-8";
}

}  // namespace fdmorph::fdrec
