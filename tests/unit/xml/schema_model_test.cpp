// What the schema model says of a schema.

#include "xml/schema_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/schema_model_fixture.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Kind = SchemaParticle::Kind;

using SchemaReports = SchemaModelTest;

TEST_F(SchemaReports, AreValuesAndNotPrinted) {
  std::string const file =
      folder.write("a.xsd", schemaOf("<xs:element name='a' type='missing'/>\n"));
  LoadedSchema const loaded = SchemaModel::load(file, files);
  EXPECT_EQ(loaded.model, nullptr);
  ASSERT_THAT(loaded.reports, SizeIs(1));
  EXPECT_FALSE(loaded.reports[0].isWarning);
  EXPECT_EQ(loaded.reports[0].place.file, file);
  EXPECT_EQ(loaded.reports[0].place.line, 2);
  EXPECT_THAT(loaded.reports[0].message, testing::HasSubstr("missing"));
  EXPECT_EQ(captured.err(), "");
  EXPECT_EQ(console.m_nErrorCount, 0);
}

TEST_F(SchemaReports, MissingFileHasAReport) {
  LoadedSchema const loaded = SchemaModel::load(folder.path("none.xsd"), files);
  EXPECT_EQ(loaded.model, nullptr);
  EXPECT_THAT(loaded.reports, SizeIs(1));
  EXPECT_EQ(captured.err(), "");
}

TEST_F(SchemaReports, PatternBeyondTheLimitIsRefused) {
  std::string const file = folder.write(
      "a.xsd", schemaOf("<xs:simpleType name='T'><xs:restriction base='xs:string'>\n"
                        "<xs:pattern value='a{2000000}'/></xs:restriction></xs:simpleType>\n"));
  LoadedSchema const loaded = SchemaModel::load(file, files);
  EXPECT_EQ(loaded.model, nullptr);
  ASSERT_THAT(loaded.reports, SizeIs(1));
  EXPECT_EQ(loaded.reports[0].message, "the pattern of type T repeats more than 1000000 times");
  EXPECT_EQ(loaded.reports[0].place.line, 3);
  EXPECT_EQ(captured.err(), "");
}

TEST_F(SchemaReports, EntitiesBeyondTheLimitAreRefused) {
  std::string entities = "<!DOCTYPE xs:schema [<!ENTITY e0 'aaaaaaaaaa'>";
  for (int i = 1; i < 9; ++i) {
    entities += "<!ENTITY e" + std::to_string(i) + " '";
    for (int k = 0; k < 10; ++k) entities += "&e" + std::to_string(i - 1) + ";";
    entities += "'>";
  }
  std::string const file =
      folder.write("a.xsd", entities + "]>" +
                                schemaOf("<xs:annotation><xs:documentation>&e8;"
                                         "</xs:documentation></xs:annotation>"));
  LoadedSchema const loaded = SchemaModel::load(file, files);
  EXPECT_EQ(loaded.model, nullptr);
  ASSERT_THAT(loaded.reports, testing::Not(IsEmpty()));
  EXPECT_THAT(loaded.reports[0].message, testing::HasSubstr("'50000' entity expansions"));
}

TEST_F(SchemaReports, ResolverFindsFilesAndTheirPlaces) {
  WorkingFolder working;
  std::filesystem::create_directory(working.path("lib"));
  std::string const part =
      working.write("lib/part.xsd", schemaOf("\n<xs:element name='p' type='xs:int'/>"));
  std::string const file =
      working.write("a.xsd", schemaOf("<xs:include schemaLocation='part.xsd'/>"));
  FileResolver resolver({working.path("lib")});
  LoadedSchema const loaded = SchemaModel::load(file, files, &resolver);
  ASSERT_NE(loaded.model, nullptr);
  SchemaElement const* found = loaded.model->globalElement({"p", ""});
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(loaded.model->placeOf(*found).file, part);
  EXPECT_EQ(loaded.model->placeOf(*found).line, 3);
}

using GlobalElements = SchemaModelTest;

