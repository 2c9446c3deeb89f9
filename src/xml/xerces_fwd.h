// The names of the XML library that the headers of this folder mention. Other
// folders pass references to these along and never look inside.
#pragma once

#include <xercesc/util/XercesDefs.hpp>

XERCES_CPP_NAMESPACE_BEGIN
class DOMNode;
class ErrorHandler;
class SAXParseException;
class SAX2XMLReaderImpl;
class SchemaValidator;
class SecurityManager;
class XercesDOMParser;
class XMLFormatter;
XERCES_CPP_NAMESPACE_END

namespace fdmorph {
namespace xerces = XERCES_CPP_NAMESPACE;
}  // namespace fdmorph
