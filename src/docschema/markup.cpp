#include "docschema/markup.h"

#include "text/xml_writer.h"

namespace fdmorph::docschema {
namespace {

using Writer = XmlWriter<Utf8OrLatin1>;

constexpr std::string_view kComment = "!--";

// The recursion is bounded by the number of levels of a record.
void write(Writer& writer, Markup const& element, unsigned depth) {
  writer.indent(depth * kXmlStep);
  writer.openTag(element.name);
  if (element.name == kComment) {
    writer.markup(" ");
    writer.text(element.text);
    writer.markup(" -->\n");
    return;
  }
  for (auto const& [name, value] : element.attributes) writer.attribute(name, value);
  if (element.parts.empty() && element.text.empty()) {
    writer.markup("/>\n");
    return;
  }
  writer.markup(">");
  if (element.parts.empty()) {
    std::string escaped;
    appendXmlEscaped(escaped, element.text, XmlEscapes::full);
    writer.text(escaped);
  } else {
    writer.markup("\n");
    for (Markup const& each : element.parts) write(writer, each, depth + 1);
    writer.indent(depth * kXmlStep);
  }
  writer.markup("</");
  writer.markup(element.name);
  writer.markup(">\n");
}

}  // namespace

Markup commentOf(std::string_view text) {
  Markup comment{std::string(kComment)};
  for (char c : text) {
    bool const isSecond = c == '-' && !comment.text.empty() && comment.text.back() == '-';
    if (!isSecond) comment.text += c;
  }
  return comment;
}

std::string printDocument(Markup const& root) {
  Writer writer;
  writer.declaration();
  write(writer, root, 0);
  return writer.release();
}

std::string printElement(Markup const& element) {
  Writer writer;
  write(writer, element, 0);
  return writer.release();
}

}  // namespace fdmorph::docschema
