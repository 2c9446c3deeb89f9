// Documents are valid against a schema, or the faults have their places.

#include "xml/document_validator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "support/schema_model_fixture.h"

namespace fdmorph {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class DocumentValidators : public ConsoleTest {
 protected:
  DocumentValidator& load() {
    LoadedValidator loaded = DocumentValidator::load(
        folder.write("a.xsd", elementWith("<xs:sequence><xs:element name='n' type='xs:int' "
                                          "maxOccurs='3'/></xs:sequence>"
                                          "<xs:attribute name='a' type='xs:date'/>")),
        std::make_unique<FileResolver>());
    EXPECT_THAT(loaded.reports, IsEmpty());
    validator = std::move(loaded.validator);
    return *validator;
  }

  TemporaryFolder folder;
  std::unique_ptr<DocumentValidator> validator;
};

TEST_F(DocumentValidators, JudgeOneDocumentAfterAnother) {
  DocumentValidator& each = load();
  EXPECT_THAT(each.validate("<r a='2024-02-29'><n>1</n></r>", 10).faults, IsEmpty());
  EXPECT_THAT(each.validate("<r><n>one</n></r>", 10).faults, SizeIs(1));
  EXPECT_THAT(each.validate("<r><n>1</n><n>2</n></r>", 10).faults, IsEmpty());
}

TEST_F(DocumentValidators, FaultInContentHasThePlaceOfItsElement) {
  ValidatedDocument const result = load().validate("<r><n>1</n><n>one</n></r>", 10);
  ASSERT_THAT(result.faults, SizeIs(1));
  ASSERT_THAT(result.faults[0].path, SizeIs(2));
  EXPECT_EQ(result.faults[0].path[0].name, "r");
  EXPECT_EQ(result.faults[0].path[1].name, "n");
  EXPECT_EQ(result.faults[0].path[1].index, 1);
  EXPECT_EQ(result.faults[0].element, 2);
  EXPECT_EQ(result.elements, 3);
}

// 2023 has no leap day.
TEST_F(DocumentValidators, FaultOfAnAttributeHasThePlaceOfItsElement) {
  ValidatedDocument const result = load().validate("<r a='2023-02-29'><n>1</n></r>", 10);
  ASSERT_THAT(result.faults, SizeIs(1));
  ASSERT_THAT(result.faults[0].path, SizeIs(1));
  EXPECT_EQ(result.faults[0].path[0].name, "r");
}

TEST_F(DocumentValidators, RootThatTheSchemaDoesNotHaveIsAFault) {
  EXPECT_THAT(load().validate("<s/>", 10).faults, SizeIs(1));
}

TEST_F(DocumentValidators, KeepNoMoreFaultsThanAskedFor) {
  EXPECT_THAT(load().validate("<r><n>a</n><n>b</n><n>c</n></r>", 2).faults, SizeIs(2));
}

// The location names a schema that would allow the document.
TEST_F(DocumentValidators, LocationsInDocumentsAreNotLookedAt) {
  std::string const other = folder.write("b.xsd", schemaOf("<xs:element name='s'/>"));
  std::string const document =
      "<s xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
      "xsi:noNamespaceSchemaLocation='" +
      other + "'/>";
  EXPECT_THAT(load().validate(document, 10).faults, SizeIs(1));
}

TEST_F(DocumentValidators, SchemaThatCannotBeUsedHasReports) {
  LoadedValidator const loaded =
      DocumentValidator::load(folder.write("a.xsd", schemaOf("<xs:element name='a' type='none'/>")),
                              std::make_unique<FileResolver>());
  EXPECT_EQ(loaded.validator, nullptr);
  ASSERT_THAT(loaded.reports, SizeIs(1));
  EXPECT_THAT(loaded.reports[0].message, HasSubstr("none"));
}

}  // namespace
}  // namespace fdmorph
