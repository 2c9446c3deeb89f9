#include "fuzz_input.h"

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <streambuf>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLNetAccessor.hpp>

#include "text/console.h"

// The tool takes its locale from the environment.
extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  std::setlocale(LC_ALL, "C.UTF-8");
  return 0;
}

namespace fdmorph {
namespace {

/// A network in which no host can be reached.
class NoNetwork : public xercesc::XMLNetAccessor {
 public:
  XMLCh const* getId() const override { return xercesc::XMLUni::fgZeroLenString; }
  xercesc::BinInputStream* makeNew(xercesc::XMLURL const& url,
                                   xercesc::XMLNetHTTPInfo const* /*info*/) override {
    ThrowXMLwithMemMgr1(xercesc::NetAccessorException, xercesc::XMLExcepts::NetAcc_ConnSocket,
                        url.getURLText(), url.getMemoryManager());
  }
};

/// Keeps the first bytes and drops the others.
class MessageBuffer : public std::streambuf {
 public:
  std::string text;

 protected:
  int_type overflow(int_type c) override {
    char byte = traits_type::to_char_type(c);
    if (!traits_type::eq_int_type(c, traits_type::eof())) xsputn(&byte, 1);
    return traits_type::not_eof(c);
  }
  std::streamsize xsputn(char const* bytes, std::streamsize count) override {
    constexpr std::size_t kMaxKept = 65536;
    std::size_t kept = std::min(static_cast<std::size_t>(count), kMaxKept - text.size());
    text.append(bytes, kept);
    return count;
  }
};

MessageBuffer messages;

}  // namespace

std::vector<std::string_view> splitFuzzFiles(std::string_view text, std::size_t count) {
  std::vector<std::string_view> files;
  while (files.size() + 1 < count) {
    std::size_t end = text.find(kFileSeparator);
    if (end == std::string_view::npos) break;
    files.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
    if (text.starts_with('\n')) text.remove_prefix(1);  // so that seeds can be read
  }
  files.push_back(text);
  return files;
}

void writeFuzzFile(std::string const& name, std::string_view content) {
  std::ofstream file(name, std::ios::binary | std::ios::trunc);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  file.close();
  if (!file) failFuzzRun("the working directory cannot be written", name);
}

std::string readFuzzFile(std::string const& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void beginFuzzRun() {
  RestoreStreams();
  messages.text.clear();
  std::cout.rdbuf(&messages);
  std::cerr.rdbuf(&messages);
  console.quietMode = false;
  console.logMode = false;
  console.logDescriptor = -1;
  console.outputLost = false;
  console.m_nErrorCount = 0;
  console.m_nWarningCount = 0;
}

std::string const& fuzzMessages() {
  return messages.text;
}

void startFuzzLibrary() {
  static bool isStarted = false;
  if (isStarted) return;
  isStarted = true;
  xercesc::XMLPlatformUtils::Initialize();
  delete xercesc::XMLPlatformUtils::fgNetAccessor;
  xercesc::XMLPlatformUtils::fgNetAccessor = new NoNetwork;
}

void failFuzzRun(std::string_view rule, std::string_view evidence) {
  std::fprintf(stderr, "%.*s\n%.*s\n", static_cast<int>(rule.size()), rule.data(),
               static_cast<int>(evidence.size()), evidence.data());
  std::abort();
}

}  // namespace fdmorph
