#include "xml/location_resolver.h"

#include <filesystem>
#include <system_error>

#include "xml/uris.h"

namespace fdmorph {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kBlanks = " \t\r\n";

bool isFile(std::string const& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

std::string below(fs::path const& folder, std::string_view path) {
  return (folder / path).lexically_normal().string();
}

// The file at a path that may be written with the escapes of a URI.
std::optional<std::string> fileAt(std::string path) {
  if (isFile(path)) return path;
  std::string decoded = decodeEscapes(path);
  if (decoded != path && isFile(decoded)) return decoded;
  return std::nullopt;
}

// A location as written, then without the white space around it, which is not part of a
// URI, then without a fragment.
std::vector<std::string> spellingsOf(std::string const& location) {
  std::vector<std::string> spellings{location};
  std::size_t const begin = location.find_first_not_of(kBlanks);
  if (begin == location.npos) return {""};
  std::string trimmed = location.substr(begin, location.find_last_not_of(kBlanks) + 1 - begin);
  if (trimmed != location) spellings.push_back(trimmed);
  std::size_t const fragment = trimmed.find('#');
  if (fragment != trimmed.npos && fragment > 0) spellings.push_back(trimmed.substr(0, fragment));
  return spellings;
}

}  // namespace

std::optional<std::string> localPath(std::string const& base, std::string const& location) {
  if (!uriScheme(location).empty()) return pathOfFileUri(location);
  return below(fs::path(base).parent_path(), location);
}

std::string absoluteUri(std::string const& base, std::string const& location) {
  std::optional<std::string> path = localPath(base, location);
  return path ? fileUri(*path) : location;
}

std::optional<std::string> FileResolver::resolve(LocationReference const& reference) {
  std::optional<std::string> path;
  // The identifier comes after all spellings.
  std::vector<std::string> const spellings = spellingsOf(reference.location);
  for (std::string const& spelling : spellings) {
    bool const isLast = &spelling == &spellings.back();
    if (!path) path = find({reference.base, spelling, isLast ? reference.identifier : ""});
  }
  if (!path) return std::nullopt;
  std::error_code error;
  fs::path real = fs::canonical(*path, error);
  return m_names.try_emplace(error ? *path : real.string(), *path).first->second;
}

std::optional<std::string> FileResolver::find(LocationReference const& reference) {
  if (!reference.location.empty()) {
    std::optional<std::string> path = localPath(reference.base, reference.location);
    if (path) path = fileAt(*path);
    if (!path) path = findInFolders(reference.location);
    if (path) return path;
  }
  return findInCatalog(reference);
}

std::optional<std::string> FileResolver::findInFolders(std::string const& location) const {
  bool isRelative = uriScheme(location).empty() && !location.starts_with('/');
  std::string_view path = uriPath(location);
  std::string_view last = path.substr(path.rfind('/') + 1);
  if (last.empty()) return std::nullopt;
  for (std::string const& folder : m_folders) {
    std::optional<std::string> found;
    if (isRelative) {
      found = fileAt(below(folder, location));
    } else {
      std::string_view host = uriHost(location);
      if (!host.empty()) found = fileAt(below(folder, std::string(host).append(path)));
      if (!found) found = fileAt(below(folder, last));
    }
    if (found) return found;
  }
  return std::nullopt;
}

std::optional<std::string> FileResolver::findInCatalog(LocationReference const& reference) {
  auto fileOf = [](std::optional<std::string> const& uri) -> std::optional<std::string> {
    std::optional<std::string> path = uri ? pathOfFileUri(*uri) : std::nullopt;
    return path && isFile(*path) ? path : std::nullopt;
  };
  std::optional<std::string> path;
  if (!reference.location.empty()) {
    for (std::string const& uri :
         {reference.location, absoluteUri(reference.base, reference.location)}) {
      if (!path) path = fileOf(m_catalog.findExternal("", uri));
      if (!path) path = fileOf(m_catalog.findUri(uri));
    }
  }
  if (reference.identifier.empty()) return path;
  if (!path) path = fileOf(m_catalog.findExternal(reference.identifier, ""));
  if (!path) path = fileOf(m_catalog.findUri(reference.identifier));
  return path;
}

}  // namespace fdmorph
