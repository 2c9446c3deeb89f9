// XML files as events.

#include "xml/xml_events.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/captured_console.h"
#include "support/temporary_folder.h"
#include "xml/location_resolver.h"

namespace fdmorph {
namespace {

class Recorder : public XmlEvents {
 public:
  void startTag(XmlTag const& tag) override {
    events += "<" + tag.qualifiedName;
    for (XmlAttribute const& each : tag.attributes) {
      events += " " + each.qualifiedName + "=" + each.value;
    }
    events += ">";
    tags.push_back(tag);
  }
  void endTag() override { events += "</>"; }
  void text(std::string_view part) override { events += part; }

  std::string events;
  std::vector<XmlTag> tags;
};

class Events : public ConsoleTest {
 protected:
  std::optional<XmlFault> read(std::string const& text, LocationResolver* resolver = nullptr) {
    return readXml(folder.write("a.xml", text), recorder, resolver);
  }

  TemporaryFolder folder;
  Recorder recorder;
};

TEST_F(Events, TagsTextsAndDeclarationsAreToldInOrder) {
  EXPECT_FALSE(read("<p:a xmlns:p='urn:p' b='1'>x<c/>y</p:a>"));
  EXPECT_EQ(recorder.events, "<p:a xmlns:p=urn:p b=1>x<c></>y</>");
  EXPECT_EQ(recorder.tags[0].uri, "urn:p");
  EXPECT_EQ(recorder.tags[0].name, "a");
  EXPECT_EQ(recorder.tags[0].attribute("b"), "1");
  EXPECT_EQ(recorder.tags[0].attribute("p"), std::nullopt);
}

TEST_F(Events, FaultHasItsPlaceAndIsNotPrinted) {
  std::optional<XmlFault> fault = read("<a>\n</b>");
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->file, folder.path("a.xml"));
  EXPECT_EQ(fault->line, 2U);
  EXPECT_NE(fault->text, "");
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Events, MissingFileIsAFaultWithoutAPlace) {
  std::optional<XmlFault> fault = readXml(folder.path("gone.xml"), recorder);
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->file, folder.path("gone.xml"));
  EXPECT_EQ(fault->line, 0U);
}

TEST_F(Events, EntityIsLookedForByTheResolver) {
  folder.write("part.txt", "inside");
  std::string const text = "<!DOCTYPE a [<!ENTITY e SYSTEM 'part.txt'>]><a>&e;</a>";
  FileResolver resolver;
  EXPECT_FALSE(read(text, &resolver));
  EXPECT_EQ(recorder.events, "<a>inside</>");
  EXPECT_TRUE(read(text));
}

TEST_F(Events, ExpansionIsBounded) {
  std::string text = "<!DOCTYPE a [<!ENTITY e0 'xxxxxxxxxx'>";
  for (int i = 1; i < 10; ++i) {
    std::string const inner = "&e" + std::to_string(i - 1) + ";";
    text += "<!ENTITY e" + std::to_string(i) + " '";
    for (int copy = 0; copy < 10; ++copy) text += inner;
    text += "'>";
  }
  EXPECT_TRUE(read(text + "]><a>&e9;</a>"));
}

TEST_F(Events, BeginOfATagIsFoundInTheFile) {
  std::string const path = folder.write("a.xml", "<a>\n  ü <b c='1'\n     d='2'/>\n</a>\n");
  Recorder tags;
  ASSERT_FALSE(readXml(path, tags));
  ASSERT_EQ(tags.tags.size(), 2U);
  TagPlace const first = beginOfTag(path, tags.tags[0].line, tags.tags[0].column);
  EXPECT_EQ(first.line, 1U);
  EXPECT_EQ(first.column, 1U);
  TagPlace const second = beginOfTag(path, tags.tags[1].line, tags.tags[1].column);
  EXPECT_EQ(second.line, 2U);
  EXPECT_EQ(second.column, 5U);
}

}  // namespace
}  // namespace fdmorph
