#include "xml/simple_types.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <string_view>
#include <utility>
#include <xercesc/util/KVStringPair.hpp>
#include <xercesc/util/RefHashTableOf.hpp>
#include <xercesc/validators/datatype/ListDatatypeValidator.hpp>
#include <xercesc/validators/datatype/UnionDatatypeValidator.hpp>
#include <xercesc/validators/schema/SchemaSymbols.hpp>

#include "xml/pattern_size.h"

namespace fdmorph {
namespace {

using Source = xerces::DatatypeValidator;
using xerces::SchemaSymbols;

struct Primitive {
  ValueKind kind;
  char const* name;
};

Primitive primitiveOf(Source const& source) {
  switch (source.getType()) {
    case Source::Boolean:
      return {ValueKind::boolean, "boolean"};
    case Source::Float:
      return {ValueKind::floating, "float"};
    case Source::Double:
      return {ValueKind::floating, "double"};
    case Source::Decimal:
      return {ValueKind::decimal, "decimal"};
    case Source::HexBinary:
      return {ValueKind::binary, "hexBinary"};
    case Source::Base64Binary:
      return {ValueKind::binary, "base64Binary"};
    case Source::Duration:
      return {ValueKind::date, "duration"};
    case Source::DateTime:
      return {ValueKind::date, "dateTime"};
    case Source::Date:
      return {ValueKind::date, "date"};
    case Source::Time:
      return {ValueKind::date, "time"};
    case Source::MonthDay:
      return {ValueKind::date, "gMonthDay"};
    case Source::YearMonth:
      return {ValueKind::date, "gYearMonth"};
    case Source::Year:
      return {ValueKind::date, "gYear"};
    case Source::Month:
      return {ValueKind::date, "gMonth"};
    case Source::Day:
      return {ValueKind::date, "gDay"};
    case Source::AnyURI:
      return {ValueKind::text, "anyURI"};
    case Source::QName:
      return {ValueKind::text, "QName"};
    case Source::NOTATION:
      return {ValueKind::text, "NOTATION"};
    case Source::List:
      return {ValueKind::list, ""};
    case Source::Union:
      return {ValueKind::unionOf, ""};
    default:
      return {ValueKind::text, "string"};
  }
}

bool isBuiltIn(Source const& source) {
  XMLCh const* space = source.getTypeUri();
  return space != nullptr && std::u16string_view(space) == SchemaSymbols::fgURI_SCHEMAFORSCHEMA;
}

std::string nameOf(Source const& source) {
  if (source.getAnonymous()) return {};
  return (isBuiltIn(source) ? "xs:" : "") + toUtf8(source.getTypeLocalName());
}

XMLCh const* facetOf(Source const& source, XMLCh const* name) {
  auto* facets = source.getFacets();
  xerces::KVStringPair const* facet = facets == nullptr ? nullptr : facets->get(name);
  return facet == nullptr ? nullptr : facet->getValue();
}

// A number that is too large for 64 bits has no bound that matters.
void setNumber(std::optional<std::uint64_t>& target, Source const& source, XMLCh const* name) {
  XMLCh const* given = facetOf(source, name);
  if (given == nullptr) return;
  std::string const text = toUtf8(given);
  std::size_t const begin = text.find_first_not_of("+ \t\r\n");
  if (begin == text.npos) return;
  std::uint64_t number = 0;
  auto [end, error] = std::from_chars(text.data() + begin, text.data() + text.size(), number);
  if (error == std::errc()) target = number;
}

void setBound(std::optional<ValueBound>& target, Source const& source, XMLCh const* inclusive,
              XMLCh const* exclusive) {
  if (XMLCh const* value = facetOf(source, inclusive)) target = ValueBound{toUtf8(value), false};
  if (XMLCh const* value = facetOf(source, exclusive)) target = ValueBound{toUtf8(value), true};
}

// The patterns of one derivation step are alternatives and come as one; those of
// several steps apply together.
void addPattern(SimpleType& type, Source const& source) {
  XMLCh const* pattern = facetOf(source, SchemaSymbols::fgELT_PATTERN);
  if (pattern == nullptr) return;
  type.hasPattern = type.hasPattern || !isBuiltIn(source);
  std::size_t const longest = patternSize(pattern).longest;
  if (longest < kMaxPatternNumber) {
    type.patternLength = std::min<std::uint64_t>(type.patternLength.value_or(longest), longest);
  }
}

void addFacets(SimpleType& type, Source const& source) {
  setNumber(type.maxLength, source, SchemaSymbols::fgELT_LENGTH);
  setNumber(type.minLength, source, SchemaSymbols::fgELT_LENGTH);
  setNumber(type.maxLength, source, SchemaSymbols::fgELT_MAXLENGTH);
  setNumber(type.minLength, source, SchemaSymbols::fgELT_MINLENGTH);
  setNumber(type.totalDigits, source, SchemaSymbols::fgELT_TOTALDIGITS);
  setNumber(type.fractionDigits, source, SchemaSymbols::fgELT_FRACTIONDIGITS);
  setBound(type.lower, source, SchemaSymbols::fgELT_MININCLUSIVE,
           SchemaSymbols::fgELT_MINEXCLUSIVE);
  setBound(type.upper, source, SchemaSymbols::fgELT_MAXINCLUSIVE,
           SchemaSymbols::fgELT_MAXEXCLUSIVE);
  addPattern(type, source);
  xerces::RefArrayVectorOf<XMLCh> const* values = source.getEnumString();
  if (values == nullptr || values->size() == 0) return;
  auto enumeration = std::make_shared<std::vector<std::string>>();
  enumeration->reserve(values->size());
  for (XMLSize_t i = 0; i < values->size(); ++i) {
    enumeration->push_back(toUtf8(values->elementAt(i)));
  }
  type.enumeration = std::move(enumeration);
}

}  // namespace

SimpleType const* SimpleTypes::of(Source& source) {
  if (auto known = m_known.find(&source); known != m_known.end()) return known->second;
  // A chain of restrictions may be long, so that bases are made first, in a loop.
  std::vector<Source*> chain{&source};
  while (Source* base = chain.back()->getBaseValidator()) {
    if (m_known.contains(base)) break;
    chain.push_back(base);
  }
  for (std::size_t i = chain.size(); i-- > 0;) {
    SimpleType type = inherited(*chain[i]);
    addFacets(type, *chain[i]);
    m_types.push_back(std::move(type));
    m_known[chain[i]] = &m_types.back();
  }
  return m_known[&source];
}

// What the type has before its own facets.
SimpleType SimpleTypes::inherited(Source& source) {
  Primitive const primitive = primitiveOf(source);
  SimpleType type;
  if (Source* base = source.getBaseValidator()) type = *m_known[base];
  bool const isRestriction = type.kind == primitive.kind && type.primitive == primitive.name;
  if (!isRestriction) type = {};
  type.name = nameOf(source);
  if (isBuiltIn(source)) type.builtIn = toUtf8(source.getTypeLocalName());
  type.kind = primitive.kind;
  type.primitive = primitive.name;
  if (type.builtIn.empty()) type.builtIn = type.kind == ValueKind::list ? "list" : "union";
  if (isRestriction && !type.members.empty()) return type;
  if (type.kind == ValueKind::list) {
    // The item type of a list is the base of its validator.
    Source* item = static_cast<xerces::ListDatatypeValidator&>(source).getItemTypeDTV();
    type.members = {of(*item)};
  } else if (type.kind == ValueKind::unionOf) {
    auto* members = static_cast<xerces::UnionDatatypeValidator&>(source).getMemberTypeValidators();
    for (XMLSize_t i = 0; members != nullptr && i < members->size(); ++i) {
      type.members.push_back(of(*members->elementAt(i)));
    }
  }
  return type;
}

}  // namespace fdmorph
