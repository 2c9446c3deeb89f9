// What is in the folder of a bundle, and whether another bundle may take its place.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph::bundle {

/// A file of a bundle: a name without slashes, and its bytes.
struct FolderFile {
  std::string name;
  std::string content;
};

/// The file that lists the others with a hash of their bytes. It does not depend on where
/// the files come from.
inline constexpr std::string_view kManifestName = "fdrec-bundle.txt";

/// The text of that file.
[[nodiscard]] std::string makeManifest(std::vector<FolderFile> const& files);

/// A folder that a bundle is to be put in.
struct FolderContent {
  enum class State : std::uint8_t {
    absent,   ///< there is nothing of that name
    empty,    ///< it is there and empty
    earlier,  ///< it has a bundle as it was written, perhaps with files missing
    other,    ///< it has anything else
  };

  State state = State::other;
  std::vector<std::string> files;  ///< the names of the files of an earlier bundle
  std::string reason;              ///< why the state is `other`
};

/// Looks at a folder. Links to folders are followed.
[[nodiscard]] FolderContent lookAtFolder(std::filesystem::path const& folder);

}  // namespace fdmorph::bundle
