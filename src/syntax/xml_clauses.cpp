#include "syntax/xml_clauses.h"

#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

XmlClauses& xmlClausesOf(DataItem& item) {
  if (item.xml == nullptr) item.xml = std::make_unique<XmlClauses>();
  return *item.xml;
}

// A literal of an XML clause, which names an element, attribute or namespace.
void parseXmlName(ClauseContext& context, Literal& literal, Token const& word) {
  TokenStream& tokens = context.tokens;
  std::optional<Literal> found = context.values.parseLiteral();
  if (!found) {
    tokens.expected(Code::xmlClause, "a literal after " + upperCase(word.text));
    return;
  }
  if (found->kind == Literal::Kind::broken) return;
  bool isText = found->kind == Literal::Kind::text && !found->isAll && !found->isBinary;
  if (isText) {
    literal = *found;
  } else {
    tokens.error(Code::xmlClause, found->place,
                 upperCase(word.text) + " requires a literal in quotes");
  }
}

}  // namespace

void parseAttribute(ClauseContext& /*context*/, DataItem& item, Token const& /*word*/) {
  xmlClausesOf(item).isAttribute = true;
}

void parseCountIn(ClauseContext& context, DataItem& item, Token const& /*word*/) {
  TokenStream& tokens = context.tokens;
  if (!tokens.skip(Keyword::in)) {
    tokens.expected(Code::syntax, "IN after COUNT");
    return;
  }
  XmlClauses& xml = xmlClausesOf(item);
  xml.countIn.place = tokens.peek().place;
  if (auto name = context.names.parse()) xml.countIn.name = *name;
}

void parseIdentifiedBy(ClauseContext& context, DataItem& item, Token const& word) {
  context.tokens.skip(Keyword::by);
  parseXmlName(context, xmlClausesOf(item).identifiedBy, word);
}

void parseNamespace(ClauseContext& context, DataItem& item, Token const& word) {
  context.tokens.skip(Keyword::is);
  parseXmlName(context, xmlClausesOf(item).namespaceName, word);
}

}  // namespace fdmorph::compiler
