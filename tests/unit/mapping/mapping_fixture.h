// Mapping files and the data that they are for.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "mapping/described_data.h"
#include "mapping/mapping_check.h"
#include "mapping/mapping_merge.h"
#include "support/compiled_source.h"

namespace fdmorph::mapping {

/// A bare copybook or program, its lines written from column 8 on, as it is described.
class Described {
 public:
  explicit Described(std::string_view lines, compiler::DictionaryChoice const& choice = {}) {
    m_tree.files[m_path] = compiler::fixed(lines);
    m_source.emplace(m_path, compiler::SourceOptions(), m_tree);
    m_data.emplace(*m_source, choice);
    EXPECT_FALSE(m_source->diagnostics().hasErrors());
  }

  [[nodiscard]] DescribedData const& data() const { return *m_data; }

 private:
  std::string m_path = "a.cbl";  // the data looks at it
  compiler::MemoryTree m_tree;
  std::optional<compiler::CompiledSource> m_source;
  std::optional<DescribedData> m_data;
};

/// A mapping file with this content, on one line.
inline std::string mappingFile(std::string const& content) {
  return "<xml-cobol-mapping-file xmlns=\"" + std::string(kMappingNamespace) + "\">" + content +
         "</xml-cobol-mapping-file>";
}

/// An entry with a name and a type, and other elements.
inline std::string entry(std::string const& key, std::string const& name,
                         std::string const& type = "string", std::string const& more = {}) {
  return "<xml-cobol-mapping><cobol-name>" + key + "</cobol-name><xml-name>" + name +
         "</xml-name><xml-type>" + type + "</xml-type>" + more + "</xml-cobol-mapping>";
}

/// The findings without places, each "CODE KEY: TEXT" and a line end.
inline std::string withoutPlaces(MappingFindings const& findings) {
  std::string text;
  for (MappingFinding const& each : findings.kept()) {
    text += std::string(each.name()) + " " + each.item + ": " + each.text + "\n";
  }
  return text;
}

}  // namespace fdmorph::mapping
