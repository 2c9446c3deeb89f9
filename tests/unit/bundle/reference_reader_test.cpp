// What files refer to, and where.

#include "bundle/reference_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/temporary_folder.h"
#include "support/utf16.h"

namespace fdmorph::bundle {
namespace {

using Kind = FileReference::Kind;
using testing::HasSubstr;

class References : public testing::Test {
 protected:
  /// The references in a.xsd, whose text is kept.
  FileReferences read(std::string const& text) {
    bytes = text;
    path = folder.write("a.xsd", text);
    contents = FileContents();
    FileResolver resolver;
    return readReferences(path, contents, resolver);
  }
  /// The same, with what stands in the schema element.
  FileReferences readSchema(std::string const& content) {
    return read(
        "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'"
        " xmlns:i='http://www.w3.org/2001/XMLSchema-instance'>" +
        content + "</xs:schema>");
  }
  /// The only reference.
  static FileReference only(FileReferences const& read) {
    EXPECT_FALSE(read.fault) << read.fault->text;
    EXPECT_EQ(read.references.size(), 1U);
    return read.references.empty() ? FileReference{} : read.references.front();
  }
  /// What a range holds in a.xsd.
  std::string textAt(std::optional<ByteRange> range) const {
    return range ? bytes.substr(range->begin, range->end - range->begin) : "nothing";
  }

