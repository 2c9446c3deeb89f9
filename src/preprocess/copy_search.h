// The search for copy members.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "source/source_files.h"

namespace fdmorph::compiler {

struct CopyRules {
  std::vector<std::string> folders;  ///< searched after the folder of the source
  std::vector<std::string> extensions{"cpy", "CPY", "cbl", "CBL", "cob", "COB", ""};
};

/// Finds the files of copy members. The folders searched are that of the main
/// source, that of the file with the COPY statement, and those of the rules. A
/// library is a folder within each of them; they are searched themselves if no
/// library folder has the member. In a folder the name is tried as written,
/// then in lower and upper case, each with all extensions. The main source is
/// taken for a member only if there is no other file.
class CopySearch {
 public:
  CopySearch(Sources& sources, CopyRules rules, std::string sourcePath);

  /// The file of a member; null if there is none. `library` may be empty.
  [[nodiscard]] SourceFile const* find(std::string_view member, std::string_view library,
                                       std::string_view copyingPath);

  /// The folders that are searched for a member of a file, without a slash at
  /// their ends, each once and in their order.
  [[nodiscard]] std::vector<std::string> foldersSearched(std::string_view copyingPath);

 private:
  std::vector<std::string> const& foldersFor(std::string const& copyingFolder);
  SourceFile const* search(std::string const& member, std::string const& library,
                           std::string const& copyingFolder);
  SourceFile const* searchFolder(std::string const& folder, std::string const& member);

  Sources& m_sources;
  CopyRules m_rules;
  std::string m_sourcePath;
  std::vector<std::string> m_folders;  // that foldersFor returned last
  std::string m_copyingFolder;         // and for which folder
  bool m_isSourceSkipped = false;      // the last search came across the main source
  std::unordered_map<std::string, SourceFile const*> m_found;
};

}  // namespace fdmorph::compiler
