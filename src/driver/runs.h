// The runs of the tool. Each returns the exit status and leaves the standard
// streams restored.
#pragma once

#include "driver/settings.h"

namespace fdmorph {

/// Has a COBOL source compiled and converts its data dictionary.
int runCobolToSchema(Settings const& settings);

/// Writes COBOL records from a schema.
int runSchemaToCobol(Settings const& settings);

/// Validates a schema or an instance document and generates nothing.
int runValidation(Settings const& settings);

}  // namespace fdmorph
