#include "xml/content_specs.h"

namespace fdmorph {
namespace {

using Node = xerces::ContentSpecNode;

// The kind of wildcard without its rules for processing content.
int baseTypeOf(Node::NodeTypes type) {
  constexpr int kBaseTypes = 0x0F;
  return type & kBaseTypes;
}

// A chain of two by two, as the library links the parts of a group and the
// namespaces of a wildcard.
bool isLink(Node const& node) {
  return node.getType() == Node::Sequence || node.getType() == Node::Choice ||
         node.getType() == Node::Any_NS_Choice;
}

// Other namespaces are those that have a name and are not `own`.
SchemaWildcard otherThan(std::string own) {
  return {true, {std::move(own), ""}};
}

}  // namespace

SchemaParticle::Kind kindOf(Node const& node) {
  switch (node.getType()) {
    case Node::Leaf:
      return SchemaParticle::Kind::element;
    case Node::Sequence:
    case Node::ModelGroupSequence:
      return SchemaParticle::Kind::sequence;
    case Node::Choice:
    case Node::ModelGroupChoice:
      return SchemaParticle::Kind::choice;
    case Node::All:
      return SchemaParticle::Kind::all;
    default:
      return SchemaParticle::Kind::wildcard;
  }
}

// The chain may be as long as the group, and a group of namespaces is one part.
std::vector<Node const*> partsOf(Node const& group) {
  std::vector<Node const*> parts;
  std::vector<Node const*> pending{group.getSecond(), group.getFirst()};
  while (!pending.empty()) {
    Node const* next = pending.back();
    pending.pop_back();
    if (next == nullptr) continue;
    bool const isGroup = next->getType() == group.getType() && next->getType() == Node::All;
    if (isGroup || next->getType() == Node::Sequence || next->getType() == Node::Choice) {
      pending.push_back(next->getSecond());
      pending.push_back(next->getFirst());
    } else {
      parts.push_back(next);
    }
  }
  return parts;
}

SchemaWildcard wildcardOf(Node const& node, SchemaGrammars& grammars) {
  int const type = baseTypeOf(node.getType());
  if (type == Node::Any) return {true, {}};
  if (type == Node::Any_Other) return otherThan(grammars.spaceOf(node.getElement()->getURI()));
  SchemaWildcard wildcard;
  std::vector<Node const*> pending{&node};
  while (!pending.empty()) {
    Node const* next = pending.back();
    pending.pop_back();
    if (next == nullptr) continue;
    if (isLink(*next)) {
      pending.push_back(next->getSecond());
      pending.push_back(next->getFirst());
    } else if (next->getElement() != nullptr) {
      wildcard.spaces.push_back(grammars.spaceOf(next->getElement()->getURI()));
    }
  }
  return wildcard;
}

SchemaWildcard wildcardOf(xerces::SchemaAttDef const& attribute, SchemaGrammars& grammars) {
  switch (attribute.getType()) {
    case xerces::XMLAttDef::Any_Other:
      return otherThan(grammars.spaceOf(attribute.getAttName()->getURI()));
    case xerces::XMLAttDef::Any_List: {
      SchemaWildcard wildcard;
      auto const* spaces = attribute.getNamespaceList();
      for (XMLSize_t i = 0; spaces != nullptr && i < spaces->size(); ++i) {
        wildcard.spaces.push_back(grammars.spaceOf(spaces->elementAt(i)));
      }
      return wildcard;
    }
    default:
      return {true, {}};
  }
}

}  // namespace fdmorph
