// Namespaces of the documents that are written.
#pragma once

#include <string_view>

namespace fdmorph {

inline constexpr std::string_view kXmlSchemaNamespace = "http://www.w3.org/2001/XMLSchema";
inline constexpr std::string_view kInstanceNamespace = "http://www.w3.org/2001/XMLSchema-instance";
inline constexpr std::string_view kMappingNamespace =
    "http://www.tallmere.example/schema/xml/v1.0/dmxmlmap.xsd";
inline constexpr std::string_view kMappingSchema = "dmxmlmap.xsd";
inline constexpr std::string_view kDictionaryNamespace =
    "http://www.tallmere.example/schema/xml/v1.0/dmxml.xsd";
inline constexpr std::string_view kDictionarySchema = "dmxml.xsd";

}  // namespace fdmorph
