// The primitives with which XML is written to a formatter.
#pragma once

#include "xml/xerces_fwd.h"

namespace fdmorph {

/// Blanks of one step of nesting.
inline constexpr unsigned kIndentStep = 3;

/// Writes `n` blanks.
xerces::XMLFormatter& writeIndent(xerces::XMLFormatter& formatter, unsigned n);

/// Writes a blank, `name`, "=" and `value` in double quotes, with the escapes
/// of attribute values.
xerces::XMLFormatter& writeAttr(xerces::XMLFormatter& formatter, char const* name,
                                char const* value);

/// Writes "<" and `name`. The tag is left open for attributes.
xerces::XMLFormatter& writeElem(xerces::XMLFormatter& formatter, char const* name);

/// Writes `text`, in the locale's encoding, under the formatter's escape mode.
/// Text that is not valid in the locale is reported and left out.
xerces::XMLFormatter& operator<<(xerces::XMLFormatter& formatter, char const* text);

/// Writes the name of `node`.
xerces::XMLFormatter& operator<<(xerces::XMLFormatter& formatter, xerces::DOMNode const& node);

/// Writes the XML declaration with the formatter's encoding, and a line feed.
xerces::XMLFormatter& writeXmlDeclaration(xerces::XMLFormatter& formatter);

}  // namespace fdmorph
