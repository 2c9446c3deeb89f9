// The files of one call of the compiler.
#pragma once

#include <optional>
#include <string>

#include "driver/folder_lock.h"
#include "text/pending_files.h"

namespace fdmorph {

/// The input and the outputs of the compiler for one source. They keep other
/// runs in the folder of the outputs waiting until removeByProducts, so that no
/// run takes the dictionary of another.
///
/// If the process ends early, what the compiler wrote and a temporary copy are
/// removed. The destructor leaves them.
class CompilerFiles {
 public:
  /// Chooses the names. A copybook is compiled as a temporary copy in the
  /// current folder, and so is a program whose dictionary would replace a file
  /// or a link that is already there. `baseName` is `sourceFile` up to its last
  /// dot. A failed copy is reported; nothing of it is left for the compiler.
  CompilerFiles(std::string const& sourceFile, std::string const& baseName, bool isCopybook);

  /// False if a copy failed in part and could not be removed, so that the
  /// compiler would take the part for the whole.
  bool isReady() const { return m_isReady; }

  /// The file to compile.
  std::string const& source() const { return m_source; }

  /// Where the compiler leaves the data dictionary.
  std::string const& dictionary() const { return m_dictionaryName; }

  /// Removes the temporary copy, the dictionary if the compiler wrote it, and
  /// the files beside it with the extensions dbi and int, and lets other runs
  /// go on.
  void removeByProducts();

 private:
  void chooseNames(std::string const& stem);
  void copySource(std::string const& sourceFile);

  std::string m_source;
  std::string m_dictionaryName;
  bool m_isReady = true;
  std::optional<FolderLock> m_lock;
  std::optional<PendingFile> m_copy;
  std::optional<PendingFile> m_dictionary;
  std::optional<PendingFile> m_debugFile;
  std::optional<PendingFile> m_codeFile;
};

}  // namespace fdmorph
