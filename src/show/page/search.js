// The search: items by data name, XML name, picture, path and names of conditions.

// For each item 2 if it is found, 1 if an item below it is, else 0; null if nothing
// is searched. Paths are searched only for words with a slash.
function findItems(record, words) {
  const wanted = words.trim().toLowerCase();
  if (wanted === "") return null;
  const found = new Uint8Array(record.items.length);
  const isFound = wanted.includes("/") ? pathFilter(record, wanted) : nameFilter(wanted);
  for (let i = record.items.length - 1; i >= 0; --i) {
    const item = record.items[i];
    if (isFound(item)) found[i] = 2;
    if (found[i] > 0 && item.parent >= 0 && found[item.parent] === 0) found[item.parent] = 1;
  }
  return found;
}

function nameFilter(wanted) {
  const has = (text) => text.toLowerCase().includes(wanted);
  return (item) =>
    has(item.name) ||
    has(item.xmlName) ||
    has(item.picture) ||
    (wanted === "@" + item.xmlName.toLowerCase() && item.role === "attribute") ||
    item.conditions.some(([name]) => has(name));
}

// A path is that of the item around it and a name, so each is made once.
function pathFilter(record, wanted) {
  if (record.paths === null) {
    record.paths = [];
    for (const item of record.items) {
      const outer = record.paths[item.parent] || { data: "", xml: "" };
      const data = (item.parent < 0 ? "" : outer.data + "/") + item.name.toLowerCase();
      let xml = outer.xml;
      if (record.isNamed(item)) {
        xml += (xml === "" ? "" : "/") + elementName(item).toLowerCase();
      }
      record.paths.push({ data, xml });
    }
  }
  return (item) => {
    const { data, xml } = record.paths[item.index];
    return data.includes(wanted) || (record.elementOf(item.index) >= 0 && xml.includes(wanted));
  };
}

function countFound(found) {
  let count = 0;
  for (const each of found) if (each === 2) ++count;
  return count;
}
