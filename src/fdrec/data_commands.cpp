#include "fdrec/commands.h"

namespace fdmorph::fdrec {

std::vector<CommandRow> dataCommands(OpenSchema openSchema) {
  return {
      {"schema", "write an XML Schema or JSON Schema of the documents of a record",
       makeSchemaCommand},
      {"index", "write where records begin in a file, for --part", makeIndexCommand},
      {"to-xml", "convert records to XML", [=] { return makeToXmlCommand(openSchema); }},
      {"to-json", "convert records to JSON lines", [=] { return makeToJsonCommand(openSchema); }},
      {"from-xml", "convert XML to records", [=] { return makeFromXmlCommand(openSchema); }},
      {"from-json", "convert JSON lines to records",
       [=] { return makeFromJsonCommand(openSchema); }},
      {"verify", "check that records as documents keep all bytes", makeVerifyCommand},
  };
}

}  // namespace fdmorph::fdrec
