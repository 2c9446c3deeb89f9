#include "bundle/folder_content.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <system_error>

#include "source/diagnostics.h"
#include "source/source_files.h"

namespace fdmorph::bundle {
namespace {

namespace fs = std::filesystem;
using State = FolderContent::State;
using Hash = std::uint64_t;
using Hashes = std::map<std::string, Hash, std::less<>>;

constexpr std::string_view kHead = "fdrec-bundle-1\n";
constexpr std::size_t kHashDigits = 16;
constexpr int kHexadecimal = 16;

// FNV-1a: it shows a change by a user or a program, not one that is meant to be hidden.
Hash hashOf(std::string_view bytes) {
  Hash hash = 0xCBF29CE484222325U;
  for (char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  return hash;
}

std::string hexadecimal(Hash hash) {
  std::string digits(kHashDigits, '0');
  for (std::size_t i = kHashDigits; i-- > 0; hash >>= 4U) {
    digits[i] = "0123456789abcdef"[hash & 15U];
  }
  return digits;
}

// Nothing if the text is no manifest.
std::optional<Hashes> readManifest(std::string_view text) {
  if (!text.starts_with(kHead)) return std::nullopt;
  text.remove_prefix(kHead.size());
  Hashes hashes;
  while (!text.empty()) {
    std::size_t const end = text.find('\n');
    if (end == text.npos || end < kHashDigits + 2 || text[kHashDigits] != ' ') return std::nullopt;
    Hash hash = 0;
    char const* digits = text.data();
    auto const result = std::from_chars(digits, digits + kHashDigits, hash, kHexadecimal);
    if (result.ec != std::errc() || result.ptr != digits + kHashDigits) return std::nullopt;
    hashes.emplace(text.substr(kHashDigits + 1, end - kHashDigits - 1), hash);
    text.remove_prefix(end + 1);
  }
  return hashes;
}

FolderContent other(std::string reason) {
  return {State::other, {}, std::move(reason)};
}

// In ascending order. Nothing if the folder cannot be read; then `error` says why.
std::optional<std::vector<std::string>> namesIn(fs::path const& folder, std::error_code& error) {
  std::vector<std::string> names;
  for (fs::directory_iterator each(folder, error), end; !error && each != end;
       each.increment(error)) {
    names.push_back(each->path().filename().string());
  }
  if (error) return std::nullopt;
  std::ranges::sort(names);
  return names;
}

std::optional<std::string> readFile(fs::path const& path) {
  std::error_code error;
  if (!fs::is_regular_file(fs::symlink_status(path, error))) return std::nullopt;
  return compiler::DiskTree().read(path.string());
}

FolderContent compare(fs::path const& folder, std::vector<std::string> names) {
  std::optional<std::string> const manifest = readFile(folder / kManifestName);
  std::optional<Hashes> const hashes = manifest ? readManifest(*manifest) : std::nullopt;
  if (!hashes) return other("it has files, but no bundle");
  for (std::string const& name : names) {
    if (name == kManifestName) continue;
    auto const listed = hashes->find(name);
    if (listed == hashes->end()) {
      return other(compiler::quoted(name) + " in it is not of a bundle");
    }
    std::optional<std::string> const content = readFile(folder / name);
    if (!content || hashOf(*content) != listed->second) {
      return other(compiler::quoted(name) + " in it has been changed");
    }
  }
  return {State::earlier, std::move(names), {}};
}

}  // namespace

std::string makeManifest(std::vector<FolderFile> const& files) {
  std::string text(kHead);
  for (FolderFile const& each : files) {
    text.append(hexadecimal(hashOf(each.content))).append(" ").append(each.name).append("\n");
  }
  return text;
}

FolderContent lookAtFolder(fs::path const& folder) {
  std::error_code error;
  fs::file_status const status = fs::symlink_status(folder, error);
  if (status.type() == fs::file_type::not_found) return {State::absent, {}, {}};
  if (!fs::is_directory(folder, error)) return other("it is not a folder");
  std::optional<std::vector<std::string>> names = namesIn(folder, error);
  if (!names) return other(error.message());
  if (names->empty()) return {State::empty, {}, {}};
  return compare(folder, std::move(*names));
}

}  // namespace fdmorph::bundle
