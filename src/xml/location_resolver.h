// Where the locations in XML files lead, for programs that fetch nothing.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "xml/catalog.h"

namespace fdmorph {

/// A location, and the file that names it.
struct LocationReference {
  std::string base;        ///< path of the file that names the location
  std::string location;    ///< a path or a URI, as written; may be empty
  std::string identifier;  ///< namespace or public identifier; empty if there is none
};

/// Finds local files for locations.
class LocationResolver {
 public:
  LocationResolver() = default;
  virtual ~LocationResolver() = default;
  LocationResolver(LocationResolver const&) = delete;
  LocationResolver& operator=(LocationResolver const&) = delete;

  /// The path of the file that the reference leads to: always the same for one
  /// file. Nothing if there is no such file.
  [[nodiscard]] virtual std::optional<std::string> resolve(LocationReference const& reference) = 0;
};

/// Looks for a location in the folder of the file that names it, then in folders
/// that the user gives, then in catalogs. A location that is a URI of another
/// scheme than `file` is found only in a folder, as FOLDER/HOST/PATH or
/// FOLDER/LAST-PART-OF-PATH, or by a catalog. White space around a location and a
/// fragment count only where there is a file of such a name. A reference without a
/// location is looked up in the catalogs by its identifier.
class FileResolver : public LocationResolver {
 public:
  explicit FileResolver(std::vector<std::string> folders = {}, Catalog catalog = Catalog())
      : m_folders(std::move(folders)), m_catalog(std::move(catalog)) {}

  [[nodiscard]] std::optional<std::string> resolve(LocationReference const& reference) override;

  [[nodiscard]] Catalog const& catalog() const { return m_catalog; }

 private:
  std::optional<std::string> find(LocationReference const& reference);
  std::optional<std::string> findInFolders(std::string const& location) const;
  std::optional<std::string> findInCatalog(LocationReference const& reference);

  std::vector<std::string> m_folders;
  Catalog m_catalog;
  std::map<std::string, std::string> m_names;  // the path that a file has, by its real path
};

/// `location` as a local path, relative ones below the folder of the file `base`.
/// Nothing if it is a URI of another scheme than `file`, or of another host.
[[nodiscard]] std::optional<std::string> localPath(std::string const& base,
                                                   std::string const& location);

/// The absolute URI of a location. One that is a path becomes a `file` URI.
[[nodiscard]] std::string absoluteUri(std::string const& base, std::string const& location);

}  // namespace fdmorph
