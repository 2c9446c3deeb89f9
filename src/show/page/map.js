// The record as nested boxes in scale.

const NARROW = 22; // pixels; narrower boxes have no text

class MapView {
  // `handlers` has onFocus(item, shift) and onHover(item or -1, shift).
  constructor(map, ruler, crumbs, handlers) {
    this.map = map;
    this.ruler = ruler;
    this.crumbs = crumbs;
    this.handlers = handlers;
    this.boxes = [];
    this.elements = [];
    this.active = 0;
    map.addEventListener("keydown", (event) => this.onKey(event));
    map.addEventListener("dblclick", (event) => this.onZoom(event));
    map.addEventListener("focusin", (event) => this.onFocus(event));
    onPointerMove(map, (target) => {
      const box = this.boxAt(target);
      if (box) handlers.onHover(box.kind === "run" ? box.first : box.item, box.shift);
    });
    map.addEventListener("pointerleave", () => handlers.onHover(-1, 0));
    new ResizeObserver(() => this.resize()).observe(map);
  }

  setRecord(record, folds) {
    this.record = record;
    this.folds = folds;
    this.show(this.partOf(0, 0, false));
  }

  partOf(index, shift, isOccurrence) {
    const item = this.record.items[index];
    const from = item.offset + shift;
    const to = from + item.length * (isOccurrence ? 1 : item.max);
    return { item: index, shift, from, to, isOccurrence };
  }

  show(part) {
    this.part = part;
    this.active = 0;
    this.render();
    this.renderCrumbs();
  }

  resize() {
    if (this.record && this.map.clientWidth !== this.width) this.render();
  }

  render() {
    const hadFocus = this.map.contains(document.activeElement);
    const width = this.map.clientWidth;
    this.width = width;
    const layout = new BoxLayout(this.record, this.folds, this.part, Math.max(width, 100));
    const { boxes, height } = layout.build();
    this.boxes = boxes;
    this.active = Math.min(this.active, Math.max(0, boxes.length - 1));
    this.map.style.height = `${height}px`;
    this.elements = boxes.map((box, index) => this.makeElement(box, index));
    this.map.replaceChildren(...this.elements);
    this.renderRuler();
    this.renderState();
    if (hadFocus && this.elements[this.active]) this.elements[this.active].focus();
  }

  makeElement(box, index) {
    const item = this.record.items[box.item];
    const length = this.part.to - this.part.from;
    const element = make("div", `box ${this.classOf(box, item)}`);
    element.style.left = `${(100 * (box.from - this.part.from)) / length}%`;
    element.style.width = `${(100 * (box.to - box.from)) / length}%`;
    element.style.top = `${box.top}px`;
    element.style.height = `${box.height}px`;
    const pixels = ((box.to - box.from) * this.width) / length;
    if (pixels < NARROW) element.classList.add("narrow");
    element.dataset.box = index;
    element.setAttribute("role", "treeitem");
    element.setAttribute("aria-level", box.level + 1);
    const title = this.titleOf(box, item);
    const range = `offset ${box.from}, ${plural(box.to - box.from, "byte")}`;
    element.setAttribute("aria-label", `${title}, ${range}`);
    element.title = `${title}\n${range}`;
    element.append(make("span", "box-name", title));
    if (box.kind === "item" && item.picture) {
      element.append(make("span", "box-picture", item.picture));
    }
    return element;
  }

  classOf(box, item) {
    if (box.kind === "run" || box.kind === "folded") return box.kind;
    const classes = [];
    if (item.end > item.index + 1) {
      classes.push("group");
    } else if (this.record.elementOf(item.index) < 0) {
      classes.push("outside");
    } else {
      classes.push(item.isNumber ? "number" : "text");
    }
    if (item.lane > 0 && box.kind === "item") classes.push("view");
    if (box.kind === "occurrence") classes.push("occurrence");
    return classes.join(" ");
  }

  titleOf(box, item) {
    if (box.kind === "run") return this.titleOfRun(box);
    if (box.kind === "folded") return `${number.format(box.count)} more, folded`;
    if (box.kind === "occurrence") return `${item.name} [${box.occurrence}]`;
    let title = item.name;
    if (item.isTable && !(this.part.isOccurrence && box.level === 0)) title += ` × ${item.max}`;
    if (item.redefines >= 0) title += ` redefines ${this.record.items[item.redefines].name}`;
    return title;
  }

  titleOfRun(box) {
    const first = this.record.items[box.first].name;
    if (!box.isOccurrence) return `${first}, ${plural(box.count, "occurrence")}`;
    if (box.count === 1) return first;
    return `${first} to ${this.record.items[box.last].name}, ${plural(box.count, "item")}`;
  }

  renderRuler() {
    const length = this.part.to - this.part.from;
    const marks = Math.max(2, Math.floor(this.width / 80));
    let step = 1;
    for (let i = 0; length / step > marks; ++i) step *= i % 3 === 1 ? 2.5 : 2;
    const ticks = [];
    for (let at = Math.ceil(this.part.from / step) * step; at < this.part.to; at += step) {
      const tick = make("span", "tick", number.format(at));
      tick.style.left = `${(100 * (at - this.part.from)) / length}%`;
      if ((this.part.to - at) / length > 64 / this.width) ticks.push(tick);
    }
    this.ruler.replaceChildren(...ticks);
  }

