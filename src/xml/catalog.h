// OASIS XML catalogs: where the resources of a URI or an identifier are at hand.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "xml/xml_events.h"

namespace fdmorph {

/// Entry files in the order in which they are searched. What a file delegates to or
/// names as the next one is read when a search first reaches it. The rules are
/// those of XML Catalogs 1.1. libxml2 has catalogs, too, but without suffix entries,
/// and its errors have no places.
class Catalog {
 public:
  Catalog();
  explicit Catalog(std::vector<std::string> files);
  ~Catalog();
  Catalog(Catalog&&) noexcept;
  Catalog& operator=(Catalog&&) noexcept;

  /// Reads the files given. The first fault of each that cannot be used; such a
  /// file has no entries.
  [[nodiscard]] std::vector<XmlFault> load();

  /// The URI for an external identifier; either part may be empty.
  [[nodiscard]] std::optional<std::string> findExternal(std::string_view publicId,
                                                        std::string_view systemId);

  /// The URI for a URI.
  [[nodiscard]] std::optional<std::string> findUri(std::string_view uri);

  /// The number of files that searches have come to so far.
  [[nodiscard]] std::size_t fileCount() const { return m_files.size(); }

  /// The paths of those that could be read.
  [[nodiscard]] std::vector<std::string> files() const;

 private:
  struct File;
  enum class Kind { external, uri };
  struct Search;

  File const& at(std::string const& path);
  bool search(std::string const& path, Search& wanted);
  bool searchNext(File const& file, Search& wanted);

  std::vector<std::string> m_paths;
  std::map<std::string, std::unique_ptr<File>> m_files;
};

}  // namespace fdmorph
