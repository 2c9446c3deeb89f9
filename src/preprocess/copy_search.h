// Where copy members are looked for.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "source/source_files.h"

namespace fdmorph::compiler {

struct CopyRules {
  std::vector<std::string> folders;  ///< after the folder of the source
  std::vector<std::string> extensions{"cpy", "CPY", "cbl", "CBL", "cob", "COB", ""};
};

/// Finds members. A name is tried as it is written, then in lower and in upper
/// case, with each extension; in the folder of the source, in that of the file
/// that copies, and in the folders of the rules. A library is a folder within
/// each of them; a member that isn't there is taken from the folder itself.
class CopySearch {
 public:
  CopySearch(Sources& sources, CopyRules rules, std::string const& sourcePath);

  /// The file of a member; null if there is none.
  SourceFile const* find(std::string_view member, std::string_view library,
                         std::string_view copyingPath);

 private:
  SourceFile const* search(std::string const& member, std::string const& library,
                           std::string const& copyingFolder);
  SourceFile const* searchFolder(std::string const& folder, std::string const& member);

  Sources& m_sources;
  CopyRules m_rules;
  std::string m_sourceFolder;
  std::unordered_map<std::string, SourceFile const*> m_found;
};

}  // namespace fdmorph::compiler
