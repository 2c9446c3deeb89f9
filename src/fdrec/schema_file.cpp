#include "fdrec/schema_file.h"

#include <cstdio>
#include <utility>

#include "fdrec/command.h"
#include "fdrec/files.h"

namespace fdmorph::fdrec {

void printSchemaReport(SchemaReport const& report) {
  std::string line = report.place.file.empty() ? "fdrec" : report.place.file;
  if (report.place.line != 0) {
    line += ":" + std::to_string(report.place.line) + ":" + std::to_string(report.place.column);
  }
  line += std::string(report.isWarning ? ": warning: " : ": error: ") + report.message;
  line = compiler::printable(line) + " [schema]\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
}

SchemaFile::SchemaFile(std::string const& path, std::unique_ptr<LocationResolver> resolver)
    : m_resolver(std::move(resolver)), m_status(kErrors) {
  InputFile::Kind const kind = InputFile(path, true).kind();
  bool const mayBeRead = kind == InputFile::Kind::regular || kind == InputFile::Kind::pipe;
  if (!mayBeRead || (kind == InputFile::Kind::regular && !m_files.at(path)->canBeRead())) {
    printError("cannot read " + compiler::quoted(path) + ": " + compiler::whyUnreadable(path),
               "file");
    m_status = kFailed;
    return;
  }
  LoadedSchema loaded = SchemaModel::load(path, m_files, m_resolver.get());
  for (SchemaReport const& each : loaded.reports) printSchemaReport(each);
  m_model = std::move(loaded.model);
  if (m_model != nullptr) m_status = kClean;
}

}  // namespace fdmorph::fdrec
