// Elements of a schema file in memory.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fdmorph::docschema {

/// An element with its attributes, and either a text or parts.
struct Markup {
  std::string name;
  std::vector<std::pair<std::string, std::string>> attributes = {};
  std::vector<Markup> parts = {};
  std::string text = {};

  Markup& add(Markup part) { return parts.emplace_back(std::move(part)); }
  void set(std::string_view attribute, std::string_view value) {
    attributes.emplace_back(attribute, value);
  }
};

/// A comment. Two hyphens in its text are printed as one.
[[nodiscard]] Markup commentOf(std::string_view text);

/// The text of a document, which is UTF-8.
[[nodiscard]] std::string printDocument(Markup const& root);

/// The text of an element.
[[nodiscard]] std::string printElement(Markup const& element);

}  // namespace fdmorph::docschema
