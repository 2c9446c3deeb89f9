#include "fdrec/assembled_schema.h"

#include "fdrec/command.h"
#include "fdrec/files.h"
#include "fdrec/schema_options.h"
#include "source/source_files.h"
#include "xml/input_files.h"

namespace fdmorph::fdrec {

AssembledSchema::AssembledSchema(std::string const& path, LocationResolver& resolver)
    : m_status(kClean) {
  if (!InputFile(path).canBeRead()) {
    printError("cannot read " + compiler::quoted(path) + ": " + compiler::whyUnreadable(path),
               "file");
    m_status = kFailed;
    return;
  }
  SchemaAssembly assembly(m_store, resolver);
  m_set = assembly.assemble(path);
  for (XmlFault const& each : assembly.faults()) printFault(each, "schema");
  if (!assembly.faults().empty()) m_status = kErrors;
}

}  // namespace fdmorph::fdrec
