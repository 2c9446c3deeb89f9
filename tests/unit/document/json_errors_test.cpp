#include <gtest/gtest.h>

#include "support/document_fixture.h"

namespace fdmorph::document {
namespace {

struct Malformed {
  char const* line;
  char const* error;
};

// At the first byte that does not fit.
constexpr Malformed kMalformed[] = {
    {"{", "1:2 json expected a name in quotes"},
    {"{b:1}", "1:2 json expected a name in quotes"},
    {"{\"b\" 1}", "1:6 json expected ':'"},
    {"{\"b\":}", "1:6 json expected a value"},
    {"{\"b\":1 \"c\":2}", "1:8 json expected ',' or '}'"},
    {"{\"b\":1,}", "1:8 json expected a name in quotes"},
    {"{\"b\":[1,]}", "1:9 json expected a value"},
    {"{\"b\":[1 2]}", "1:9 json expected ',' or ']'"},
    {"{\"b\":[1}", "1:8 json expected ',' or ']'"},
    {"{\"b\":[,1]}", "1:7 json expected a value"},
    {"{} x", "1:4 json text after the value"},
    {"1 2", "1:3 json text after the value"},
    {"01", "1:2 json text after the value"},
    {"-", "1:2 json expected a digit"},
    {"-x", "1:2 json expected a digit"},
    {"+1", "1:1 json expected a value"},
    {".5", "1:1 json expected a value"},
    {"5.", "1:3 json expected a digit"},
    {"5.e1", "1:3 json expected a digit"},
    {"5e+", "1:4 json expected a digit"},
    {"0x10", "1:2 json text after the value"},
    {"nul", "1:4 json not a value"},
    {"nulL", "1:4 json not a value"},
    {"truex", "1:5 json text after the value"},
    {"NaN", "1:1 json expected a value"},
    {"'x'", "1:1 json expected a value"},
    {"\"x", "1:3 json the line ends in a string"},
    {"\"x\\\"", "1:5 json the line ends in a string"},
    {"\"\\", "1:3 json not an escape"},
    {"\"\\q\"", "1:3 json not an escape"},
    {"\"\\u12G4\"", "1:6 json not a hexadecimal digit"},
    {"\"\\u123", "1:7 json not a hexadecimal digit"},
    {"\"\\ud83d\\u12\"", "1:12 json not a hexadecimal digit"},
    {"\"a\tb\"", "1:3 json a control character in a string"},
    {"\"a\x1F\"", "1:3 json a control character in a string"},
    {"\"a\xC3(\"", "1:4 json malformed UTF-8"},
    {"\xFF", "1:1 json malformed UTF-8"},
    {"{} \xC3", "1:4 json text after the value"},
    {"[\"x\xED\xA0\x80\"]", "1:5 json malformed UTF-8"},
    {"{\"b\";\"\xFF\"}", "1:5 json expected ':'"},
};

TEST(JsonErrors, AreAtTheFirstByteThatDoesNotFit) {
  DocumentFixture fixture("A b c");
  for (Malformed const& malformed : kMalformed) {
    EXPECT_EQ(fixture.readJson(std::string(malformed.line) + "\n{\"b\":1}\n"),
              "1 [" + std::string(malformed.error) + "]\n2 A(b=1)\n")
        << malformed.line;
  }
}

TEST(JsonErrors, AreNulBytes) {
  DocumentFixture fixture("A b");
  EXPECT_EQ(fixture.readJson(std::string_view("\"a\0\"\n", 5)),
            "1 [1:3 json a control character in a string]\n");
  EXPECT_EQ(fixture.readJson(std::string_view("{}\0\n", 4)), "1 [1:3 json text after the value]\n");
  EXPECT_EQ(fixture.readJson(std::string_view("\0{}\n", 4)), "1 [1:1 json expected a value]\n");
}

TEST(JsonErrors, OfTheTextLeaveNoOthers) {
  DocumentFixture fixture("A b");
  EXPECT_EQ(fixture.readJson("{\"b\":1,\"b\":\"\\ud800\",\"u\":[[]]"),
            "1 [1:29 json expected ',' or '}']\n");
}

TEST(JsonErrors, AreMembersThatAreThereTwice) {
  DocumentFixture fixture("A b c");
  EXPECT_EQ(fixture.readJson("{\"b\":1,\"c\":2,\"b\":3,\"@b\":4}"),
            "1 A(b=1,c=2,@b=4)[1:18 json A/b: a member that is there twice]\n");
  EXPECT_EQ(fixture.readJson("{\"b\":null,\"b\":[{\"c\":1},{\"c\":2}],\"c\":3}"),
            "1 A(c=3)[1:15 json A/b: a member that is there twice]\n");
  EXPECT_EQ(fixture.readJson("{\"b\":[1,{\"@c\":1,\"@c\":2}],\"b\":null}"),
            "1 A(b[]=1,b[](@c=1))[1:22 json A/b[2]/@c: a member that is there twice]"
            "[1:30 json A/b: a member that is there twice]\n");
  EXPECT_EQ(fixture.readJson("{\"u\\\"\":1,\"v\":2,\"u\\u0022\":3}"),
            "1 A(?u\\\"=1,?v=2)[1:26 json A/u\\\": a member that is there twice]\n");
  EXPECT_EQ(fixture.readJson("{\"#text\":1,\"#text\":2}"),
            "1 A(#text=1)[1:20 json A: a member that is there twice]\n");
}

TEST(JsonErrors, AreNotToldInWhatIsThereTwice) {
  DocumentFixture fixture("A b c");
  EXPECT_EQ(fixture.readJson("{\"b\":1,\"b\":{\"c\":1,\"c\":[[]]}}"),
            "1 A(b=1)[1:12 json A/b: a member that is there twice]\n");
  // Nor at the values that it has itself.
  EXPECT_EQ(fixture.readJson("{\"b\":1,\"b\":[[]]}"),
            "1 A(b=1)[1:12 json A/b: a member that is there twice]\n");
  EXPECT_EQ(fixture.readJson("{\"b\":1,\"b\":[2,\"\\ud800\"]}"),
            "1 A(b=1)[1:12 json A/b: a member that is there twice]\n");
}

TEST(JsonErrors, AreNotTheSameNameInAnotherObject) {
  DocumentFixture fixture("A b c");
  EXPECT_EQ(fixture.readJson("{\"b\":{\"b\":{\"b\":1},\"c\":1},\"c\":{\"c\":2}}"),
            "1 A(b(b(b=1),c=1),c(c=2))\n");
}

TEST(JsonErrors, AreSurrogatesThatStandAlone) {
  DocumentFixture fixture("A b c");
  EXPECT_EQ(fixture.readJson("{\"b\":[\"x\",\"\\ud83dy\"],\"@c\":\"\\ude00\",\"c\":1}\n{\"b\":2}"),
            "1 A(b[]=x,b[]!broken,@c!broken,c=1)"
            "[1:11 character A/b[2]: a surrogate stands alone]"
            "[1:27 character A/@c: a surrogate stands alone]\n"
            "2 A(b=2)\n");
  EXPECT_EQ(fixture.readJson("{\"\\ud800\":1}"), "1 A(?\\ud800=1)\n");
}

TEST(JsonErrors, AreArraysWhereNoneCanBe) {
  DocumentFixture fixture("A b c");
  EXPECT_EQ(fixture.readJson("[1]\n{\"b\":[1,[2,{\"c\":[3]}],4]}\n"),
            "1 [1:1 json A: an array for a record]\n"
            "2 A(b[]=1,b[]!broken,b[]=4)[2:9 json A/b[2]: an array in an array]\n");
}

TEST(JsonErrors, AreTooManyLevels) {
  DocumentFixture fixture("A b");
  fixture.options.limits.depth = 3;
  EXPECT_EQ(fixture.readJson("{\"b\":{\"b\":[1]}}\n"), "1 A(b(b[]=1))\n");
  EXPECT_EQ(fixture.readJson("{\"b\":{\"b\":[{}]}}\n1"),
            "1 [1:12 json too many objects and arrays in one another]\n2 A=1\n");
  fixture.options.limits.depth = 1000;
  EXPECT_EQ(fixture.readJson(std::string(1'000'000, '[')),
            "1 [1:1001 json too many objects and arrays in one another]\n");
}

TEST(JsonErrors, AreTooManyValues) {
  DocumentFixture fixture("A b");
  fixture.options.limits.parts = 3;
  EXPECT_EQ(fixture.readJson("{\"b\":[1,2]}\n{\"b\":[1,2,3]}\n1\n"),
            "1 A(b[]=1,b[]=2)\n2 [2:12 json too many values]\n3 A=1\n");
}

TEST(JsonErrors, AreTenAtMost) {
  DocumentFixture fixture("A b");
  std::string line = "{\"b\":[[]";
  for (int i = 0; i < 30; ++i) line += ",[]";
  std::string result = fixture.readJson(line + "]}");
  EXPECT_EQ(std::count(result.begin(), result.end(), ':'), 20);
  EXPECT_NE(result.find("1:7 json A/b[1]: "), std::string::npos) << result;
  EXPECT_NE(result.find("1:34 json A/b[10]: "), std::string::npos) << result;
}

TEST(JsonErrors, EndEachCutLine) {
  DocumentFixture fixture("A b c");
  std::string_view line = R"({"b":["\u20ac",-1.5e3,true],"@c":null})";
  EXPECT_EQ(fixture.readJson(line), "1 A(b[]=\xE2\x82\xAC,b[]=-1.5e3,b[]=true)\n");
  for (std::size_t size = 1; size < line.size(); ++size) {
    std::string result = fixture.readJson(line.substr(0, size));
    EXPECT_TRUE(result.starts_with("1 [1:" + std::to_string(size + 1) + " json ")) << result;
  }
}

}  // namespace
}  // namespace fdmorph::document
