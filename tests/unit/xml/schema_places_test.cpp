// Where the schema model says that declarations are.

#include "xml/schema_places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/schema_model_fixture.h"

namespace fdmorph {
namespace {

using testing::ElementsAre;

std::string placeText(SchemaPlace const& place) {
  return place.file.substr(place.file.rfind('/') + 1) + ":" + std::to_string(place.line) + ":" +
         std::to_string(place.column);
}

using Places = SchemaModelTest;

TEST_F(Places, AreThoseOfTheStartTags) {
  load(
      schemaOf("<xs:element name='r'>\n"
               " <xs:complexType>\n"
               "  <xs:sequence>\n"
               "   <!-- a comment --> <xs:element\n"
               "       name='a'/>\n"
               "  </xs:sequence>\n"
               "  <xs:attribute name='x' type='xs:int'/>\n"
               " </xs:complexType>\n"
               "</xs:element>\n"));
  SchemaType const& type = typeOf("r");
  EXPECT_EQ(placeText(model->placeOf(global("r"))), "a.xsd:2:1");
  EXPECT_EQ(placeText(model->placeOf(*type.particle->parts[0].element)), "a.xsd:5:23");
  EXPECT_EQ(placeText(model->placeOf(type.attributes[0], global("r"))), "a.xsd:8:3");
}

TEST_F(Places, OfLocalNamesAreThoseOfTheirTypeItsBaseAndItsGroups) {
  load(
      schemaOf("<xs:element name='r' type='D'/>\n"
               "<xs:complexType name='B'><xs:sequence>\n"
               "<xs:element name='base' type='xs:int'/></xs:sequence></xs:complexType>\n"
               "<xs:group name='G'><xs:sequence>\n"
               "<xs:element name='grouped' type='xs:int'/></xs:sequence></xs:group>\n"
               "<xs:attributeGroup name='H'>\n"
               "<xs:attribute name='x' type='xs:int'/></xs:attributeGroup>\n"
               "<xs:complexType name='D'><xs:complexContent><xs:extension base='B'>\n"
               "<xs:sequence><xs:group ref='G'/>\n"
               "<xs:element name='own' type='xs:int'/></xs:sequence>\n"
               "<xs:attributeGroup ref='H'/></xs:extension></xs:complexContent>"
               "</xs:complexType>\n"));
  std::vector<SchemaElement const*> found;
  auto const collect = [&found](auto const& self, SchemaParticle const& particle) -> void {
    if (particle.element != nullptr) found.push_back(particle.element);
    for (SchemaParticle const& part : particle.parts) self(self, part);
  };
  SchemaType const& type = typeOf("r");
  collect(collect, *type.particle);
  ASSERT_THAT(namesOf(found), ElementsAre("base", "grouped", "own"));
  EXPECT_EQ(model->placeOf(*found[0]).line, 4);
  EXPECT_EQ(model->placeOf(*found[1]).line, 6);
  EXPECT_EQ(model->placeOf(*found[2]).line, 11);
  EXPECT_EQ(model->placeOf(type.attributes[0], global("r")).line, 8);
}

TEST_F(Places, NameIncludedFilesBesideTheMainOne) {
  folder.write("part.xsd", schemaOf("\n\n<xs:element name='p' type='xs:int'/>"));
  load(schemaOf("<xs:include schemaLocation='part.xsd'/><xs:element name='r' type='xs:int'/>",
                " targetNamespace='urn:x'"));
  EXPECT_EQ(placeText(model->placeOf(global("p", "urn:x"))), "part.xsd:4:1");
}

TEST_F(Places, AreRelativeAsTheSchemaWasGiven) {
  WorkingFolder working;
  std::filesystem::create_directory(working.path("sub"));
  working.write("sub/part.xsd", schemaOf("<xs:element name='p' type='xs:int'/>"));
  working.write("sub/a.xsd", schemaOf("<xs:include schemaLocation='part.xsd'/>\n"
                                      "<xs:element name='r' type='xs:int'/>"));
  LoadedSchema const loaded = SchemaModel::load("sub/a.xsd", files);
  ASSERT_NE(loaded.model, nullptr);
  EXPECT_EQ(loaded.model->placeOf(*loaded.model->globalElement({"r", ""})).file, "sub/a.xsd");
  EXPECT_EQ(loaded.model->placeOf(*loaded.model->globalElement({"p", ""})).file, "sub/part.xsd");
}

TEST_F(Places, LookAtNoDocumentationAndNoInnerElements) {
  load(
      schemaOf("<xs:element name='r'><xs:complexType><xs:sequence>\n"
               "<xs:element name='outer'><xs:complexType><xs:sequence>\n"
               "<xs:element name='a' type='xs:int'/></xs:sequence></xs:complexType></xs:element>\n"
               "<xs:element name='a' type='xs:string'/></xs:sequence></xs:complexType>"
               "</xs:element>\n"));
  SchemaType const& type = typeOf("r");
  SchemaElement const& outer = *type.particle->parts[0].element;
  EXPECT_EQ(model->placeOf(*type.particle->parts[1].element).line, 5);
  EXPECT_EQ(model->placeOf(*model->typeOf(outer).particle->parts[0].element).line, 4);
}

}  // namespace
}  // namespace fdmorph
