// The visible rows of the two lists.

const OCCURRENCES_AT_ONCE = 1000;

// What is folded. Groups are open and tables show their first occurrence unless the
// user says otherwise. A row is known by its item and by the bytes by which its
// occurrence is shifted.
class Folds {
  constructor() {
    this.changed = new Set();
    this.shownOccurrences = new Map();
    this.isFolded = false;
  }

  static keyOf(row) {
    return `${row.item}@${row.shift}${row.occurrence > 0 ? "#" : ""}`;
  }

  isOpen(row) {
    const isOpenAtFirst = this.isFolded ? row.depth === 0 : row.occurrence <= 1;
    return isOpenAtFirst !== this.changed.has(Folds.keyOf(row));
  }

  setOpen(row, isOpen) {
    if (this.isOpen(row) === isOpen) return;
    const key = Folds.keyOf(row);
    if (!this.changed.delete(key)) this.changed.add(key);
  }

  // All groups at once.
  setAll(isOpen) {
    this.changed.clear();
    if (!isOpen) this.shownOccurrences.clear();
    this.isFolded = !isOpen;
  }

  // The number of occurrences of a table that are rows; 0 if it is folded.
  occurrencesOf(row) {
    return this.shownOccurrences.get(Folds.keyOf(row)) || 0;
  }

  showOccurrences(row, count) {
    if (count > 0) {
      this.shownOccurrences.set(Folds.keyOf(row), count);
    } else {
      this.shownOccurrences.delete(Folds.keyOf(row));
    }
  }
}

// Makes the rows of the items. With `matches`, only marked items are rows, and all
// of them are open.
class ItemRows {
  constructor(record, folds, matches) {
    this.items = record.items;
    this.folds = folds;
    this.matches = matches;
    this.rows = [];
  }

  build() {
    this.addItem(0, 0, 0);
    return this.rows;
  }

  push(item, shift, depth, occurrence = 0, condition = -1, rest = 0) {
    const row = { item, shift, depth, occurrence, condition, rest };
    this.rows.push(row);
    return row;
  }

  addItem(index, shift, depth) {
    if (this.matches && this.matches[index] === 0) return;
    const row = this.push(index, shift, depth);
    const item = this.items[index];
    item.conditions.forEach((_, i) => this.push(index, shift, depth + 1, 0, i));
    if (!this.matches && !this.folds.isOpen(row)) return;
    const shown = item.isTable && !this.matches ? this.folds.occurrencesOf(row) : 0;
    if (shown > 0) {
      this.addOccurrences(item, shown, shift, depth + 1);
    } else {
      this.addParts(index, shift, depth + 1);
    }
  }

  addParts(index, shift, depth) {
    const end = this.items[index].end;
    for (let i = index + 1; i < end; i = this.items[i].end) this.addItem(i, shift, depth);
  }

  addOccurrences(item, shown, shift, depth) {
    const count = Math.min(shown, item.max);
    for (let i = 0; i < count; ++i) {
      const row = this.push(item.index, shift + i * item.length, depth, i + 1);
      if (item.end > item.index + 1 && this.folds.isOpen(row)) {
        this.addParts(item.index, row.shift, depth + 1);
      }
    }
    if (count < item.max) this.push(item.index, shift, depth, 0, -1, item.max - count);
  }
}

const NO_ROW = { item: 0, shift: 0, depth: 0, occurrence: 0, condition: -1, rest: 0 };

// The rows of the elements and attributes.
function elementRows(record, folds, matches) {
  const rows = [];
  for (let i = 0; i < record.items.length; ) {
    const item = record.items[i];
    if (!record.isNamed(item)) {
      ++i;
      continue;
    }
    if (matches && matches[i] === 0) {
      i = item.end;
      continue;
    }
    const row = { ...NO_ROW, item: i, depth: item.elementDepth };
    rows.push(row);
    i = matches || folds.isOpen(row) ? i + 1 : item.end;
  }
  return rows;
}

function isSameRow(left, right) {
  return (
    left.item === right.item &&
    left.shift === right.shift &&
    left.occurrence === right.occurrence &&
    left.condition === right.condition &&
    left.rest > 0 === right.rest > 0
  );
}
