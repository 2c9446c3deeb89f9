// A list of rows of one height, of which only the visible ones are in the document.

const ROW_HEIGHT = 26; // pixels, as in base.css
const ROWS_BEYOND = 6;
const MAX_HEIGHT = 8000000; // pixels; browsers limit the height of an element

class VirtualList {
  // `handlers` has fill(element, row), isMarked(row), onFocus(row), onHover(row or
  // null), onOpen(row, isOpen), isOpen(row) (undefined if it does not fold),
  // onActivate(row) and onKey(event, row), which may be missing.
  constructor(viewport, handlers) {
    this.viewport = viewport;
    this.handlers = handlers;
    this.rows = [];
    this.elements = new Map();
    this.active = 0;
    this.spacer = make("div", "spacer");
    const isTree = viewport.getAttribute("role") === "tree";
    this.spacer.setAttribute("role", isTree ? "presentation" : "rowgroup");
    this.head = viewport.firstElementChild; // stays at the top; null if there is none
    viewport.append(this.spacer);
    viewport.addEventListener("scroll", () => this.render());
    viewport.addEventListener("keydown", (event) => this.onKey(event));
    viewport.addEventListener("focusin", (event) => this.onFocus(event));
    viewport.addEventListener("click", (event) => this.onClick(event));
    onPointerMove(viewport, (target) => {
      const index = this.indexOf(target);
      if (index >= 0) handlers.onHover(this.rows[index]);
    });
    viewport.addEventListener("pointerleave", () => handlers.onHover(null));
    new ResizeObserver(() => this.render()).observe(viewport);
  }

  // Shows other rows. The active row stays active if it is among them.
  setRows(rows) {
    const before = this.rows[this.active];
    const hasFocus = this.viewport.contains(document.activeElement);
    this.rows = rows;
    const found = before ? rows.findIndex((row) => isSameRow(row, before)) : -1;
    this.active = found >= 0 ? found : Math.min(this.active, Math.max(rows.length - 1, 0));
    this.firstRows = new Map();
    rows.forEach((row, index) => {
      if (!this.firstRows.has(row.item)) this.firstRows.set(row.item, index);
    });
    for (const element of this.elements.values()) element.remove();
    this.elements.clear();
    this.spacer.style.height = `${this.height()}px`;
    this.render();
    if (hasFocus) this.focus(this.active);
  }

  visibleHeight() {
    return this.viewport.clientHeight - (this.head ? this.head.offsetHeight : 0);
  }

  height() {
    return Math.min(this.rows.length * ROW_HEIGHT, MAX_HEIGHT);
  }

  // The pixels from the first row to the top of the view. They are those of the
  // scroll bar unless that is too short for all rows.
  top() {
    const all = this.rows.length * ROW_HEIGHT;
    if (all <= MAX_HEIGHT) return this.viewport.scrollTop;
    const visible = this.visibleHeight();
    return (this.viewport.scrollTop * (all - visible)) / (MAX_HEIGHT - visible);
  }

  render() {
    const top = this.top();
    const first = Math.max(0, Math.floor(top / ROW_HEIGHT) - ROWS_BEYOND);
    const count = Math.ceil(this.visibleHeight() / ROW_HEIGHT) + 2 * ROWS_BEYOND;
    const last = Math.min(this.rows.length, first + count);
    for (const [index, element] of this.elements) {
      const isFocused = element === document.activeElement;
      if ((index < first || index >= last) && !isFocused) {
        element.remove();
        this.elements.delete(index);
      }
    }
    for (let i = first; i < last; ++i) {
      if (!this.elements.has(i)) this.elements.set(i, this.makeElement(i));
    }
    for (const [index, element] of this.elements) {
      element.style.top = `${this.viewport.scrollTop + index * ROW_HEIGHT - top}px`;
    }
    this.renderState();
  }

  makeElement(index) {
    const row = this.rows[index];
    const element = make("div", "row");
    element.dataset.index = index;
    element.setAttribute("aria-level", row.depth + 1);
    this.handlers.fill(element, row, index);
    // Reading order is that of the rows.
    const next = [...this.spacer.children].find((each) => Number(each.dataset.index) > index);
    this.spacer.insertBefore(element, next || null);
    return element;
  }

