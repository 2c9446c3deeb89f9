// The types of a schema beside the items of a record.

#include "fit/node_types.h"

#include <gtest/gtest.h>

#include "support/fit_fixture.h"

namespace fdmorph::fit {
namespace {

using Types = std::vector<std::string>;

class NodeTypes : public FitTest {
 protected:
  Types typesOf(std::string const& declarations, std::string const& copybook) {
    load(schemaOf(declarations));
    record::RecordSource record(copybook);
    return typesOfNodes(record.tree, *model);
  }
};

TEST_F(NodeTypes, NameTheTypeAndItsBounds) {
  EXPECT_EQ(typesOf("<xs:simpleType name='Amount'><xs:restriction base='xs:decimal'>"
                    "<xs:totalDigits value='6'/><xs:fractionDigits value='2'/>"
                    "</xs:restriction></xs:simpleType>"
                    "<xs:element name='r'><xs:complexType><xs:sequence>"
                    "<xs:element name='a' type='Amount'/><xs:element name='b' type='xs:string'/>"
                    "</xs:sequence></xs:complexType></xs:element>",
                    "01 R IDENTIFIED BY 'r'. 02 A PIC 9 IDENTIFIED BY 'a'."
                    " 02 B PIC X IDENTIFIED BY 'b'. 02 C PIC X IDENTIFIED BY 'c'."),
            (Types{"", "Amount: decimal, 6 digits, 2 of them decimals", "string", ""}));
}

TEST_F(NodeTypes, AreThoseOfAttributesAndTextsToo) {
  EXPECT_EQ(typesOf("<xs:element name='r'><xs:complexType><xs:simpleContent>"
                    "<xs:extension base='xs:string'><xs:attribute name='x' type='xs:token'/>"
                    "</xs:extension></xs:simpleContent></xs:complexType></xs:element>",
                    "01 R IDENTIFIED BY 'r'. 02 X PIC X IDENTIFIED BY 'x' IS ATTRIBUTE."
                    " 02 TEXT-OF-R PIC X(5)."),
            (Types{"string", "token", "string"}));
}

TEST_F(NodeTypes, AreThoseOfEachSlotAndOfGroups) {
  EXPECT_EQ(typesOf("<xs:complexType name='Inner'><xs:sequence>"
                    "<xs:element name='a' type='xs:token'/></xs:sequence></xs:complexType>"
                    "<xs:element name='r'><xs:complexType><xs:sequence>"
                    "<xs:element name='i' type='Inner' maxOccurs='2'/>"
                    "</xs:sequence></xs:complexType></xs:element>",
                    "01 R IDENTIFIED BY 'r'. 02 I IDENTIFIED BY 'i'. 03 A PIC X IDENTIFIED BY 'a'."
                    " 02 J IDENTIFIED BY 'i'. 03 B PIC X IDENTIFIED BY 'a'."),
            (Types{"", "Inner", "token", "Inner", "token"}));
}

TEST_F(NodeTypes, AreEmptyWithoutTheElementOfTheRecord) {
  EXPECT_EQ(typesOf("<xs:element name='q' type='xs:string'/>", "01 R PIC X IDENTIFIED BY 'r'."),
            Types{""});
}

}  // namespace
}  // namespace fdmorph::fit
