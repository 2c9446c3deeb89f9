// A schema that a command works on.
#pragma once

#include <memory>
#include <string>

#include "xml/location_resolver.h"
#include "xml/schema_model.h"

namespace fdmorph::fdrec {

/// Prints a report with its place to the standard error stream.
void printSchemaReport(SchemaReport const& report);

/// A loaded schema and the files that it was read from.
class SchemaFile {
 public:
  /// Loads `path` and what it refers to, through `resolver`. Reports are printed to
  /// the standard error stream.
  SchemaFile(std::string const& path, std::unique_ptr<LocationResolver> resolver);

  /// kClean if there is a model; else the exit status of the command.
  [[nodiscard]] int status() const { return m_status; }
  [[nodiscard]] SchemaModel& model() { return *m_model; }

 private:
  std::unique_ptr<LocationResolver> m_resolver;
  InputFiles m_files;
  std::unique_ptr<SchemaModel> m_model;
  int m_status;
};

}  // namespace fdmorph::fdrec
