#include "xml/locations.h"

#include <utility>
#include <xercesc/framework/LocalFileInputSource.hpp>
#include <xercesc/framework/XMLBuffer.hpp>
#include <xercesc/util/XMLUri.hpp>

namespace fdmorph {
namespace {

using xerces::XMLURL;
using LibraryText = std::basic_string<XMLCh>;

std::optional<unsigned> hexDigit(XMLCh c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  return std::nullopt;
}

// The path of a URL as the library decodes it: each escape is one character.
// Nothing if an escape is wrong.
std::optional<LibraryText> decodedPath(LibraryText const& path) {
  LibraryText decoded;
  for (std::size_t i = 0; i < path.size(); ++i) {
    if (path[i] != u'%') {
      decoded += path[i];
      continue;
    }
    if (i + 2 >= path.size()) return std::nullopt;
    std::optional<unsigned> high = hexDigit(path[i + 1]);
    std::optional<unsigned> low = hexDigit(path[i + 2]);
    if (!high || !low) return std::nullopt;
    decoded += static_cast<XMLCh>(*high * 16 + *low);
    i += 2;
  }
  return decoded;
}

Location locationOf(XMLURL const& url) {
  Location location{url.getURLText(), std::nullopt, url};
  bool isLocal = url.getHost() == nullptr || toLocalText(url.getHost()) == "localhost";
  if (url.getProtocol() != XMLURL::File || !isLocal || url.getPath() == nullptr) return location;
  if (auto path = decodedPath(url.getPath())) location.path = toLocalText(path->c_str());
  return location;
}

Location locationOf(xerces::LocalFileInputSource const& source) {
  return {source.getSystemId(), toLocalText(source.getSystemId()), std::nullopt};
}

}  // namespace

Location resolveLocation(XMLCh const* base, XMLCh const* reference) {
  XMLURL url;
  if (url.setURL(base, reference, url) && !url.isRelative()) return locationOf(url);
  xerces::XMLBuffer path;
  xerces::XMLUri::normalizeURI(reference, path);
  return locationOf(xerces::LocalFileInputSource(base, path.getRawBuffer()));
}

Location resolveLocation(std::string const& fileName) {
  LibraryText name = toLibraryText(fileName);
  XMLURL url;
  if (XMLURL::parse(name.c_str(), url) && !url.isRelative()) return locationOf(url);
  return locationOf(xerces::LocalFileInputSource(name.c_str()));
}

}  // namespace fdmorph
