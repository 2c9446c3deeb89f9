#include "driver/compiler_files.h"

#include <cstdio>

#include "driver/file_helpers.h"
#include "text/file_replacement.h"

namespace fdmorph {
namespace {

// FileExists takes a link that leads nowhere for a free name.
bool isTaken(std::string const& name) {
  return FileExists(name, false) || isDanglingLink(name);
}

}  // namespace

CompilerFiles::CompilerFiles(std::string const& sourceFile, std::string const& baseName,
                             bool isCopybook)
    : m_source(sourceFile) {
  // Whether the dictionary's name is free is only known under the lock.
  if (!isCopybook) m_lock.emplace(folderOf(sourceFile));
  if (isCopybook || isTaken(baseName + ".xml")) {
    m_lock.reset();
    m_lock.emplace(std::string());
    copySource(sourceFile);
  } else {
    chooseNames(baseName);
  }
}

void CompilerFiles::chooseNames(std::string const& stem) {
  m_dictionaryName = m_dictionary.emplace(stem + ".xml").path();
  m_debugFile.emplace(stem + ".dbi");
  m_codeFile.emplace(stem + ".int");
}

void CompilerFiles::copySource(std::string const& sourceFile) {
  std::string const stem = GetTemporaryFilename(".xml .cbl");
  chooseNames(stem);
  m_source = m_copy.emplace(stem + ".cbl").path();
  if (!CopyFileToFile(sourceFile, m_source)) m_isReady = m_copy->remove();
}

void CompilerFiles::removeByProducts() {
  if (m_copy) m_copy->remove();
  // The names of these two belong to the compiler, whoever wrote them last.
  std::remove(m_debugFile->path().c_str());
  m_dictionary->remove();
  std::remove(m_codeFile->path().c_str());
  // From here on, files of these names belong to others.
  for (std::optional<PendingFile>* each : {&m_copy, &m_debugFile, &m_dictionary, &m_codeFile}) {
    each->reset();
  }
  m_lock.reset();
}

}  // namespace fdmorph
