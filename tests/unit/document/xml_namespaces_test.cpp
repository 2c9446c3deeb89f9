#include <gtest/gtest.h>

#include "support/document_fixture.h"

namespace fdmorph::document {
namespace {

/// A and B in the namespace u, C in v, D and the attribute e in none.
struct XmlNamespaces : testing::Test {
  XmlNamespaces() : fixture("D e") {
    fixture.recordNamespace = "u";
    fixture.names.add("u", "A");
    fixture.names.add("u", "B");
    fixture.names.add("v", "C");
    fixture.names.add("v", "f");
  }
  DocumentFixture fixture;
};

TEST_F(XmlNamespaces, AreMatchedWithAnyPrefix) {
  std::string_view expected = "1 A(@e=1,B,C,D)\n";
  EXPECT_EQ(fixture.readXml("<A xmlns='u' e='1'><B/><C xmlns='v'/><D xmlns=''/></A>"), expected);
  EXPECT_EQ(fixture.readXml("<p:A xmlns:p='u' xmlns:q='v' e='1'><p:B/><q:C/><D/></p:A>"), expected);
  EXPECT_EQ(fixture.readXml("<p:l xmlns:p='u'><A xmlns:q='v' xmlns='u' e='1'><p:B/>"
                            "<p:C xmlns:p='v'/><D xmlns=''/></A></p:l>"),
            expected);
}

TEST_F(XmlNamespaces, AreNotMatchedByLocalNameAlone) {
  EXPECT_EQ(fixture.readXml("<l><A/></l>"), "1 [1:4 unknown A: no record has this name]\n");
  EXPECT_EQ(fixture.readXml("<A xmlns='u'><C/><D/></A>"), "1 A(?C,?D)\n");
}

TEST_F(XmlNamespaces, AreMatchedByLocalNameAloneOnRequest) {
  fixture.match = NameMatch::local;
  EXPECT_EQ(fixture.readXml("<A x:e='1' xmlns:x='w'><x:B/><C/><D xmlns='u'/></A>"),
            "1 A(@e=1,B,C,D)\n");
}

TEST_F(XmlNamespaces, DoNotReachAttributesWithoutPrefix) {
  EXPECT_EQ(fixture.readXml("<A xmlns='u' xmlns:q='v' e='1' q:f='2' f='3' q:e='4'/>"),
            "1 A(@e=1,@f=2,?@f=3,?@e=4)\n");
}

TEST_F(XmlNamespaces, EndWithTheirElement) {
  EXPECT_EQ(fixture.readXml("<l xmlns='u'><A><C xmlns='v'><B/></C><B/></A><A/></l>"),
            "1 A(C(?B),B)\n2 A\n");
  EXPECT_EQ(fixture.readXml("<l><p:A xmlns:p='u'/><p:A/></l>"),
            "1 A\n2 [1:22 xml the prefix of 'p:A' is not declared]\n");
}

TEST_F(XmlNamespaces, OfEachLineAreItsOwn) {
  EXPECT_EQ(fixture.readXml("<A xmlns='u'/>\n<p:A xmlns:p='u'><p:B/></p:A>\n<A/>\n"),
            "1 A\n2 A(B)\n3 [3:1 unknown A: no record has this name]\n");
}

TEST_F(XmlNamespaces, MustBeDeclaredForEachPrefix) {
  EXPECT_EQ(fixture.readXml("<A xmlns='u'>\n<p:B/></A>"),
            "1 [2:1 xml the prefix of 'p:B' is not declared]\n");
  EXPECT_EQ(fixture.readXml("<A xmlns='u'><B p:e=''/></A>"),
            "1 [1:14 xml the prefix of 'p:e' is not declared]\n");
  EXPECT_EQ(fixture.readXml("<p:l/>"), "1 [1:1 xml the prefix of 'p:l' is not declared]\n");
}

TEST_F(XmlNamespaces, HaveNamesWithOneColon) {
  EXPECT_EQ(fixture.readXml("<a:b:c/>"), "1 [1:1 xml 'a:b:c' is not a name]\n");
  EXPECT_EQ(fixture.readXml("<:b/>"), "1 [1:1 xml ':b' is not a name]\n");
  EXPECT_EQ(fixture.readXml("<b:/>"), "1 [1:1 xml 'b:' is not a name]\n");
  EXPECT_EQ(fixture.readXml("<b a:1=''/>"), "1 [1:1 xml 'a:1' is not a name]\n");
}

TEST_F(XmlNamespaces, HaveReservedPrefixes) {
  EXPECT_EQ(fixture.readXml("<A xmlns='u' xml:lang='de'/>"), "1 A(?@lang=de)\n");
  EXPECT_EQ(fixture.readXml("<A xmlns='u' xmlns:xml='http://www.w3.org/XML/1998/namespace'/>"),
            "1 A\n");
  EXPECT_EQ(fixture.readXml("<A xmlns:xml='u'/>"),
            "1 [1:1 xml the prefix 'xml' and its namespace belong together]\n");
  EXPECT_EQ(fixture.readXml("<A xmlns='http://www.w3.org/XML/1998/namespace'/>"),
            "1 [1:1 xml the prefix 'xml' and its namespace belong together]\n");
  EXPECT_EQ(fixture.readXml("<A xmlns:xmlns='u'/>"),
            "1 [1:1 xml the prefix 'xmlns' is declared]\n");
  EXPECT_EQ(fixture.readXml("<A xmlns:p='http://www.w3.org/2000/xmlns/'/>"),
            "1 [1:1 xml a prefix is declared for the namespace of declarations]\n");
  EXPECT_EQ(fixture.readXml("<xmlns:A/>"), "1 [1:1 xml the prefix of 'xmlns:A' is not declared]\n");
}

// Namespaces in XML 1.0: only the default namespace may be none again.
TEST_F(XmlNamespaces, AreNotTakenFromAPrefix) {
  EXPECT_EQ(fixture.readXml("<p:A xmlns:p='u'><B xmlns:p=''/></p:A>"),
            "1 [1:18 xml the prefix 'p' is declared without a namespace]\n");
}

TEST_F(XmlNamespaces, MakeAttributesEqual) {
  EXPECT_EQ(fixture.readXml("<A xmlns='u' xmlns:p='v' xmlns:q='v' p:f='' q:f=''/>"),
            "1 [1:1 xml two attributes of one name]\n");
  EXPECT_EQ(fixture.readXml("<A xmlns='u' xmlns:p='u' e='1' p:e='2'/>"), "1 A(@e=1,?@e=2)\n");
}

}  // namespace
}  // namespace fdmorph::document
