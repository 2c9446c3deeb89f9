// Documents of tests as instances: a small part of XML and of JSON, without any check.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "document/instance.h"
#include "document/name_numbers.h"

namespace fdmorph::document {

/// The record of a document, as a reader makes it. Elements have no namespace.
class DocumentText {
 public:
  DocumentText(std::string_view text, NameNumbers const& names) : m_text(text), m_names(names) {}

  /// <name name="value">text and elements</name>; xsi:nil="true".
  Instances readXml() {
    readElement(kNoInstance);
    return std::move(m_instances);
  }

  /// A value, or an object: of strings without escapes, numbers, null, objects and
  /// arrays. `record` is the name of the record.
  Instances readJson(std::string_view record) {
    readValue(part(kNoInstance, record, 0));
    return std::move(m_instances);
  }

 private:
  using Shape = Instance::Shape;

  Instance part(std::uint32_t parent, std::string_view name, std::size_t at) const {
    Instance instance{};
    instance.parent = parent;
    instance.isAttribute = name.starts_with('@');
    instance.name = m_names.find({}, instance.isAttribute ? name.substr(1) : name);
    instance.line = 1;
    instance.column = at + 1;
    return instance;
  }

  std::uint32_t add(Instance instance, std::string_view name) {
    if (name == "#text") instance.name = kTextMember;
    if (instance.name == layout::kNone) {
      instance.unknownName = static_cast<std::uint32_t>(m_instances.unknownNames.size());
      m_instances.unknownNames.emplace_back(name);
    }
    return m_instances.add(instance);
  }

  void setText(std::uint32_t number, std::string_view text) {
    m_instances.all[number].textBegin = m_instances.texts.size();
    m_instances.all[number].textSize = text.size();
    m_instances.texts += text;
  }

  std::string_view take(std::string_view ends) {
    std::size_t begin = m_at;
    m_at = std::min(m_text.find_first_of(ends, begin), m_text.size());
    return m_text.substr(begin, m_at - begin);
  }

  void readElement(std::uint32_t parent) {
    std::size_t const at = m_at++;
    std::string_view const name = take(" />");
    std::uint32_t const number = add(part(parent, name, at), name);
    while (m_text[m_at] == ' ') readAttribute(number, at);
    std::string text;
    if (m_text[m_at] == '/') {
      m_at += 2;
    } else {
      ++m_at;
      while (m_text.substr(m_at, 2) != "</") {
        if (m_text[m_at] == '<') {
          readElement(number);
        } else {
          text += m_text[m_at++];
        }
      }
      take(">");
      ++m_at;
    }
    setText(number, text);
  }

  void readAttribute(std::uint32_t element, std::size_t at) {
    ++m_at;
    std::string const name = "@" + std::string(take("="));
    m_at += 2;
    std::string_view const value = take("\"");
    ++m_at;
    if (name == "@xsi:nil") {
      m_instances.all[element].isNil = true;
    } else {
      setText(add(part(element, name, at), name), value);
    }
  }

  std::string_view readName() {
    ++m_at;
    std::string_view const name = take("\"");
    m_at += 2;
    return name;
  }

  // `instance` has all but its value.
  void readValue(Instance instance, std::string_view name = {}) {
    instance.column = m_at + 1;
    if (m_text[m_at] == '[') {
      readArray(instance, name);
    } else if (m_text[m_at] == '{') {
      instance.shape = Shape::object;
      std::uint32_t const number = add(instance, name);
      while (m_text[m_at++] != '}' && m_text[m_at] != '}') {
        std::string_view const member = readName();
        readValue(part(number, member, m_at), member);
      }
      if (m_text[m_at] == '}' && m_text[m_at - 1] == '{') ++m_at;
    } else if (m_text[m_at] == '"') {
      ++m_at;
      instance.shape = Shape::scalar;
      instance.isString = true;
      setText(add(instance, name), take("\""));
      ++m_at;
    } else {
      std::string_view const text = take(",]}");
      instance.shape = Shape::scalar;
      instance.isNil = text == "null";
      setText(add(instance, name), text);
    }
  }

  void readArray(Instance instance, std::string_view name) {
    ++m_at;
    if (m_text[m_at] == ']') {
      instance.isEmptyArray = true;
      add(instance, name);
    }
    instance.isInArray = true;
    while (m_text[m_at] != ']') {
      readValue(instance, name);
      if (m_text[m_at] == ',') ++m_at;
    }
    ++m_at;
  }

  std::string_view m_text;
  NameNumbers const& m_names;
  std::size_t m_at = 0;
  Instances m_instances;
};

}  // namespace fdmorph::document