  // The groups around the part that is shown, each of which can be shown.
  renderCrumbs() {
    const chain = [];
    for (let i = this.part.item; i >= 0; i = this.record.items[i].parent) chain.unshift(i);
    const links = chain.map((index) => {
      const button = make("button", "crumb", this.record.items[index].name);
      button.type = "button";
      button.addEventListener("click", () => {
        this.show(this.partOf(index, index === 0 ? 0 : this.part.shift, false));
        this.elements[0].focus();
      });
      return button;
    });
    const { from, to } = this.part;
    const range = make("span", "range", `bytes ${number.format(from)} to ${number.format(to - 1)}`);
    this.crumbs.replaceChildren(...links, ...(to > from ? [range] : []));
  }

  boxAt(target) {
    const element = target.closest("[data-box]");
    return element === null ? null : this.boxes[Number(element.dataset.box)];
  }

  // Marks an item, or the nearest group around it that has a box.
  mark(item, shift) {
    this.marked = item < 0 ? -1 : this.findBox(item, shift);
    this.renderState();
  }

  findBox(item, shift) {
    const { items } = this.record;
    const start = items[item].offset + shift;
    const isRunWith = (box) =>
      box.kind === "run" &&
      box.first <= item &&
      item < items[box.last].end &&
      box.from <= start &&
      start < box.to;
    const run = this.boxes.findIndex(isRunWith);
    if (run >= 0) return run;
    for (let i = item; i >= 0; i = items[i].parent) {
      let found = -1;
      this.boxes.forEach((box, index) => {
        if (box.item !== i || box.kind === "run" || box.kind === "folded") return;
        if (box.shift === shift || found < 0) found = index;
      });
      if (found >= 0) return found;
    }
    return -1;
  }

  // Shows a group, or the one around an elementary item, over the whole width.
  enlarge(item, shift) {
    const { items } = this.record;
    const group = this.record.isGroup(items[item]) ? item : Math.max(0, items[item].parent);
    this.show(this.partOf(group, shift, items[group].isTable));
    this.mark(item, shift);
  }

  renderState() {
    this.elements.forEach((element, index) => {
      element.tabIndex = index === this.active ? 0 : -1;
      element.classList.toggle("marked", index === this.marked);
    });
  }

  onFocus(event) {
    const box = this.boxAt(event.target);
    if (!box) return;
    this.active = this.boxes.indexOf(box);
    this.renderState();
    this.handlers.onFocus(box.kind === "run" ? box.first : box.item, box.shift);
  }

  onZoom(event) {
    const box = this.boxAt(event.target);
    if (box) this.zoom(box);
  }

  // Shows a box over the whole width; what has no parts stays as it is.
  zoom(box) {
    if (box.kind === "folded") return;
    const { item, shift, from, to } = box;
    if (box.kind === "run") {
      if (from === this.part.from && to === this.part.to) return;
      const isOccurrence = box.isOccurrence && this.record.items[item].isTable;
      this.show({ item, shift, from, to, isOccurrence });
    } else if (this.record.items[item].end > item + 1) {
      this.show(this.partOf(item, shift, box.kind === "occurrence"));
    } else {
      return;
    }
    this.elements[0].focus();
  }

  zoomOut() {
    const { parent } = this.record.items[this.part.item];
    const whole = this.partOf(this.part.item, this.part.shift, false);
    const isPart = whole.from !== this.part.from || whole.to !== this.part.to;
    if (!isPart && parent < 0) return;
    const outer = isPart ? this.part.item : parent;
    this.show(this.partOf(outer, outer === 0 ? 0 : this.part.shift, false));
    this.elements[0].focus();
  }

  onKey(event) {
    if (event.ctrlKey || event.altKey || event.metaKey) return;
    const box = this.boxes[this.active];
    if (box === undefined) return;
    const moves = {
      ArrowUp: () => this.focusBox(box.parent),
      ArrowDown: () => this.focusBox(this.boxes.findIndex((each) => each.parent === this.active)),
      ArrowRight: () => this.focusBox(this.neighbour(box, 1)),
      ArrowLeft: () => this.focusBox(this.neighbour(box, -1)),
      Home: () => this.focusBox(0),
      Enter: () => this.zoom(box),
      " ": () => this.zoom(box),
      Escape: () => this.zoomOut(),
      Backspace: () => this.zoomOut(),
    };
    if (!(event.key in moves)) return;
    moves[event.key]();
    event.preventDefault();
  }

  neighbour(box, step) {
    for (let i = this.active + step; i >= 0 && i < this.boxes.length; i += step) {
      if (this.boxes[i].parent === box.parent) return i;
    }
    return -1;
  }

  focusBox(index) {
    if (index >= 0) this.elements[index].focus();
  }
}
