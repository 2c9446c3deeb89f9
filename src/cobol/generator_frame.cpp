// CDMCOBOLGenerator: the entry point and the choice of the output.

#include <array>
#include <fstream>

#include "cobol/DMCOBOLGenerator.h"
#include "text/console.h"

namespace fdmorph {
namespace {

constexpr unsigned kFirstLevel = 1;
constexpr unsigned kFirstIndent = 7;  // level numbers begin in column 8, area A

/// Aims the standard output stream at a file, if it can be opened.
class OutputFile {
 public:
  explicit OutputFile(std::string const& name) : m_name(name) {
    if (name.empty()) return;
    m_file.rdbuf()->pubsetbuf(m_block.data(), static_cast<std::streamsize>(m_block.size()));
    m_file.open(name, std::ios::out | std::ios::trunc);
    if (m_file.is_open()) m_saved = redirectOutput(m_file.rdbuf());
  }

  bool isOpen() const { return m_file.is_open(); }

  /// Gives the stream its buffer back, and reports output that didn't reach
  /// the file.
  void close() {
    bool isLost = std::cout.bad();
    m_file.close();
    redirectOutput(m_saved);
    if (isLost || m_file.fail()) reportWriteFailure(m_name);
  }

 private:
  std::string const& m_name;
  std::array<char, 1 << 16> m_block;
  std::ofstream m_file;
  std::streambuf* m_saved = nullptr;
};

}  // namespace

CDMCOBOLGenerator::CDMCOBOLGenerator(CDMXMLSchemaDoc* document) : schemaDoc(document) {}

bool CDMCOBOLGenerator::GenerateFile(std::string const& fileName, std::string const& prefix,
                                     bool countInClauses, bool unique) {
  if (fileName.empty()) {
    out() << "Invalid filename.  Outputting  to console:" << endLine << endLine;
  }
  OutputFile file(fileName);
  dataPrefix = prefix;
  countIn = countInClauses;
  uniqueNames = unique;
  if (isReady()) {
    schemaRootElement = schemaDoc->rootElement;
    ItemSlot slot = nullptr;
    getCOBOLFromSchema(schemaRootElement, kFirstLevel, kFirstIndent, slot);
    err() << endLine;
  }
  if (!file.isOpen()) return false;
  file.close();
  return true;
}

bool CDMCOBOLGenerator::isReady() const {
  if (schemaDoc == nullptr) {
    err() << "Internal Error : Error initializing schema document" << endLine << endLine;
    return false;
  }
  if (schemaDoc->rootElement == nullptr) {
    err() << "Internal Error : Unable to locate schema element" << endLine << endLine;
    return false;
  }
  return true;
}

}  // namespace fdmorph
