#include "mapping/form_rules.h"

#include "mapping/suggestions.h"
#include "source/diagnostics.h"

namespace fdmorph::mapping {
namespace {

class FormRules {
 public:
  FormRules(MappingDocument const& document, MappingContent const& content,
            MappingFindings& findings)
      : m_document(document), m_content(content), m_findings(findings) {}

  void check() {
    if (isRootForeign()) return;
    checkNamespace();
    for (ForeignElement const& each : m_content.foreign) reportForeign(each);
    for (std::size_t each : m_content.outside) {
      report(MappingCode::place, each, "value outside an entry is ignored");
    }
    for (std::size_t each : m_content.misplaced) reportMisplaced(each);
    for (std::size_t each : m_content.repeated) {
      report(MappingCode::repeated, each, "the last of several counts, not this one");
    }
    checkContents();
  }

 private:
  bool isRootForeign() {
    if (m_content.foreign.empty() || m_content.foreign.front().element != 0) return false;
    MappingElement const& root = m_document.elements.front();
    m_findings.add({MappingCode::root,
                    root.place,
                    {},
                    "expected the root element " + compiler::quoted(kMappingFileElement) +
                        ", found " + compiler::quoted(root.name) + "; nothing is read"});
    return true;
  }

  void checkNamespace() {
    MappingElement const& root = m_document.elements.front();
    if (root.uri == kMappingNamespace) return;
    std::string const found = root.uri.empty() ? "none" : compiler::quoted(root.uri);
    m_findings.add({MappingCode::space,
                    root.place,
                    {},
                    "expected the namespace " + compiler::quoted(kMappingNamespace) + ", found " +
                        found + "; a schema does not apply"});
  }

  void reportForeign(ForeignElement const& foreign) {
    MappingElement const& element = m_document.elements[foreign.element];
    std::string text =
        "unknown element " + compiler::quoted(element.name) + suggestElement(element.name);
    if (foreign.discarded != 0) {
      text += "; it discards ";
      text += foreign.discarded == 1
                  ? "the entry before it"
                  : "the " + std::to_string(foreign.discarded) + " entries before it";
    }
    m_findings.add({MappingCode::element, element.place, {}, text});
  }

  void reportMisplaced(std::size_t index) {
    std::string_view const name = m_document.elements[index].name;
    std::string_view const around = name == kMappingElement ? kMappingFileElement : kMappingElement;
    report(MappingCode::place, index,
           name == kMappingFileElement ? "expected as the root only"
                                       : "expected directly in " + compiler::quoted(around));
  }

  void checkContents() {
    for (std::size_t i = 0; i < m_document.elements.size(); ++i) {
      MappingElement const& element = m_document.elements[i];
      if (!element.attributes.empty()) {
        report(MappingCode::attributes, i,
               "attribute " + compiler::quoted(element.attributes.front()) + " is ignored");
      }
      if (!element.lost) continue;
      bool const isValue = fieldOf(element.name).has_value();
      m_findings.add({MappingCode::text,
                      *element.lost,
                      {},
                      isValue ? "only the last piece of the text counts, without CDATA sections: " +
                                    compiler::quoted(element.value)
                              : "text between elements is ignored"});
    }
  }

  void report(MappingCode code, std::size_t index, std::string const& text) {
    MappingElement const& element = m_document.elements[index];
    m_findings.add({code, element.place, {}, compiler::quoted(element.name) + ": " + text});
  }

  MappingDocument const& m_document;
  MappingContent const& m_content;
  MappingFindings& m_findings;
};

}  // namespace

void checkForm(MappingDocument const& document, MappingContent const& content,
               MappingFindings& findings) {
  FormRules(document, content, findings).check();
}

}  // namespace fdmorph::mapping
