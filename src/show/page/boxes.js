// The boxes of a record in scale: their places, without the document.

const LEAF_HEIGHT = 38; // pixels
const TITLE_HEIGHT = 20;
const GAP = 3;
const MIN_WIDTH = 3; // of a box of its own; narrower neighbours become one box
const MAX_RUN_WIDTH = 40; // of such a box, so that it can be enlarged

// Computes the boxes of a part of a record. `part` is { item, shift, from, to }: the
// group whose boxes are wanted, and the first byte and the byte after the last one.
// A box is { item, shift, occurrence, kind, from, to, top, height, level, parent }
// with kind "item", "occurrence", "folded" (further occurrences) or "run" (the items
// or occurrences from `first` to `last` that are too narrow; `count` of them).
class BoxLayout {
  constructor(record, folds, part, width) {
    this.items = record.items;
    this.folds = folds;
    this.part = part;
    this.scale = width / Math.max(1, part.to - part.from);
  }

  build() {
    const root = this.makeItem(this.part.item, this.part.shift, this.part.isOccurrence);
    if (root === null) return { boxes: [], height: 0 };
    const boxes = [];
    this.flatten(root, 0, 0, -1, boxes);
    return { boxes, height: root.height };
  }

  flatten(box, top, level, parent, boxes) {
    box.top = top + (box.inset || 0);
    box.level = level;
    box.parent = parent;
    const index = boxes.push(box) - 1;
    for (const part of box.parts) this.flatten(part, box.top, level + 1, index, boxes);
    box.parts = null;
  }

  // A box clipped to the part that is shown; null if it is outside.
  clipped(fields, from, to) {
    const left = Math.max(from, this.part.from);
    const right = Math.min(to, this.part.to);
    if (left >= right) return null;
    const place = { from: left, to: right, height: LEAF_HEIGHT };
    return { occurrence: 0, count: 0, ...fields, ...place, parts: [] };
  }

  isNarrow(from, to) {
    const left = Math.max(from, this.part.from);
    const right = Math.min(to, this.part.to);
    return (right - left) * this.scale < MIN_WIDTH;
  }

  makeItem(index, shift, isOccurrence = false) {
    const item = this.items[index];
    const from = item.offset + shift;
    if (isOccurrence) return this.makeOccurrence(item, shift, 1, from, "item");
    const fields = { item: index, shift, kind: "item" };
    const box = this.clipped(fields, from, from + item.length * item.max);
    if (box === null) return null;
    if (item.isTable && item.max > 1) {
      this.addOccurrences(box, item, shift);
    } else if (item.end > index + 1) {
      this.addParts(box, index, shift);
    }
    return box;
  }

  makeOccurrence(item, shift, occurrence, from, kind = "occurrence") {
    const fields = { item: item.index, shift, occurrence, kind };
    const box = this.clipped(fields, from, from + item.length);
    if (box !== null && item.end > item.index + 1) this.addParts(box, item.index, shift);
    return box;
  }

  addOccurrences(box, item, shift) {
    const row = { item: item.index, shift, occurrence: 0 };
    const shown = Math.min(Math.max(1, this.folds.occurrencesOf(row)), item.max);
    const lane = new Lane(this, item.index, shift, false);
    const begin = item.offset + shift;
    const skipped = Math.max(0, Math.floor((this.part.from - begin) / Math.max(1, item.length)));
    for (let i = skipped; i < shown; ++i) {
      const from = begin + i * item.length;
      if (from >= this.part.to) break;
      if (this.isNarrow(from, from + item.length)) {
        lane.addNarrow(from, from + item.length, item.index);
      } else {
        lane.add(this.makeOccurrence(item, shift + i * item.length, i + 1, from));
      }
    }
    lane.endRun();
    const rest = begin + shown * item.length;
    const fields = { item: item.index, shift, kind: "folded", count: item.max - shown };
    if (shown < item.max) {
      lane.add(this.clipped(fields, rest, begin + item.max * item.length));
    }
    this.stack(box, [lane]);
  }

  addParts(box, index, shift) {
    const lanes = [];
    const end = this.items[index].end;
    for (let i = index + 1; i < end; i = this.items[i].end) {
      const item = this.items[i];
      const from = item.offset + shift;
      const to = from + item.length * item.max;
      if (to <= this.part.from || from >= this.part.to) continue;
      while (lanes.length <= item.lane) lanes.push(new Lane(this, index, shift, true));
      if (this.isNarrow(from, to)) {
        lanes[item.lane].addNarrow(from, to, i);
      } else {
        lanes[item.lane].add(this.makeItem(i, shift));
      }
    }
    lanes.forEach((lane) => lane.endRun());
    this.stack(box, lanes);
  }

  // Puts lanes below the title of a box, one below the other.
  stack(box, lanes) {
    let top = TITLE_HEIGHT;
    for (const lane of lanes) {
      if (lane.boxes.length === 0) continue;
      const height = Math.max(...lane.boxes.map((each) => each.height));
      for (const each of lane.boxes) {
        each.inset = top;
        if (each.parts.length === 0) each.height = height;
      }
      box.parts.push(...lane.boxes);
      top += height + GAP;
    }
    box.height = Math.max(LEAF_HEIGHT, top);
  }
}

// Boxes that do not overlap. Redefinitions have lanes of their own.
class Lane {
  constructor(layout, group, shift, isOccurrence) {
    this.layout = layout;
    this.group = group;
    this.shift = shift;
    this.isOccurrence = isOccurrence; // the lane has parts of the group, not its occurrences
    this.boxes = [];
    this.run = null;
  }

  add(box) {
    if (box === null) return;
    this.endRun();
    this.boxes.push(box);
  }

  addNarrow(from, to, item) {
    if (this.run === null) this.run = { from, to, first: item, last: item, count: 0 };
    this.run.to = Math.max(this.run.to, to);
    this.run.last = item;
    this.run.count += 1;
    if ((this.run.to - this.run.from) * this.layout.scale >= MAX_RUN_WIDTH) this.endRun();
  }

  endRun() {
    if (this.run === null) return;
    const { from, to, ...names } = this.run;
    this.run = null;
    const { group: item, shift, isOccurrence } = this;
    const fields = { item, shift, isOccurrence, kind: "run", ...names };
    const box = this.layout.clipped(fields, from, to);
    if (box !== null) this.boxes.push(box);
  }
}
