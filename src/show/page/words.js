// The properties of items in words.

const number = new Intl.NumberFormat("en");

function plural(count, word) {
  return `${number.format(count)} ${word}${count === 1 ? "" : "s"}`;
}

function occursWords(item) {
  if (!item.isTable) return "";
  const most = number.format(item.max);
  return item.min === item.max ? most : `${number.format(item.min)}..${most}`;
}

// What is said after the name of an item: which item it redefines, which occurrences
// are shown, and what is folded.
function remarkOn(record, row, folds, isFiltered) {
  const item = record.items[row.item];
  if (row.condition >= 0) return "";
  if (row.rest > 0) return "";
  const words = [];
  if (item.redefines >= 0 && row.occurrence === 0) {
    words.push(`redefines ${record.items[item.redefines].name}`);
  }
  const isOpen = isFiltered || folds.isOpen(row);
  if (record.isGroup(item) && !isOpen) {
    words.push(`folded, ${plural(item.end - item.index - 1, "item")}`);
  } else if (item.isTable && item.max > 1 && row.occurrence === 0) {
    const shown = isFiltered ? 0 : folds.occurrencesOf(row);
    if (shown === 0) words.push(`first of ${number.format(item.max)} shown`);
  }
  return words.join(" · ");
}

// The texts of a row of an item, by column.
function cellsOf(record, row) {
  const item = record.items[row.item];
  if (row.rest > 0) return { name: `${number.format(row.rest)} more occurrences` };
  if (row.condition >= 0) {
    const [name, values] = item.conditions[row.condition];
    return { level: "88", name, values };
  }
  const isOccurrence = row.occurrence > 0;
  return {
    level: isOccurrence ? "" : `${item.level}`.padStart(2, "0"),
    name: isOccurrence ? `${item.name} [${row.occurrence}]` : item.name,
    picture: item.picture,
    usage: item.storage,
    offset: number.format(item.offset + row.shift),
    length: number.format(item.length),
    occurs: isOccurrence ? "" : occursWords(item),
  };
}

function elementName(item) {
  return (item.role === "attribute" ? "@" : "") + item.xmlName;
}

// What is said after the name of an element.
function elementRemark(record, row, folds, isFiltered) {
  const item = record.items[row.item];
  const words = [];
  if (item.isTable) words.push(`${occursWords(item)} times`);
  if (item.type) words.push(item.type);
  if (!isFiltered && !folds.isOpen(row) && record.hasElementsBelow(row.item)) words.push("folded");
  return words.join(" · ");
}

// The namespace of an element if it is another than that around it.
function namespaceChange(record, item) {
  const outer = item.enclosing >= 0 ? record.items[item.enclosing].namespace : "";
  if (item.role === "attribute") return item.namespace;
  if (item.namespace === outer) return "";
  return item.namespace === "" ? "no namespace" : item.namespace;
}

// Calls `action` with the target when the pointer moves over `element`, but not when
// only the content moves under it.
function onPointerMove(element, action) {
  let last = "";
  element.addEventListener("pointermove", (event) => {
    const at = `${event.screenX} ${event.screenY}`;
    if (at !== last) action(event.target);
    last = at;
  });
}

function make(tag, className, text) {
  const element = document.createElement(tag);
  if (className) element.className = className;
  if (text !== undefined) element.textContent = text;
  return element;
}
