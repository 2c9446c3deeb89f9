// Where locations lead.

#include "xml/location_resolver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/temporary_folder.h"
#include "xml/uris.h"

namespace fdmorph {
namespace {

using testing::Optional;

class Locations : public testing::Test {
 protected:
  std::string write(std::string const& name, std::string const& text = "<a/>") {
    std::filesystem::create_directories(std::filesystem::path(folder.path(name)).parent_path());
    return folder.write(name, text);
  }
  std::string catalog(std::string const& entries) {
    return write("catalog.xml", "<catalog xmlns=\"urn:oasis:names:tc:entity:xmlns:xml:catalog\">" +
                                    entries + "</catalog>");
  }

  TemporaryFolder folder;
};

TEST_F(Locations, RelativeOneIsBelowTheFolderOfTheNamingFile) {
  std::string wanted = write("sub/b.xsd");
  write("b.xsd");
  FileResolver resolver;
  EXPECT_THAT(resolver.resolve({folder.path("sub/a.xsd"), "b.xsd", ""}), Optional(wanted));
  EXPECT_THAT(resolver.resolve({folder.path("other/a.xsd"), "../sub/b.xsd", ""}), Optional(wanted));
  EXPECT_THAT(resolver.resolve({"", fileUri(wanted), ""}), Optional(wanted));
  EXPECT_EQ(resolver.resolve({folder.path("sub/a.xsd"), "c.xsd", ""}), std::nullopt);
}

TEST_F(Locations, RelativeNameOfTheNamingFileIsKept) {
  WorkingFolder working;
  working.write("b.xsd", "<a/>");
  EXPECT_THAT(FileResolver().resolve({"a.xsd", "./b.xsd", ""}), Optional(std::string("b.xsd")));
}

TEST_F(Locations, EscapesAreDecodedIfThereIsNoSuchFile) {
  std::string blank = write("a b.xsd");
  EXPECT_THAT(FileResolver().resolve({folder.path("x"), "a%20b.xsd", ""}), Optional(blank));
  std::string escaped = write("a%20b.xsd");
  EXPECT_THAT(FileResolver().resolve({folder.path("x"), "a%20b.xsd", ""}), Optional(escaped));
}

TEST_F(Locations, WhiteSpaceAroundCountsOnlyInNamesOfFiles) {
  std::string const near = write("b.xsd");
  FileResolver resolver({}, Catalog({catalog("<uri name=\"urn:n\" uri=\"far.xsd\"/>")}));
  write("far.xsd");
  EXPECT_THAT(resolver.resolve({folder.path("a.xsd"), "\n b.xsd ", "urn:n"}), Optional(near));
  EXPECT_EQ(resolver.resolve({folder.path("a.xsd"), " ", ""}), std::nullopt);
  std::string const blank = write("b.xsd ");
  EXPECT_THAT(resolver.resolve({folder.path("a.xsd"), "b.xsd ", ""}), Optional(blank));
}

TEST_F(Locations, FragmentCountsOnlyInNamesOfFiles) {
  std::string const whole = write("b.xsd");
  FileResolver resolver({folder.path("")});
  EXPECT_THAT(resolver.resolve({folder.path("a.xsd"), "b.xsd#types", ""}), Optional(whole));
  EXPECT_THAT(resolver.resolve({folder.path("a.xsd"), "http://h/b.xsd#t", ""}), Optional(whole));
  EXPECT_EQ(resolver.resolve({folder.path("a.xsd"), "#types", ""}), std::nullopt);
  std::string const hash = write("b.xsd#types");
  EXPECT_THAT(resolver.resolve({folder.path("a.xsd"), "b.xsd#types", ""}), Optional(hash));
}

TEST_F(Locations, FoldersComeAfterTheNamingFile) {
  std::string near = write("main/b.xsd");
  write("lib/b.xsd");
  std::string only = write("lib/sub/c.xsd");
  FileResolver resolver({folder.path("nowhere"), folder.path("lib")});
  EXPECT_THAT(resolver.resolve({folder.path("main/a.xsd"), "b.xsd", ""}), Optional(near));
  EXPECT_THAT(resolver.resolve({folder.path("main/a.xsd"), "sub/c.xsd", ""}), Optional(only));
  EXPECT_EQ(resolver.resolve({folder.path("main/a.xsd"), "c.xsd", ""}), std::nullopt);
}

TEST_F(Locations, UriIsFoundInAFolderByHostAndPathOrByItsLastPart) {
  std::string last = write("lib/xml.xsd");
  FileResolver resolver({folder.path("lib")});
  LocationReference reference{folder.path("a.xsd"), "http://www.w3.org/2001/xml.xsd", ""};
  EXPECT_THAT(resolver.resolve(reference), Optional(last));
  std::string whole = write("lib/www.w3.org/2001/xml.xsd");
  EXPECT_THAT(resolver.resolve(reference), Optional(whole));
}

TEST_F(Locations, CatalogComesLast) {
  std::string mapped = write("far/mapped.xsd");
  std::string near = write("b.xsd");
  std::string entries = "<uri name=\"" + fileUri(near) + "\" uri=\"far/mapped.xsd\"/>" +
                        "<system systemId=\"http://h/c.xsd\" uri=\"far/mapped.xsd\"/>" +
                        "<uri name=\"" + fileUri(folder.path("gone.xsd")) +
                        "\" uri=\"far/mapped.xsd\"/>" +
                        "<uri name=\"urn:n\" uri=\"far/mapped.xsd\"/>" +
                        "<uri name=\"urn:far\" uri=\"http://h/far.xsd\"/>";
  FileResolver resolver({}, Catalog({catalog(entries)}));
  std::string const base = folder.path("a.xsd");
  EXPECT_THAT(resolver.resolve({base, "b.xsd", ""}), Optional(near));
  EXPECT_THAT(resolver.resolve({base, "http://h/c.xsd", ""}), Optional(mapped));
  EXPECT_THAT(resolver.resolve({base, "gone.xsd", ""}), Optional(mapped));
  EXPECT_THAT(resolver.resolve({base, "missing.xsd", "urn:n"}), Optional(mapped));
  EXPECT_THAT(resolver.resolve({base, "", "urn:n"}), Optional(mapped));
  EXPECT_EQ(resolver.resolve({base, "urn:far", ""}), std::nullopt);
  EXPECT_EQ(resolver.resolve({base, "", ""}), std::nullopt);
}

TEST_F(Locations, FileHasOneName) {
  std::string first = write("b.xsd");
  std::filesystem::create_symlink(first, folder.path("link.xsd"));
  FileResolver resolver;
  EXPECT_THAT(resolver.resolve({folder.path("a.xsd"), "b.xsd", ""}), Optional(first));
  EXPECT_THAT(resolver.resolve({folder.path("a.xsd"), "link.xsd", ""}), Optional(first));
}

TEST_F(Locations, FolderIsNoFile) {
  write("sub/b.xsd");
  EXPECT_EQ(FileResolver().resolve({folder.path("a.xsd"), "sub", ""}), std::nullopt);
}

}  // namespace
}  // namespace fdmorph
