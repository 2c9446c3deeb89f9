#include "fdrec/data_schema.h"

#include <utility>

#include "fdrec/command.h"
#include "fdrec/files.h"
#include "fdrec/schema_options.h"
#include "fdrec/schema_validation.h"
#include "source/diagnostics.h"
#include "xml/input_files.h"

namespace fdmorph::fdrec {

std::unique_ptr<RecordSchema> DataSchema::open(DataOptions const& data,
                                               std::shared_ptr<ReadFiles> const& read) {
  return std::make_unique<DataSchema>(data, read);
}

std::unique_ptr<RecordValidation> DataSchema::validate(layout::RecordSet const& set) {
  return std::make_unique<SchemaValidation>(*this, set);
}

DataSchema::DataSchema(DataOptions const& data, std::shared_ptr<ReadFiles> const& read)
    : m_status(kFailed) {
  if (InputFile(data.schema, true).kind() == InputFile::Kind::pipe) {
    printError(compiler::quoted(data.schema) + " is a pipe; expected a file, which is read twice",
               "file");
    return;
  }
  SchemaOptions const files{data.importFolders, data.catalogs};
  std::unique_ptr<FileResolver> resolver = makeResolver(files, data.schema, read);
  if (resolver == nullptr) return;
  m_file = std::make_unique<SchemaFile>(data.schema, std::move(resolver));
  m_status = m_file->status();
  for (std::size_t i = 0; m_status == kClean && i < data.framing.threads(); ++i) {
    resolver = makeResolver(files, data.schema, read);
    LoadedValidator loaded;
    if (resolver) loaded = DocumentValidator::load(data.schema, std::move(resolver));
    for (SchemaReport const& each : loaded.reports) printSchemaReport(each);
    if (loaded.validator == nullptr) m_status = kErrors;
    m_validators.push_back(std::move(loaded.validator));
  }
}

}  // namespace fdmorph::fdrec
