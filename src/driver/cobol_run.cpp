#include "dictionary/DMXMLGenerator.h"
#include "driver/command_line.h"
#include "driver/compiler_files.h"
#include "driver/compiler_process.h"
#include "driver/file_helpers.h"
#include "driver/settings.h"
#include "text/console.h"
#include "text/multibyte.h"
#include "xml/DMDOMParser.h"

namespace fdmorph {
namespace {

using OutputType = CDMXMLGenerator::FILE_TYPE;

constexpr std::size_t kExtensionLength = 4;  // only these characters of it are compared

bool hasExtension(std::string const& extension, char const* wanted) {
  return my_strnicmp(extension.c_str(), wanted, static_cast<int>(kExtensionLength)) == 0;
}

/// The names of one run.
struct RunFiles {
  std::string baseName;   // of the source, up to its last dot
  std::string extension;  // of the source, with its dot
  std::string schemaFile;
  std::string copybookFile;
};

// A dot at the start does not begin an extension.
RunFiles splitSourceName(std::string const& sourceFile) {
  RunFiles files;
  std::wstring wide = my_mbstowcs(sourceFile.c_str());
  std::size_t dot = wide.rfind(L'.');
  if (dot == std::wstring::npos || dot == 0) {
    files.baseName = sourceFile;
    return files;
  }
  files.baseName = my_wcstombs(wide.substr(0, dot).c_str());
  files.extension = my_wcstombs(wide.substr(dot).c_str());
  return files;
}

void chooseOutputs(Settings const& settings, RunFiles& files) {
  files.schemaFile = settings.schemaFile.empty() ? files.baseName + ".xsd" : settings.schemaFile;
  files.copybookFile =
      settings.copybookFile.empty() ? files.baseName + "-fdmorph.cpy" : settings.copybookFile;
}

// Without questions nothing else protects the source. An existing mapping file
// is read then, not written.
bool isAnyOutputRefused(Settings const& settings, RunFiles const& files) {
  if (settings.promptOverwrite) return false;
  std::string const& mappingFile = settings.mappingFile;
  bool writesMapping = !mappingFile.empty() && !FileExists(mappingFile, false);
  return (writesMapping && isRefusedOutput(mappingFile, settings.sourceFile)) ||
         isRefusedOutput(files.schemaFile, settings.sourceFile) ||
         isRefusedOutput(files.copybookFile, settings.sourceFile);
}

// Runs the compiler. False, with a report, if it failed; also in a child that
// did not become the compiler.
bool compile(Settings const& settings, CompilerFiles const& files) {
  out() << "Checking " << settings.sourceFile << " for errors" << endLine;
  switch (files.isReady()
              ? runCompiler(ProcessSpaceyFilename(files.source()),
                            ProcessSpaceyFilename(settings.directiveFile), settings.sourceFile)
              : CompileOutcome::failed) {
    case CompileOutcome::notCreated:
      out() << "Error : Unable to create cobol compiler process" << endLine;
      return false;
    case CompileOutcome::notReturned:
      out() << "Error : Failed to return from COBOL compiler execution" << endLine;
      return false;
    case CompileOutcome::failed:
      out() << "Error : Failed to compile " << settings.sourceFile
            << ".  Please correct the errors and try again." << endLine;
      return false;
    case CompileOutcome::compiled:
      break;
  }
  out() << endLine;
  return true;
}

/// The outputs of one dictionary. The functions return false if the run cannot
/// go on, and say why.
class DictionaryOutputs {
 public:
  DictionaryOutputs(Settings const& settings, RunFiles const& files, CDMXMLElement* dictionary)
      : m_settings(settings), m_files(files) {
    m_generator.setCOBOLDataDictionary(dictionary);
  }

  // Reads the mapping file on disk, whether it was just written or kept.
  bool applyMappingFile(CDMXMLNodeStore& store) {
    std::string const& mappingFile = m_settings.mappingFile;
    if (mappingFile.empty()) return true;
    if (!FileExists(mappingFile, m_settings.promptOverwrite) &&
        !generate(OutputType::FT_EXTERNAL_MAPPING, mappingFile, std::string())) {
      return false;
    }
    CDMDOMParser parser(store);
    if (!parser.ParseFile(mappingFile, CDMDOMParser::FILE_TYPE::XML_DOCUMENT, false)) {
      out() << endLine;
      parser.DisplayErrorSummary();
      out() << "Failed to validate " << mappingFile << endLine;
      return false;
    }
    CDMXMLElement const* top = parser.getXMLDocument();
    parser.releaseDocument();
    if (top != nullptr) m_mapping.Initialize(top, nullptr);
    m_generator.setXMLCOBOLExternalMapping(&m_mapping);
    return true;
  }

  bool writeSchema() {
    if (!mayWrite(m_files.schemaFile)) return true;
    return generate(OutputType::FT_XML_SCHEMA, m_files.schemaFile, std::string());
  }

  bool writeCopybook() {
    if (!mayWrite(m_files.copybookFile)) return true;
    return generate(OutputType::FT_ENHANCED_COBOL, m_files.copybookFile, m_settings.dataPrefix);
  }

 private:
  bool mayWrite(std::string const& name) const {
    return !FileExists(name, m_settings.promptOverwrite) || !m_settings.promptOverwrite;
  }

  // False if the output is refused. A failed write is reported and does not
  // stop the run.
  bool generate(OutputType type, std::string const& name, std::string const& prefix) {
    if (isRefusedOutput(name, m_settings.sourceFile)) return false;
    m_generator.GenerateFile(m_files.baseName + ".xml", m_settings.mappingFile, m_files.schemaFile,
                             m_files.copybookFile, type, prefix, m_settings.countIn);
    return true;
  }

  Settings const& m_settings;
  RunFiles const& m_files;
  CDMXMLCOBOLExternalMapping m_mapping;
  CDMXMLGenerator m_generator;
};

}  // namespace

int runCobolToSchema(Settings const& settings) {
  CDMXMLNodeStore store;
  CDMDOMParser::InitializePlatform();
  CDMDOMParser parser(store);
  if (settings.sourceFile.empty()) {
    out() << "Error : Failed to specify COBOL filename" << endLine;
    return stopRun();
  }
  RunFiles files = splitSourceName(settings.sourceFile);
  bool isProgram = hasExtension(files.extension, ".CBL");
  if (!isProgram && !hasExtension(files.extension, ".CPY")) {
    out() << "Error : Unrecognized file type \"" << settings.sourceFile << "\"" << endLine
          << endLine;
    printUsage();
    return stopRun();
  }
  chooseOutputs(settings, files);
  if (isAnyOutputRefused(settings, files)) return stopRun();
  CompilerFiles compilerFiles(settings.sourceFile, files.baseName, !isProgram);
  if (!compile(settings, compilerFiles)) return stopRun();
  if (!parser.ParseFile(compilerFiles.dictionary(), CDMDOMParser::FILE_TYPE::XML_DOCUMENT, false)) {
    out() << endLine;
    parser.DisplayErrorSummary();
    out() << "Failed to create " << files.schemaFile << endLine;
    return stopRun();
  }
  DictionaryOutputs outputs(settings, files, parser.getXMLDocument());
  parser.releaseDocument();
  compilerFiles.removeByProducts();  // the dictionary as well: its tree is in memory
  bool isDone = outputs.applyMappingFile(store) && outputs.writeSchema() && outputs.writeCopybook();
  if (!isDone) return stopRun();
  out() << endLine;
  parser.DisplayErrorSummary();
  RestoreStreams();
  return reportStatus();
}

}  // namespace fdmorph
