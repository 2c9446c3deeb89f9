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
      {"to-xml", "convert records to XML", makeToXmlCommand},
      {"to-json", "convert records to JSON lines", makeToJsonCommand},
      {"from-xml", "convert XML to records", makeFromXmlCommand},
      {"from-json", "convert JSON lines to records", makeFromJsonCommand},
      {"verify", "check that records as documents keep all bytes", makeVerifyCommand},
  };
  return kCommands;
}

}  // namespace fdmorph::fdrec
