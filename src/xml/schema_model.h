// The schema model of the XML library as neutral values. It is taken from the library's
// grammars: XSModel, which stands above them, needs time and memory that grow with the
// square of the elements in recursive types, and has several objects for one such type.
//
// A schema is loaded through the same input sources, limits and refusals as in
// CDMDOMParser. Reports become values. Types are made when they are asked for, so
// that the cost of a walk is that of the types it meets, and each only once, so that
// a recursive type ends where it begins. Places are found by reading the schema files
// a second time, those alone that hold a declaration whose place is asked for.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "xml/input_files.h"
#include "xml/location_resolver.h"
#include "xml/schema_components.h"

namespace fdmorph {

/// What the library, or a limit, has to say of a schema.
struct SchemaReport {
  bool isWarning = false;
  SchemaPlace place;  ///< without a file if the report has none
  std::string message;
};

struct LoadedSchema;

/// A loaded schema. References and pointers that it returns are valid as long as it
/// exists.
class SchemaModel {
 public:
  /// Loads `fileName` and all that it refers to. `files` and `resolver`, if there is
  /// one, must outlive the model.
  [[nodiscard]] static LoadedSchema load(std::string const& fileName, InputFiles& files,
                                         LocationResolver* resolver = nullptr);

  ~SchemaModel();
  SchemaModel(SchemaModel const&) = delete;
  SchemaModel& operator=(SchemaModel const&) = delete;

  /// The global elements, in no particular order.
  [[nodiscard]] std::vector<SchemaElement const*> const& globalElements() const;

  /// The global element of that name; null if there is none.
  [[nodiscard]] SchemaElement const* globalElement(SchemaName const& name) const;

  [[nodiscard]] SchemaType const& typeOf(SchemaElement const& element);

  /// The elements that may stand in the place of `head` and are not abstract, those
  /// of its members' groups included, without `head` itself.
  [[nodiscard]] std::vector<SchemaElement const*> const& substitutesOf(SchemaElement const& head);

  /// Where `element` is declared.
  [[nodiscard]] SchemaPlace placeOf(SchemaElement const& element);

  /// Where the attribute of that name is declared among those of `owner`'s type. The
  /// place of `owner` if it is not found.
  [[nodiscard]] SchemaPlace placeOf(SchemaAttribute const& attribute, SchemaElement const& owner);

 private:
  class Impl;
  explicit SchemaModel(std::unique_ptr<Impl> impl);

  std::unique_ptr<Impl> m_impl;
};

struct LoadedSchema {
  std::unique_ptr<SchemaModel> model;  ///< null if there is any report
  std::vector<SchemaReport> reports;   ///< in the order in which they were found
};

}  // namespace fdmorph