  // Which rows are marked, and which one takes the focus: the active one, or the first
  // one in view if that is elsewhere.
  renderState() {
    const first = Math.ceil(this.top() / ROW_HEIGHT);
    const entry = this.elements.has(this.active) ? this.active : first;
    for (const [index, element] of this.elements) {
      element.tabIndex = index === entry ? 0 : -1;
      element.classList.toggle("marked", this.handlers.isMarked(this.rows[index], index));
    }
  }

  indexOf(target) {
    const element = target.closest("[data-index]");
    return element === null ? -1 : Number(element.dataset.index);
  }

  // The row of an item, or of the nearest group around it that has one; -1 if none.
  findRow(record, item, shift = 0) {
    if (shift > 0) {
      const exact = this.rows.findIndex((row) => row.item === item && row.shift === shift);
      if (exact >= 0) return exact;
    }
    for (let i = item; i >= 0; i = record.items[i].parent) {
      const index = this.firstRows.get(i);
      if (index !== undefined) return index;
    }
    return -1;
  }

  scrollTo(index) {
    const visible = this.visibleHeight();
    const top = this.top();
    const row = index * ROW_HEIGHT;
    if (row >= top && row + ROW_HEIGHT <= top + visible) return;
    const wanted = Math.max(0, row - Math.floor(visible / 3));
    const all = this.rows.length * ROW_HEIGHT;
    const scale = all <= MAX_HEIGHT ? 1 : (MAX_HEIGHT - visible) / (all - visible);
    this.viewport.scrollTop = wanted * scale;
    this.render();
  }

  // Makes a row the active one without moving the focus.
  activate(index) {
    if (index < 0 || index >= this.rows.length) return;
    this.active = index;
    this.scrollTo(index);
    this.renderState();
  }

  focus(index) {
    if (this.rows.length === 0) return;
    this.activate(Math.max(0, Math.min(index, this.rows.length - 1)));
    const element = this.elements.get(this.active);
    if (element) element.focus({ preventScroll: true });
  }

  onFocus(event) {
    const index = this.indexOf(event.target);
    if (index < 0) return;
    this.active = index;
    this.renderState();
    this.handlers.onFocus(this.rows[index]);
  }

  onClick(event) {
    const index = this.indexOf(event.target);
    if (index < 0) return;
    const row = this.rows[index];
    if (event.target.closest(".twist") && this.handlers.isOpen(row) !== undefined) {
      this.handlers.onOpen(row, !this.handlers.isOpen(row));
    } else if (event.target.closest(".act")) {
      this.handlers.onActivate(row);
    }
  }

  onKey(event) {
    if (event.ctrlKey || event.altKey || event.metaKey) return;
    const page = Math.max(1, Math.floor(this.visibleHeight() / ROW_HEIGHT) - 1);
    const steps = { ArrowDown: 1, ArrowUp: -1, PageDown: page, PageUp: -page };
    const row = this.rows[this.active];
    if (row === undefined) return;
    if (event.key in steps) {
      this.focus(this.active + steps[event.key]);
    } else if (event.key === "Home") {
      this.focus(0);
    } else if (event.key === "End") {
      this.focus(this.rows.length - 1);
    } else if (event.key === "ArrowRight") {
      this.stepIn(row);
    } else if (event.key === "ArrowLeft") {
      this.stepOut(row);
    } else if (event.key === "Enter" || event.key === " ") {
      this.handlers.onActivate(row);
    } else {
      return;
    }
    event.preventDefault();
  }

  stepIn(row) {
    if (this.handlers.isOpen(row) === false) {
      this.handlers.onOpen(row, true);
    } else if (this.rows[this.active + 1] && this.rows[this.active + 1].depth > row.depth) {
      this.focus(this.active + 1);
    }
  }

  stepOut(row) {
    if (this.handlers.isOpen(row) === true) {
      this.handlers.onOpen(row, false);
      return;
    }
    for (let i = this.active - 1; i >= 0; --i) {
      if (this.rows[i].depth < row.depth) {
        this.focus(i);
        return;
      }
    }
  }
}