TEST_F(GlobalElements, AreFoundByNameAndNamespace) {
  load(schemaOf("<xs:element name='a' type='xs:int'/><xs:element name='b'/>",
                " targetNamespace='urn:x'"));
  EXPECT_THAT(namesOf(model->globalElements()), testing::UnorderedElementsAre("a", "b"));
  EXPECT_NE(model->globalElement({"a", "urn:x"}), nullptr);
  EXPECT_EQ(model->globalElement({"a", ""}), nullptr);
}

TEST_F(GlobalElements, SubstitutesAreThoseOfAllGenerations) {
  load(
      schemaOf("<xs:element name='head' type='xs:string'/>"
               "<xs:element name='middle' substitutionGroup='head' abstract='true'/>"
               "<xs:element name='leaf' substitutionGroup='middle'/>"
               "<xs:element name='other' substitutionGroup='head'/>"));
  EXPECT_TRUE(global("head").isHead);
  EXPECT_THAT(namesOf(model->substitutesOf(global("head"))),
              testing::UnorderedElementsAre("leaf", "other"));
  EXPECT_THAT(namesOf(model->substitutesOf(global("leaf"))), IsEmpty());
}

TEST_F(GlobalElements, BlockedHeadHasNoSubstitutes) {
  load(
      schemaOf("<xs:element name='head' type='xs:string' block='substitution'/>"
               "<xs:element name='leaf' substitutionGroup='head'/>"));
  EXPECT_THAT(model->substitutesOf(global("head")), IsEmpty());
}

TEST_F(GlobalElements, BlockedDerivationsAreNoSubstitutes) {
  load(
      schemaOf("<xs:complexType name='B'/><xs:complexType name='D'><xs:complexContent>"
               "<xs:extension base='B'/></xs:complexContent></xs:complexType>"
               "<xs:element name='head' type='B' block='extension'/>"
               "<xs:element name='same' type='B' substitutionGroup='head'/>"
               "<xs:element name='extended' type='D' substitutionGroup='head'/>"));
  EXPECT_THAT(namesOf(model->substitutesOf(global("head"))), ElementsAre("same"));
  load(
      schemaOf("<xs:element name='head' type='xs:int' block='restriction'/>"
               "<xs:element name='same' type='xs:int' substitutionGroup='head'/>"
               "<xs:element name='restricted' type='xs:byte' substitutionGroup='head'/>"));
  EXPECT_THAT(namesOf(model->substitutesOf(global("head"))), ElementsAre("same"));
}

using ContentModels = SchemaModelTest;

