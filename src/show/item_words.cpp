#include "show/item_words.h"

#include <algorithm>

namespace fdmorph::show {

using compiler::DataItem;
using compiler::Literal;
using compiler::SignPosition;
using record::Role;

std::string levelWords(DataItem const& item) {
  std::string number = std::to_string(item.isImplied ? 1 : item.level);
  return number.size() == 1 ? "0" + number : number;
}

std::string_view pictureOf(DataItem const& item) {
  return item.isGroup() || item.picture == nullptr ? std::string_view() : item.picture->text;
}

std::string_view usageOf(DataItem const& item) {
  bool isRange = item.level == compiler::kRenamesLevel && item.picture == nullptr;
  bool isEmpty = item.size == 0 && item.picture == nullptr;
  if (item.isGroup() || isRange || isEmpty) return {};
  return entryOf(item.effectiveUsage).name;
}

std::string storageWords(DataItem const& item) {
  std::string words(usageOf(item));
  if (words.empty()) return words;
  if (item.isUnsigned) words += " unsigned";
  bool isSigned = item.picture != nullptr && item.picture->isSigned;
  if (isSigned && item.effectiveSign.position != SignPosition::none) {
    words +=
        item.effectiveSign.position == SignPosition::leading ? " sign leading" : " sign trailing";
    if (item.effectiveSign.isSeparate) words += " separate";
  }
  if (item.isJustified) words += " justified";
  if (item.isBlankWhenZero) words += " blank zero";
  if (item.isSynchronized) words += " sync";
  return words;
}

std::string occursWords(DataItem const& item) {
  if (item.occurs == nullptr) return {};
  std::string most = std::to_string(item.occurs->most);
  return item.occurs->isDepending ? std::to_string(item.occurs->least) + ".." + most : most;
}

std::string occursWithCounter(DataItem const& item) {
  std::string words = occursWords(item);
  if (item.occurs != nullptr && item.occurs->isDepending) {
    (words += " by ") += item.occurs->depending.name;
  }
  return words;
}

std::string literalWords(Literal const& literal) {
  std::string all = literal.isAll ? "ALL " : "";
  switch (literal.kind) {
    case Literal::Kind::zero:
      return all + "ZERO";
    case Literal::Kind::space:
      return all + "SPACE";
    case Literal::Kind::quote:
      return all + "QUOTE";
    case Literal::Kind::lowValue:
      return all + "LOW-VALUE";
    case Literal::Kind::highValue:
      return all + "HIGH-VALUE";
    case Literal::Kind::null:
      return all + "NULL";
    default:
      return all + std::string(literal.text);
  }
}

std::string valueWords(DataItem const& condition) {
  std::string words;
  for (compiler::ValueRange const& each : condition.values) {
    if (!words.empty()) words += ", ";
    words += literalWords(each.from);
    if (each.to.kind != Literal::Kind::none) words += " THRU " + literalWords(each.to);
  }
  return words;
}

std::string_view nameOf(Role role) {
  switch (role) {
    case Role::transparent:
      return "transparent";
    case Role::element:
      return "element";
    case Role::attribute:
      return "attribute";
    case Role::value:
      return "text";
    case Role::none:
      break;
  }
  return "none";
}

std::vector<std::uint32_t> depthsOf(record::RecordTree const& tree) {
  std::vector<std::uint32_t> depths;
  depths.reserve(tree.nodes().size());
  for (record::RecordNode const& node : tree.nodes()) {
    depths.push_back(node.parent == record::kNoNode ? 0 : depths[node.parent] + 1);
  }
  return depths;
}

std::span<ShownFinding const> findingsOf(SchemaView const& view, std::uint32_t node) {
  std::vector<ShownFinding> const& all = view.findings;
  auto first = std::ranges::lower_bound(all, node, {}, &ShownFinding::node);
  auto last = std::ranges::upper_bound(all, node, {}, &ShownFinding::node);
  return std::span(all).subspan(static_cast<std::size_t>(first - all.begin()),
                                static_cast<std::size_t>(last - first));
}

std::string byteWords(std::uint64_t count) {
  return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

}  // namespace fdmorph::show
