// The data of the page: the records and their items, in the order of the source.

const ROLES = ["none", "transparent", "element", "attribute", "text"];

// An item from the list of its fields; page_data.cpp documents their order.
function decodeItem(fields, index, data) {
  const [parent, level, name, picture, storage, offset, length, role] = fields;
  const [xmlName, namespace, file, line, more] = fields.slice(8);
  const [min, max, depending] = (more && more.occurs) || [1, 1, ""];
  return {
    index,
    parent,
    level,
    name,
    picture,
    storage: data.texts[storage],
    offset,
    length,
    role: ROLES[role],
    xmlName,
    namespace: data.texts[namespace],
    file: data.texts[file],
    line,
    min,
    max,
    depending,
    isTable: Boolean(more && more.occurs),
    lane: (more && more.lane) || 0,
    redefines: more && more.redefines !== undefined ? more.redefines : -1,
    countIn: (more && more.countIn) || "",
    isNumber: Boolean(more && more.number),
    conditions: (more && more.conditions) || [],
    type: more && more.type !== undefined ? data.texts[more.type] : "",
    findings: (more && more.findings) || [],
    end: index + 1,
    depth: 0,
    elementDepth: 0,
    enclosing: -1,
  };
}

// A record and the relations of its items. An item is known by its index; the items
// below it are those from the next index to its `end`.
class RecordModel {
  constructor(raw, data) {
    this.name = raw.name;
    this.length = raw.length;
    this.items = raw.items.map((fields, index) => decodeItem(fields, index, data));
    this.valueItems = new Map();
    this.paths = null;
    this.relate();
  }

  relate() {
    for (const item of this.items) {
      const parent = this.items[item.parent];
      if (parent === undefined) continue;
      item.depth = parent.depth + 1;
      item.enclosing = this.isNamed(parent) ? parent.index : parent.enclosing;
      if (item.enclosing >= 0) item.elementDepth = this.items[item.enclosing].elementDepth + 1;
      if (item.role === "text" && !this.valueItems.has(item.enclosing)) {
        this.valueItems.set(item.enclosing, item.index);
      }
    }
    for (let i = this.items.length - 1; i > 0; --i) {
      const { parent, end } = this.items[i];
      this.items[parent].end = Math.max(this.items[parent].end, end);
    }
    this.elementCount = this.items.filter((item) => this.isNamed(item)).length;
  }

  // Whether an item is an element or attribute by its own name.
  isNamed(item) {
    return item.role === "element" || item.role === "attribute";
  }

  isGroup(item) {
    return item.end > item.index + 1;
  }

  // The element or attribute that holds an item; -1 if it is in no document.
  elementOf(index) {
    const item = this.items[index];
    if (this.isNamed(item)) return index;
    return item.role === "text" ? item.enclosing : -1;
  }

  hasElementsBelow(index) {
    for (let i = index + 1; i < this.items[index].end; ++i) {
      if (this.isNamed(this.items[i])) return true;
    }
    return false;
  }

  dataPath(index) {
    const names = [];
    for (let i = index; i >= 0; i = this.items[i].parent) names.push(this.items[i].name);
    return names.reverse().join("/");
  }

  xmlPath(index) {
    const names = [];
    for (let i = this.elementOf(index); i >= 0; i = this.items[i].enclosing) {
      names.push((this.items[i].role === "attribute" ? "@" : "") + this.items[i].xmlName);
    }
    return names.reverse().join("/");
  }

  // The items of the smallest area with several views that an item belongs to: the
  // first is the redefined one. Empty if there is none.
  viewsAround(index) {
    for (let i = index; i >= 0; i = this.items[i].parent) {
      const views = this.viewsOf(i);
      if (views.length > 1) return views;
    }
    return [];
  }

  viewsOf(index) {
    if (this.areas === undefined) this.findAreas();
    const area = this.areaOf(index);
    return this.areas.get(area) || [];
  }

  areaOf(index) {
    let area = index;
    while (this.items[area].redefines >= 0) area = this.items[area].redefines;
    return area;
  }

  findAreas() {
    this.areas = new Map();
    for (const item of this.items) {
      if (item.redefines < 0) continue;
      const area = this.areaOf(item.index);
      if (!this.areas.has(area)) this.areas.set(area, [area]);
      this.areas.get(area).push(item.index);
    }
  }
}
