#include "xml/paths.h"

#include <filesystem>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLString.hpp>

#include "xml/transcoding.h"

namespace fdmorph {
namespace {

std::string takeText(XMLCh* text) {
  std::string local = toLocalText(text);
  xerces::XMLString::release(&text);
  return local;
}

}  // namespace

bool isRelativePath(std::string const& path) {
  return xerces::XMLPlatformUtils::isRelative(toLibraryText(path).c_str());
}

std::string getFullPath(std::string const& path) {
  try {
    return takeText(xerces::XMLPlatformUtils::getFullPath(toLibraryText(path).c_str()));
  } catch (xerces::XMLException const&) {
    std::error_code error;
    std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.string();
  }
}

std::string weavePaths(std::string const& base, std::string const& relative) {
  return takeText(xerces::XMLPlatformUtils::weavePaths(toLibraryText(base).c_str(),
                                                       toLibraryText(relative).c_str()));
}

}  // namespace fdmorph
