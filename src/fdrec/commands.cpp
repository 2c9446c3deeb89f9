#include "fdrec/commands.h"

#include <vector>

namespace fdmorph::fdrec {

std::span<CommandRow const> commandTable() {
  static std::vector<CommandRow> const kCommands{
      {"show", "show the items of records with offset, length, picture and XML path",
       makeShowCommand},
      {"plain", "write a copybook that any COBOL compiler accepts", makePlainCommand},
      {"check", "check that every valid document of a schema fits a record", makeCheckCommand},
      {"copybook", "write a record for an element of a schema", makeCopybookCommand},
      {"schema", "write an XML Schema or JSON Schema of the documents of a record",
       makeSchemaCommand},
      {"index", "write where records begin in a file, for --part", makeIndexCommand},
  };
  return kCommands;
}

}  // namespace fdmorph::fdrec
