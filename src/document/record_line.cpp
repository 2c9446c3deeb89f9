#include "document/record_line.h"

#include <algorithm>

namespace fdmorph::document {
namespace {

template <typename Text>
void appendEscaped(Text& out, std::string_view text, bool isAttribute) {
  for (char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '\n':
        out += "&#10;";
        break;
      case '\r':
        out += "&#13;";
        break;
      case '\t':
        if (isAttribute) {
          out += "&#9;";
        } else {
          out += c;
        }
        break;
      case '"':
        if (isAttribute) {
          out += "&quot;";
        } else {
          out += c;
        }
        break;
      default:
        out += c;
    }
  }
}

template <typename Text>
void appendAttribute(Text& out, std::string_view name, std::string_view value) {
  out += ' ';
  out += name;
  out += "=\"";
  appendEscaped(out, value, true);
  out += '"';
}

}  // namespace

void RecordLine::begin(RecordText& out, NamespaceScopes const& scopes, std::size_t outerDepth) {
  m_out = &out;
  m_scopes = &scopes;
  m_outerDepth = outerDepth;
  m_declarationsAt = 0;
  m_isTagOpen = false;
  m_used.clear();
  m_declarations.clear();
  out.clear();
}

void RecordLine::closeTag() {
  if (m_isTagOpen) *m_out += '>';
  m_isTagOpen = false;
}

void RecordLine::startTag(std::string_view name, char const* const* attributes) {
  closeTag();
  *m_out += '<';
  *m_out += name;
  if (m_declarationsAt == 0) m_declarationsAt = m_out->memory().size();
  for (; *attributes != nullptr; attributes += 2) {
    appendAttribute(*m_out, attributes[0], attributes[1]);
  }
  m_isTagOpen = true;
}

// What is declared around the record stays in force until its end, as far as it is
// used from here.
void RecordLine::use(std::uint32_t prefix) {
  std::size_t depth = m_scopes->depthOf(prefix);
  if (depth == 0 || depth > m_outerDepth) return;
  if (std::find(m_used.begin(), m_used.end(), prefix) != m_used.end()) return;
  m_used.push_back(prefix);
  std::string const& spelling = m_scopes->prefix(prefix);
  std::string_view namespaceUri = m_scopes->namespaceOf(prefix).value_or("");
  if (spelling.empty() && namespaceUri.empty()) return;
  appendAttribute(m_declarations, spelling.empty() ? "xmlns" : "xmlns:" + spelling, namespaceUri);
}

void RecordLine::endTag(std::string_view name) {
  if (m_isTagOpen) {
    *m_out += "/>";
    m_isTagOpen = false;
    return;
  }
  *m_out += "</";
  *m_out += name;
  *m_out += '>';
}

void RecordLine::text(std::string_view text) {
  closeTag();
  appendEscaped(*m_out, text, false);
}

void RecordLine::finish() {
  m_out->insert(m_declarationsAt, m_declarations);
}

}  // namespace fdmorph::document