TEST_F(ContentModels, GroupsKeepTheirOccurrences) {
  load(
      elementWith("<xs:sequence minOccurs='0'>"
                  "<xs:element name='a' type='xs:int' maxOccurs='1000000000'/>"
                  "<xs:choice maxOccurs='unbounded'><xs:element name='b' type='xs:int'/>"
                  "<xs:any namespace='##other' minOccurs='0'/></xs:choice></xs:sequence>"
                  "<xs:attribute name='x' type='xs:int' use='required'/>"
                  "<xs:attribute name='y' type='xs:int'/>"));
  SchemaType const& type = typeOf("r");
  EXPECT_EQ(type.content, ContentKind::elements);
  ASSERT_TRUE(type.particle);
  EXPECT_EQ(type.particle->kind, Kind::sequence);
  EXPECT_EQ(type.particle->least, 0);
  ASSERT_THAT(type.particle->parts, SizeIs(2));
  SchemaParticle const& a = type.particle->parts[0];
  EXPECT_EQ(a.kind, Kind::element);
  EXPECT_EQ(a.most, 1'000'000'000);
  EXPECT_EQ(a.element->name, (SchemaName{"a", ""}));
  SchemaParticle const& choice = type.particle->parts[1];
  EXPECT_EQ(choice.kind, Kind::choice);
  EXPECT_EQ(choice.most, kUnbounded);
  EXPECT_EQ(choice.parts[1].kind, Kind::wildcard);
  ASSERT_THAT(type.attributes, SizeIs(2));
  EXPECT_EQ(type.attributes[0].name.local, "x");
  EXPECT_TRUE(type.attributes[0].isRequired);
  EXPECT_FALSE(type.attributes[1].isRequired);
}

TEST_F(ContentModels, KindsOfContent) {
  load(
      schemaOf("<xs:element name='empty'><xs:complexType/></xs:element>"
               "<xs:element name='text'><xs:complexType><xs:simpleContent>"
               "<xs:extension base='xs:int'><xs:attribute name='u' type='xs:int'/>"
               "</xs:extension></xs:simpleContent></xs:complexType></xs:element>"
               "<xs:element name='mixed'><xs:complexType mixed='true'><xs:sequence>"
               "<xs:element name='a' type='xs:int'/></xs:sequence></xs:complexType></xs:element>"
               "<xs:element name='any'/>"
               "<xs:element name='nil' type='xs:int' nillable='true'/>"));
  EXPECT_EQ(typeOf("empty").content, ContentKind::empty);
  EXPECT_EQ(typeOf("text").content, ContentKind::text);
  EXPECT_EQ(typeOf("text").text->name, "xs:int");
  EXPECT_EQ(typeOf("mixed").content, ContentKind::mixed);
  EXPECT_TRUE(typeOf("any").isAny);
  EXPECT_EQ(typeOf("nil").content, ContentKind::text);
  EXPECT_TRUE(global("nil").isNillable);
}

TEST_F(ContentModels, RecursiveTypeIsOneObject) {
  load(
      schemaOf("<xs:complexType name='T'><xs:sequence>"
               "<xs:element name='e' type='T' minOccurs='0'/></xs:sequence></xs:complexType>"
               "<xs:element name='r' type='T'/>"));
  SchemaType const& type = typeOf("r");
  SchemaElement const& inner = *type.particle->parts[0].element;
  EXPECT_EQ(&model->typeOf(inner), &type);
}

TEST_F(ContentModels, WildcardsAdmitNamespaces) {
  load(
      elementWith("<xs:sequence><xs:any namespace='##any'/></xs:sequence>"
                  "<xs:anyAttribute namespace='urn:a ##local'/>"));
  SchemaType const& type = typeOf("r");
  EXPECT_TRUE(type.particle->parts[0].wildcard.admits(""));
  EXPECT_TRUE(type.particle->parts[0].wildcard.admits("urn:b"));
  ASSERT_TRUE(type.anyAttribute);
  EXPECT_TRUE(type.anyAttribute->admits("urn:a"));
  EXPECT_TRUE(type.anyAttribute->admits(""));
  EXPECT_FALSE(type.anyAttribute->admits("urn:b"));
}

TEST_F(ContentModels, OtherNamespacesAreNeitherTheOwnNorNone) {
  load(
      schemaOf("<xs:element name='r'><xs:complexType><xs:sequence>"
               "<xs:any namespace='##other'/></xs:sequence></xs:complexType></xs:element>",
               " targetNamespace='urn:x'"));
  SchemaElement const& root = global("r", "urn:x");
  SchemaWildcard const& other = model->typeOf(root).particle->parts[0].wildcard;
  EXPECT_FALSE(other.admits("urn:x"));
  EXPECT_FALSE(other.admits(""));
  EXPECT_TRUE(other.admits("urn:y"));
}

using Types = SchemaModelTest;

TEST_F(Types, BuiltInTypesHaveTheirKindAndBounds) {
  load(
      schemaOf("<xs:element name='i' type='xs:int'/><xs:element name='s' type='xs:NMTOKEN'/>"
               "<xs:element name='d' type='xs:gYear'/><xs:element name='f' type='xs:float'/>"
               "<xs:element name='b' type='xs:boolean'/><xs:element name='l' type='xs:IDREFS'/>"
               "<xs:element name='x' type='xs:hexBinary'/>"));
  SimpleType const& integer = *typeOf("i").text;
  EXPECT_EQ(integer.kind, ValueKind::decimal);
  EXPECT_EQ(integer.primitive, "decimal");
  EXPECT_EQ(integer.fractionDigits, 0);
  ASSERT_TRUE(integer.lower && integer.upper);
  EXPECT_EQ(integer.lower->value, "-2147483648");
  EXPECT_EQ(integer.upper->value, "2147483647");
  EXPECT_EQ(typeOf("s").text->kind, ValueKind::text);
  EXPECT_EQ(typeOf("s").text->name, "xs:NMTOKEN");
  EXPECT_FALSE(typeOf("s").text->hasPattern);
  EXPECT_EQ(typeOf("d").text->kind, ValueKind::date);
  EXPECT_EQ(typeOf("f").text->kind, ValueKind::floating);
  EXPECT_EQ(typeOf("b").text->kind, ValueKind::boolean);
  EXPECT_EQ(typeOf("x").text->kind, ValueKind::binary);
  SimpleType const& list = *typeOf("l").text;
  EXPECT_EQ(list.kind, ValueKind::list);
  ASSERT_THAT(list.members, SizeIs(1));
  EXPECT_EQ(list.members[0]->name, "xs:IDREF");
}

TEST_F(Types, FacetsAreInherited) {
  load(
      schemaOf("<xs:simpleType name='A'><xs:restriction base='xs:decimal'>"
               "<xs:totalDigits value='18'/><xs:fractionDigits value='5'/>"
               "<xs:minInclusive value='0'/></xs:restriction></xs:simpleType>"
               "<xs:element name='r'><xs:simpleType><xs:restriction base='A'>"
               "<xs:totalDigits value='10'/><xs:maxExclusive value='1000'/>"
               "</xs:restriction></xs:simpleType></xs:element>"));
  SimpleType const& type = *typeOf("r").text;
  EXPECT_EQ(type.totalDigits, 10);
  EXPECT_EQ(type.fractionDigits, 5);
  EXPECT_EQ(type.lower->value, "0");
  EXPECT_FALSE(type.lower->isExclusive);
  EXPECT_EQ(type.upper->value, "1000");
  EXPECT_TRUE(type.upper->isExclusive);
}

TEST_F(Types, LengthSetsBothLengths) {
  SimpleType const& type = restriction("xs:string", "<xs:length value='7'/>");
  EXPECT_EQ(type.maxLength, 7);
  EXPECT_EQ(type.minLength, 7);
}

TEST_F(Types, PatternsOfOneStepAreAlternatives) {
  SimpleType const& type =
      restriction("xs:string", "<xs:pattern value='a{2}'/><xs:pattern value='b{5}'/>");
  EXPECT_TRUE(type.hasPattern);
  EXPECT_EQ(type.patternLength, 5);
}

TEST_F(Types, PatternsOfTwoStepsApplyTogether) {
  load(
      schemaOf("<xs:simpleType name='A'><xs:restriction base='xs:string'>"
               "<xs:pattern value='a{2,4}'/></xs:restriction></xs:simpleType>"
               "<xs:element name='r'><xs:simpleType><xs:restriction base='A'>"
               "<xs:pattern value='a{1,9}'/></xs:restriction></xs:simpleType></xs:element>"));
  EXPECT_EQ(typeOf("r").text->patternLength, 4);
}

TEST_F(Types, EnumerationKeepsItsOrder) {
  SimpleType const& type =
      restriction("xs:string", "<xs:enumeration value='b'/><xs:enumeration value='a &#228;'/>");
  ASSERT_NE(type.enumeration, nullptr);
  EXPECT_THAT(*type.enumeration, ElementsAre("b", "a \xC3\xA4"));
}

TEST_F(Types, UnionHasItsMembers) {
  SimpleType const& type = simple("<xs:union memberTypes='xs:int xs:date'/>");
  EXPECT_EQ(type.kind, ValueKind::unionOf);
  ASSERT_THAT(type.members, SizeIs(2));
  EXPECT_EQ(type.members[0]->name, "xs:int");
  EXPECT_EQ(type.members[1]->name, "xs:date");
}

}  // namespace
}  // namespace fdmorph
