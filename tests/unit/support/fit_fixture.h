// A schema and a record, and what a check says of them.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "fit/finding_output.h"
#include "fit/fit_walk.h"
#include "support/record_source.h"
#include "support/schema_model_fixture.h"

namespace fdmorph::fit {

class FitTest : public SchemaModelTest {
 protected:
  /// The findings of the copybook in free format, each "LINE: error: TEXT [code]" with
  /// both sides and without files, and no summary.
  std::string check(std::string const& schema, std::string const& copybook) {
    load(schema);
    record::RecordSource record(copybook);
    EXPECT_EQ(record.reports(), "");
    Findings findings;
    repairs = checkFit(record.tree, *model, "a.xsd", options, findings);
    findings.sort(record.diagnostics().sources());
    CheckedFiles const checked{"a.xsd", "a.cpy", &record.diagnostics().sources()};
    std::string const text = printText(findings, checked);
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
      std::size_t const end = text.find('\n', at);
      result += shortened(text.substr(at, end - at));
      at = end + 1;
    }
    return result;
  }

  /// The same for one element e of a simple type in an element r, and for the item of
  /// these clauses. Only what stands after the path.
  std::string checkValue(std::string const& type, std::string const& clauses) {
    std::string const text =
        check(schemaOf("<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='e'>" +
                       type + "</xs:element></xs:sequence></xs:complexType></xs:element>"),
              "01 R IDENTIFIED BY 'r'.\n 02 E " + clauses + " IDENTIFIED BY 'e'.\n");
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
      std::size_t const end = text.find('\n', at);
      std::string line = text.substr(at, end - at);
      if (std::size_t const path = line.find("r/e: "); path != line.npos) {
        line = line.substr(0, path) + line.substr(path + 5);
      }
      result += line + "\n";
      at = end + 1;
    }
    return result;
  }

  static std::string restricted(std::string const& base, std::string const& facets) {
    return "<xs:simpleType><xs:restriction base='xs:" + base + "'>" + facets +
           "</xs:restriction></xs:simpleType>";
  }

  /// The new picture of the only item that is repaired.
  std::string newPicture() const {
    if (repairs.size() != 1 || !repairs.begin()->second.picture) return "none";
    NewPicture const& picture = *repairs.begin()->second.picture;
    std::string text = picture.picture;
    if (picture.usage) text += " " + std::string(compiler::entryOf(*picture.usage).name);
    return text;
  }

  FitOptions options;
  Repairs repairs;

 private:
  // Without the file and column of the item and the place in the schema.
  static std::string shortened(std::string line) {
    if (line.starts_with("fdrec: ")) return {};
    line.erase(0, line.find(':') + 1);
    std::size_t const column = line.find(':');
    line.erase(column, line.find(':', column + 1) - column);
    if (std::size_t const place = line.find(" (/"); place != line.npos) {
      line.erase(place, line.find(')', place) + 1 - place);
    }
    return line + "\n";
  }
};

}  // namespace fdmorph::fit
