// URIs as text.

#include "xml/uris.h"

#include <gtest/gtest.h>

namespace fdmorph {
namespace {

TEST(Uris, SchemeHasAtLeastTwoCharacters) {
  EXPECT_EQ(uriScheme("http://a/b"), "http");
  EXPECT_EQ(uriScheme("urn:a:b"), "urn");
  EXPECT_EQ(uriScheme("c:a.xsd"), "");
  EXPECT_EQ(uriScheme("a/b:c.xsd"), "");
  EXPECT_EQ(uriScheme("a.xsd"), "");
}

TEST(Uris, FileUriHasEscapes) {
  EXPECT_EQ(fileUri("/a b/./c%.xsd"), "file:///a%20b/c%25.xsd");
}

TEST(Uris, OnlyFileUrisOfThisHostHavePaths) {
  EXPECT_EQ(pathOfFileUri("file:///a%20b/c.xsd"), "/a b/c.xsd");
  EXPECT_EQ(pathOfFileUri("FILE://localhost/a"), "/a");
  EXPECT_EQ(pathOfFileUri("file://other/a"), std::nullopt);
  EXPECT_EQ(pathOfFileUri("http://localhost/a"), std::nullopt);
}

TEST(Uris, WrongEscapesStay) {
  EXPECT_EQ(decodeEscapes("%41%4G%"), "A%4G%");
}

TEST(Uris, ReferencesAreResolvedBelowTheFolderOfTheBase) {
  EXPECT_EQ(resolveUri("file:///a/b.xml", "c/d.xsd"), "file:///a/c/d.xsd");
  EXPECT_EQ(resolveUri("file:///a/b.xml", "../d.xsd"), "file:///d.xsd");
  EXPECT_EQ(resolveUri("http://h/a/b?q/r", "d"), "http://h/a/d");
  EXPECT_EQ(resolveUri("http://h", "d"), "http://h/d");
  EXPECT_EQ(resolveUri("http://h/a", "/d/"), "http://h/d/");
  EXPECT_EQ(resolveUri("http://h/a", "//i/d"), "http://i/d");
  EXPECT_EQ(resolveUri("http://h/a", "urn:x"), "urn:x");
  EXPECT_EQ(resolveUri("http://h/a", ""), "http://h/a");
}

TEST(Uris, HostAndPathAreTakenApart) {
  EXPECT_EQ(uriHost("http://h:80/a/b?c#d"), "h:80");
  EXPECT_EQ(uriPath("http://h:80/a/b?c#d"), "/a/b");
  EXPECT_EQ(uriPath("http://h"), "");
  EXPECT_EQ(uriHost("urn:a"), "");
  EXPECT_EQ(uriPath("a/b.xsd"), "a/b.xsd");
}

}  // namespace
}  // namespace fdmorph