  TemporaryFolder folder;
  FileContents contents;
  std::string path;
  std::string bytes;
};

TEST_F(References, AreThoseOfTheParts) {
  FileReferences const found = readSchema(
      "<xs:include schemaLocation='b.xsd'/><xs:redefine\nschemaLocation = \"c.xsd\"/>"
      "<xs:import namespace='urn:d' schemaLocation='d.xsd'/>");
  EXPECT_FALSE(found.fault);
  EXPECT_TRUE(found.isSchema);
  ASSERT_EQ(found.references.size(), 3U);
  EXPECT_EQ(found.references[0].kind, Kind::include);
  EXPECT_EQ(found.references[0].location, "b.xsd");
  EXPECT_EQ(found.references[0].base, path);
  EXPECT_EQ(found.references[0].holder, path);
  EXPECT_EQ(found.references[0].offset, bytes.find("<xs:include"));
  EXPECT_EQ(textAt(found.references[0].range), "b.xsd");
  EXPECT_EQ(found.references[1].kind, Kind::redefine);
  EXPECT_EQ(textAt(found.references[1].range), "c.xsd");
  EXPECT_EQ(found.references[2].kind, Kind::import);
  EXPECT_EQ(found.references[2].identifier, "urn:d");
  EXPECT_EQ(textAt(found.references[2].range), "d.xsd");
}

TEST_F(References, AreNotWhatLooksLikeThem) {
  FileReferences const found = readSchema(
      "<!-- <xs:include schemaLocation='b.xsd'/> --><xs:annotation><xs:appinfo>"
      "<xs:include schemaLocation='b.xsd'/></xs:appinfo></xs:annotation>"
      "<o:include xmlns:o='urn:o' schemaLocation='b.xsd'/>"
      "<![CDATA[<xs:include schemaLocation='b.xsd'/>]]>");
  EXPECT_TRUE(found.references.empty());
  EXPECT_FALSE(read("<include schemaLocation='b.xsd'/>").isSchema);
}

TEST_F(References, HaveTheValueWithoutReferencesToCharacters) {
  FileReference const found = only(readSchema("<xs:include schemaLocation=' b&#x2E;xsd&amp;'/>"));
  EXPECT_EQ(found.location, " b.xsd&");
  EXPECT_EQ(textAt(found.range), " b&#x2E;xsd&amp;");
}

TEST_F(References, OfImportsMayLackALocation) {
  FileReference const found = only(readSchema("<xs:import namespace='urn:b' />"));
  EXPECT_FALSE(found.isWritten);
  EXPECT_EQ(found.location, "");
  EXPECT_EQ(bytes.substr(found.range->begin, 3), " />");
}

TEST_F(References, AreHintsAsWell) {
  FileReferences const found = readSchema(
      "<xs:annotation i:schemaLocation='urn:b\n b.xsd urn:c&amp; c.xsd urn:d'"
      " i:noNamespaceSchemaLocation='d.xsd'/>");
  ASSERT_EQ(found.references.size(), 3U);
  EXPECT_EQ(found.references[0].kind, Kind::hint);
  EXPECT_EQ(found.references[0].identifier, "urn:b");
  EXPECT_EQ(textAt(found.references[0].range), "b.xsd");
  EXPECT_EQ(found.references[0].offset, bytes.find("b.xsd"));
  EXPECT_EQ(found.references[1].identifier, "urn:c&");
  EXPECT_EQ(textAt(found.references[1].range), "c.xsd");
  EXPECT_EQ(found.references[2].identifier, "");
  EXPECT_EQ(textAt(found.references[2].range), "d.xsd");
}

TEST_F(References, InTheTextOfAnEntityHaveNoRange) {
  FileReference const found =
      only(read("<!DOCTYPE s [<!ENTITY e \"<include schemaLocation='b.xsd'/>\">]>"
                "<schema xmlns='http://www.w3.org/2001/XMLSchema'>&e;</schema>"));
  EXPECT_EQ(found.location, "b.xsd");
  EXPECT_EQ(textAt(found.range), "nothing");
}

TEST_F(References, ByDefaultHaveNoRange) {
  FileReference const found =
      only(read("<!DOCTYPE s [<!ATTLIST include schemaLocation CDATA 'b.xsd'>]>"
                "<schema xmlns='http://www.w3.org/2001/XMLSchema'><include/></schema>"));
  EXPECT_EQ(found.location, "b.xsd");
  EXPECT_EQ(textAt(found.range), "nothing");
}

TEST_F(References, OfExternalEntitiesAreThoseThatAreRead) {
  folder.write("a.dtd", "<!ENTITY % part SYSTEM 'part.ent'>%part;");
  folder.write("part.ent", "<!ENTITY text SYSTEM 'text.ent'><!ENTITY unread SYSTEM 'x.ent'>");
  folder.write("text.ent", "<xs:include schemaLocation='b.xsd'/>");
  FileReferences const found = read(
      "<!DOCTYPE xs:schema PUBLIC '-//A//B' 'a.dtd' ><xs:schema"
      " xmlns:xs='http://www.w3.org/2001/XMLSchema'>&text;</xs:schema>");
  EXPECT_FALSE(found.fault);
  ASSERT_EQ(found.references.size(), 4U);
  EXPECT_EQ(found.references[0].kind, Kind::documentType);
  EXPECT_EQ(found.references[0].identifier, "-//A//B");
  EXPECT_EQ(textAt(found.references[0].range), "a.dtd");
  EXPECT_EQ(found.references[1].kind, Kind::entity);
  EXPECT_EQ(found.references[1].holder, folder.path("a.dtd"));
  EXPECT_EQ(found.references[1].range, (ByteRange{24, 32}));
  EXPECT_EQ(found.references[2].location, "text.ent");
  EXPECT_EQ(found.references[2].holder, folder.path("part.ent"));
  EXPECT_EQ(found.references[2].base, folder.path("part.ent"));
  // A location counts from the schema, wherever it is written.
  EXPECT_EQ(found.references[3].kind, Kind::include);
  EXPECT_EQ(found.references[3].holder, folder.path("text.ent"));
  EXPECT_EQ(found.references[3].base, path);
  EXPECT_EQ(found.references[3].range, (ByteRange{28, 33}));
}

TEST_F(References, OfEntitiesThatAreNotThereArePassedOver) {
  FileReference const found =
      only(read("<!DOCTYPE s SYSTEM 'gone.dtd'>"
                "<schema xmlns='http://www.w3.org/2001/XMLSchema'>&from-there;</schema>"));
  EXPECT_EQ(found.location, "gone.dtd");
}

TEST_F(References, AreFoundInUtf16) {
  std::string const text =
      "<?xml version='1.0' encoding='UTF-16'?><schema xmlns='http://www.w3.org/2001/XMLSchema'>"
      "<include schemaLocation='b.xsd'/></schema>";
  FileReference const little = only(read("\xFF\xFE" + utf16Little(text)));
  EXPECT_EQ(little.location, "b.xsd");
  EXPECT_EQ(textAt(little.range), utf16Little("b.xsd"));
  FileReference const big = only(read("\xFE\xFF" + utf16Big(text)));
  EXPECT_EQ(textAt(big.range), utf16Big("b.xsd"));
}

TEST_F(References, AreFoundInOtherEncodings) {
  for (char const* encoding : {"ISO-8859-1", "windows-1252", "utf8"}) {
    contents = FileContents();
    FileReference const found = only(read("<?xml version='1.0' encoding='" + std::string(encoding) +
                                          "'?><schema xmlns='http://www.w3.org/2001/XMLSchema'>"
                                          "<include schemaLocation='b.xsd'/></schema>"));
    EXPECT_EQ(textAt(found.range), "b.xsd") << encoding;
  }
}

TEST_F(References, NeedAKnownEncoding) {
  FileReferences const found = read("<?xml version='1.0' encoding='Shift_JIS'?><a/>");
  ASSERT_TRUE(found.fault);
  EXPECT_EQ(found.fault->text,
            "the encoding 'Shift_JIS' is not supported, expected UTF-8, UTF-16 or one with a byte "
            "for each character");
}

TEST_F(References, EndAtAFault) {
  FileReferences const found = readSchema("<xs:include schemaLocation='b.xsd'/>\n</xs:element>");
  ASSERT_TRUE(found.fault);
  EXPECT_EQ(found.fault->file, path);
  EXPECT_EQ(found.fault->line, 2U);
  EXPECT_NE(found.fault->text, "");
}

TEST_F(References, OfAnEntityHaveItsFaults) {
  folder.write("b.ent", "<b>");
  FileReferences const found = read("<!DOCTYPE a [<!ENTITY b SYSTEM 'b.ent'>]><a>&b;</a>");
  ASSERT_TRUE(found.fault);
  EXPECT_EQ(found.fault->file, folder.path("b.ent"));
}

TEST_F(References, ThatNestTooDeeplyAreAFault) {
  constexpr int kFiles = 150;
  for (int i = 0; i < kFiles; ++i) {
    std::string const next = "e" + std::to_string(i + 1);
    folder.write("e" + std::to_string(i),
                 "<!ENTITY % n" + next + " SYSTEM '" + next + "'>%n" + next + ";");
  }
  FileReferences const found = read("<!DOCTYPE a SYSTEM 'e0'><a/>");
  ASSERT_TRUE(found.fault);
  EXPECT_EQ(found.fault->text, "entities are nested too deeply");
}

TEST_F(References, StopAtEntitiesThatGrow) {
  std::string declarations = "<!ENTITY e0 '0123456789'>";
  for (int i = 1; i < 12; ++i) {
    std::string const last = "&e" + std::to_string(i - 1) + ";";
    declarations += "<!ENTITY e" + std::to_string(i) + " '";
    for (int times = 0; times < 10; ++times) declarations += last;
    declarations += "'>";
  }
  FileReferences const found = read("<!DOCTYPE a [" + declarations + "]><a>&e11;</a>");
  ASSERT_TRUE(found.fault);
  EXPECT_THAT(found.fault->text, HasSubstr("amplification"));
}

TEST_F(References, OfAFileThatCannotBeReadAreAFault) {
  FileResolver resolver;
  FileReferences const found = readReferences(folder.path("gone"), contents, resolver);
  ASSERT_TRUE(found.fault);
  EXPECT_THAT(found.fault->text, HasSubstr("No such file"));
}

}  // namespace
}  // namespace fdmorph::bundle
