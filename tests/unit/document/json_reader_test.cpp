#include "document/json_reader.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <random>

#include "support/document_fixture.h"

namespace fdmorph::document {
namespace {

TEST(JsonReader, ReadsARecordFromEachLine) {
  DocumentFixture fixture("A b c");
  EXPECT_EQ(fixture.readJson("{\"b\":\"1\",\"c\":2}\n\n \t\r\n{\"c\":{\"b\":\"x\"}}\r\n{}"),
            "1 A(b=1,c=2)\n2 A(c(b=x))\n3 A\n");
  EXPECT_EQ(fixture.readJson(""), "");
  EXPECT_EQ(fixture.readJson("\n\n"), "");
}

TEST(JsonReader, ReadsBareValues) {
  DocumentFixture fixture("A");
  EXPECT_EQ(fixture.readJson("\"x\"\n-1.50e+03\ntrue\nnull\n"),
            "1 A=x\n2 A=-1.50e+03\n3 A=true\n4 A!nil\n");
}

TEST(JsonReader, KeepsNumbersAsWritten) {
  DocumentFixture fixture("A b");
  EXPECT_EQ(fixture.readJson("{\"b\":[0,-0,0.10,1e5,1E-400,123456789012345678901234567890]}"),
            "1 A(b[]=0,b[]=-0,b[]=0.10,b[]=1e5,b[]=1E-400,"
            "b[]=123456789012345678901234567890)\n");
}

TEST(JsonReader, ReadsAttributesAndTextsOfElements) {
  DocumentFixture fixture("A b c");
  EXPECT_EQ(fixture.readJson("{\"@b\":\"1\",\"b\":{\"@c\":2,\"#text\":\"t\"}}"),
            "1 A(@b=1,b(@c=2,#text=t))\n");
}

TEST(JsonReader, ReadsArraysAsPartsThatFollowOneAnother) {
  DocumentFixture fixture("A b c");
  EXPECT_EQ(fixture.readJson("{\"b\":[{\"c\":[]},{\"c\":[1]}],\"c\":[\"x\",null]}"),
            "1 A(b[](c![]),b[](c[]=1),c[]=x,c[]!nil)\n");
}

TEST(JsonReader, LeavesMembersOutThatAreNull) {
  DocumentFixture fixture("A b c");
  EXPECT_EQ(fixture.readJson("{\"b\":null,\"c\":false,\"@b\":null,\"#text\":null}"),
            "1 A(c=false)\n");
}

TEST(JsonReader, KeepsUnknownMembersUnlessTheyAreIgnored) {
  DocumentFixture fixture("A b");
  std::string_view line = R"({"u\n":[1,{"b":2}],"@v":3,"b":4,"\u0062":5})";
  EXPECT_EQ(fixture.readJson(R"({"u\n":[1,{"b":2}],"@v":3,"b":4})"),
            "1 A(?u\\n[]=1,?u\\n[](b=2),?@v=3,b=4)\n");
  EXPECT_EQ(fixture.readJson(line),
            "1 A(?u\\n[]=1,?u\\n[](b=2),?@v=3,b=4)"
            "[1:42 json A/b: a member that is there twice]\n");
  fixture.options.ignoresUnknown = true;
  EXPECT_EQ(fixture.readJson(R"({"u":[1,{"b":2}],"u":{"x":[]},"@v":3,"b":4})"), "1 A(b=4)\n");
}

TEST(JsonReader, TakesTheNameOfTheRecordIfThereAreSeveral) {
  DocumentFixture fixture("A B c");
  fixture.records = {"A", "B"};
  EXPECT_EQ(fixture.readJson("{\"B\":{\"c\":1}}\n{\"A\":\"x\"}\n{\"A\":null}\n"),
            "1 B(c=1)\n2 A=x\n3 A!nil\n");
  EXPECT_EQ(fixture.readJson("[{}]\n{}\n \"A\"\n"),
            "1 [1:1 json not an object with the name of a record]\n"
            "2 [2:1 json no record in a line]\n"
            "3 [3:2 json not an object with the name of a record]\n");
  EXPECT_EQ(fixture.readJson("{\"A\":1,\"B\":2}\n{\"A\":1,\"A\":2}\n"),
            "1 A=1[1:12 json B: a second record in a line]\n"
            "2 A=1[2:12 json A: a second record in a line]\n");
  EXPECT_EQ(fixture.readJson("{\"c\":{}}\n{\"@A\":{},\"B\":{}}\n"),
            "1 [1:6 unknown c: no record has this name]\n"
            "2 B[2:7 unknown @A: no record has this name]\n");
  fixture.options.ignoresUnknown = true;
  EXPECT_EQ(fixture.readJson("{\"c\":{}}\n{\"@A\":{},\"B\":{}}\n"), "1 B\n");
}

TEST(JsonReader, TellsTheBytesOfValues) {
  DocumentFixture fixture("A b c");
  NameNumbers index(fixture.names, NameMatch::local);
  ReaderOptions options;
  options.records = {0};
  JsonReader reader(blocksOf("\n {\"b\" : [ \"\xC3\xBC\",{ \"c\":\t12 } ] }"), index, options);
  DocumentRecord record;
  ASSERT_TRUE(reader.next(record));
  EXPECT_EQ(record.line, 2U);
  EXPECT_EQ(record.column, 2U);
  std::vector<Instance> const& all = record.instances.all;
  ASSERT_EQ(all.size(), 4U);
  std::vector<std::uint64_t> columns;
  for (Instance const& part : all) {
    EXPECT_EQ(part.line, 2U);
    columns.push_back(part.column);
  }
  EXPECT_EQ(columns, (std::vector<std::uint64_t>{2, 11, 16, 23}));
  EXPECT_EQ(all[0].shape, Instance::Shape::object);
  EXPECT_EQ(all[1].shape, Instance::Shape::scalar);
}

TEST(JsonReader, PassesAByteOrderMarkOver) {
  DocumentFixture fixture("A b");
  EXPECT_EQ(fixture.readJson("\xEF\xBB\xBF{\"b\":1}\n{\"b\":x}\n"),
            "1 A(b=1)\n2 [2:6 json expected a value]\n");
}

TEST(JsonReader, KeepsTheLineAsItWas) {
  DocumentFixture fixture("A b");
  fixture.options.keepsText = true;
  static_cast<void>(fixture.readJson("{\"b\" : 1}\r\n{\"b\":\n"));
  EXPECT_EQ(fixture.texts, (std::vector<std::string>{"{\"b\" : 1}\r", "{\"b\":"}));
}

TEST(JsonReader, ReadsTheSameInBlocksOfAnySize) {
  DocumentFixture fixture("A b c");
  std::string text;
  for (int i = 0; i < 100; ++i) {
    text += "{\"b\":\"" + std::string(static_cast<std::size_t>(i) * 37, 'x') +
            "\\u20ac\",\"c\":[1, {} ]}\n\n{\"b\"}\n";
  }
  std::string expected = fixture.readJson(text);
  for (std::size_t size : {1U, 2U, 3U, 11U, 1000U}) {
    fixture.blockSize = size;
    EXPECT_EQ(fixture.readJson(text), expected) << size;
  }
}

// Longer than the buffer is at first.
TEST(JsonReader, ReadsLongLines) {
  DocumentFixture fixture("A");
  std::string value(1'000'000, 'v');
  EXPECT_EQ(fixture.readJson('"' + value + "\"\n1\n"), "1 A=" + value + "\n2 A=1\n");
}

TEST(JsonReader, ReportsALineThatIsTooLongAndGoesOn) {
  DocumentFixture fixture("A");
  fixture.options.limits.recordBytes = 300'000;
  EXPECT_EQ(fixture.readJson('"' + std::string(1'000'000, 'v') + "\"\n1\n"),
            "1 [1:1 json a line of more than 300000 bytes]\n2 A=1\n");
  EXPECT_EQ(fixture.readJson("2\n\"" + std::string(1'000'000, 'v')),
            "1 A=2\n2 [2:1 json a line of more than 300000 bytes]\n");
}

/// A value of random shape; members are among `names`.
nlohmann::ordered_json randomValue(std::mt19937& random, int depth) {
  auto upTo = [&](unsigned most) { return static_cast<unsigned>(random() % (most + 1)); };
  switch (upTo(depth > 0 ? 4 : 2)) {
    case 0:
      return static_cast<std::int64_t>(random()) - 2'000'000'000;
    case 1:
      return upTo(1) == 0;
    case 2: {
      std::string text;
      for (unsigned i = upTo(12); i > 0; --i) {
        static constexpr std::array<char const*, 9> kPieces{
            "a", "\"", "\\", "\n", "\x01", "\xC3\xBC", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "/"};
        text += kPieces[upTo(8)];
      }
      return text;
    }
    case 3: {
      auto array = nlohmann::ordered_json::array();
      for (unsigned i = upTo(3) + 1; i > 0; --i) {
        nlohmann::ordered_json value = randomValue(random, depth - 1);
        if (!value.is_array()) array.push_back(value);
      }
      return array;
    }
    default: {
      auto object = nlohmann::ordered_json::object();
      for (char name : {'b', 'c', 'd'}) {
        if (upTo(1) == 0) object[std::string(1, name)] = randomValue(random, depth - 1);
      }
      return object;
    }
  }
}

std::string shownJson(nlohmann::ordered_json const& value) {
  if (value.is_string()) {
    auto text = value.get<std::string>();
    return text.empty() ? "" : '=' + text;
  }
  if (!value.is_object()) return '=' + value.dump();
  std::string out;
  auto add = [&out](std::string const& part) { out += (out.empty() ? '(' : ',') + part; };
  for (auto const& [name, member] : value.items()) {
    if (!member.is_array()) {
      add(name + shownJson(member));
    } else if (member.empty()) {
      add(name + "![]");
    } else {
      for (auto const& element : member) add(name + "[]" + shownJson(element));
    }
  }
  return out.empty() ? out : out + ')';
}

TEST(JsonReader, AgreesWithAnotherParser) {
  DocumentFixture fixture("A b c d");
  std::mt19937 random(1);
  std::string text;
  std::string expected;
  for (int i = 1; i <= 2000; ++i) {
    nlohmann::ordered_json value = randomValue(random, 4);
    if (value.is_array()) value = {{"b", value}};
    text += value.dump(-1, ' ', i % 2 == 0) + '\n';
    expected += std::to_string(i) + " A" + shownJson(value) + '\n';
  }
  EXPECT_EQ(fixture.readJson(text), expected);
}

// Bytes of valid lines are changed at random: both parsers accept the same lines.
TEST(JsonReader, RefusesWhatAnotherParserRefuses) {
  DocumentFixture fixture("A b c d");
  std::mt19937 random(2);
  static constexpr std::string_view kBytes = "\"\\{}[]:,0123456789.-+eEutrfalsn \x01\x80\xC3";
  int refused = 0;
  for (int i = 0; i < 5000; ++i) {
    std::string text = "{\"b\":" + randomValue(random, 3).dump() + '}';
    text[random() % text.size()] = kBytes[random() % kBytes.size()];
    if (text.find_first_not_of(' ') == std::string::npos) continue;
    bool isAccepted = true;
    try {
      nlohmann::json parsed = nlohmann::json::parse(text);
    } catch (nlohmann::json::parse_error const&) {
      isAccepted = false;
    } catch (nlohmann::json::out_of_range const&) {
      // A number with a large exponent is one in the text.
    }
    std::string result = fixture.readJson(text);
    bool isMalformed = result.starts_with("1 [1:") && result.find(" json A") == std::string::npos &&
                       result.find("json an array for") == std::string::npos;
    // The other parser refuses surrogates that stand alone.
    if (result.find("surrogate") != std::string::npos) continue;
    EXPECT_EQ(isMalformed, !isAccepted) << text << '\n' << result;
    if (isMalformed) ++refused;
  }
  EXPECT_GT(refused, 1000);
}

}  // namespace
}  // namespace fdmorph::document
