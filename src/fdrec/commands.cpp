#include "fdrec/commands.h"

#include <iterator>
#include <utility>

#include "fdrec/data_schema.h"

namespace fdmorph::fdrec {

std::vector<CommandRow> allCommands() {
  std::vector<CommandRow> commands{
      {"show", "show the items of records with offset, length, picture and XML path",
       makeShowCommand},
      {"plain", "write a copybook that any COBOL compiler accepts", makePlainCommand},
      {"check", "check that every valid document of a schema fits a record", makeCheckCommand},
      {"copybook", "write a record for an element of a schema", makeCopybookCommand},
      {"deps", "write a rule for make with the files that a schema or source consists of",
       makeDepsCommand},
      {"bundle", "copy a schema and all files that it reaches into a folder", makeBundleCommand},
      {"map-check", "check a mapping file of fdmorph against a copybook", makeMapCheckCommand},
      {"map-merge", "carry the edits of a mapping file over to a changed copybook",
       makeMapMergeCommand},
  };
  std::vector<CommandRow> onData = dataCommands(DataSchema::open);
  std::move(onData.begin(), onData.end(), std::back_inserter(commands));
  return commands;
}

}  // namespace fdmorph::fdrec
