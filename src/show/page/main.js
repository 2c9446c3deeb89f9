// The page: its state, and what changes it.

const WIDE_INDENTS = 8; // levels; deeper ones are indented less

function indentOf(depth) {
  return Math.min(depth, WIDE_INDENTS) * 14 + Math.max(0, depth - WIDE_INDENTS) * 3;
}

const byId = (id) => document.getElementById(id);
const data = JSON.parse(byId("data").textContent);
const records = new Map();

// What is shown now. `focus` is the item that the user chose, `hover` the one under
// the pointer; both are { item, shift, from }, `from` being the view.
const view = {
  record: null,
  folds: new Folds(),
  treeFolds: new Folds(),
  matches: null,
  itemRows: [],
  elementRows: [],
  focus: { item: 0, shift: 0, from: "" },
  hover: null,
};

const isFiltered = () => view.matches !== null;

function isRowOpen(row) {
  const item = view.record.items[row.item];
  if (isFiltered() || row.condition >= 0 || row.rest > 0) return undefined;
  const isUnfolded = row.occurrence === 0 && view.folds.occurrencesOf(row) > 0;
  const canFold = view.record.isGroup(item) || isUnfolded;
  return canFold ? view.folds.isOpen(row) : undefined;
}

function isElementOpen(row) {
  if (isFiltered() || !view.record.hasElementsBelow(row.item)) return undefined;
  return view.treeFolds.isOpen(row);
}

function fillTwist(cell, row, isOpen) {
  const twist = make("span", "twist", isOpen === undefined ? "" : isOpen ? "▾" : "▸");
  twist.setAttribute("aria-hidden", "true");
  cell.append(twist);
}

function fillItemRow(element, row, index) {
  const cells = cellsOf(view.record, row);
  const item = view.record.items[row.item];
  const isOpen = isRowOpen(row);
  element.setAttribute("role", "row");
  element.setAttribute("aria-rowindex", index + 2);
  if (isOpen !== undefined) element.setAttribute("aria-expanded", isOpen);
  if (row.condition >= 0) element.classList.add("condition");
  if (view.matches && view.matches[row.item] === 1) element.classList.add("around");
  if (view.record.elementOf(row.item) < 0 && row.condition < 0) element.classList.add("outside");
  element.append(gridCell("c-level", cells.level || ""));
  const name = gridCell("c-name", "");
  name.style.paddingLeft = `min(${indentOf(row.depth)}px, 45%)`;
  fillTwist(name, row, isOpen);
  name.append(make("span", row.rest > 0 ? "more act" : "name", cells.name));
  name.title = cells.name;
  if (item.findings.length > 0 && row.condition < 0) name.append(findingBadge(item));
  const remark = remarkOn(view.record, row, view.folds, isFiltered());
  if (remark) name.append(make("span", "remark", remark));
  fillOccurrenceButton(name, row, item);
  element.append(name);
  if (row.condition >= 0) {
    const values = gridCell("c-values", cells.values);
    values.title = cells.values;
    element.append(values);
    return;
  }
  for (const column of ["picture", "usage", "offset", "length", "occurs"]) {
    const cell = gridCell(`c-${column}`, cells[column] || "");
    cell.title = cells[column] || "";
    element.append(cell);
  }
}

function gridCell(className, text) {
  const cell = make("span", className, text);
  cell.setAttribute("role", "gridcell");
  return cell;
}

// The button that shows the occurrences of a table or folds them.
function fillOccurrenceButton(cell, row, item) {
  const isWhole = item.isTable && item.max > 1 && row.occurrence === 0 && row.condition < 0;
  if (!isWhole || row.rest > 0 || isFiltered()) return;
  const isShown = view.folds.occurrencesOf(row) > 0;
  const button = make("span", "act occurrences", isShown ? "fold" : "unfold");
  button.title = isShown ? "Show the first occurrence (space)" : "Show all occurrences (space)";
  cell.append(button);
}

function findingBadge(item) {
  const isError = item.findings.some(([severity]) => severity === "error");
  const badge = make("span", `badge ${isError ? "error" : "note"}`, `${item.findings.length}`);
  badge.title = plural(item.findings.length, "finding");
  return badge;
}

function fillElementRow(element, row) {
  const item = view.record.items[row.item];
  const isOpen = isElementOpen(row);
  element.setAttribute("role", "treeitem");
  if (isOpen !== undefined) element.setAttribute("aria-expanded", isOpen);
  if (view.matches && view.matches[row.item] === 1) element.classList.add("around");
  const name = make("span", "c-name");
  name.style.paddingLeft = `min(${indentOf(row.depth)}px, 60%)`;
  fillTwist(name, row, isOpen);
  name.append(make("span", `name ${item.role}`, elementName(item)));
  const remark = elementRemark(view.record, row, view.treeFolds, isFiltered());
  if (item.findings.length > 0) name.append(findingBadge(item));
  if (remark) name.append(make("span", "remark", remark));
  const namespace = namespaceChange(view.record, item);
  if (namespace) name.append(make("span", "namespace", namespace));
  name.title = view.record.xmlPath(row.item);
  element.append(name);
}

// The element or attribute that is marked together with an item.
function markedElement(at) {
  return view.record.elementOf(at.item);
}

const itemList = new VirtualList(byId("items-rows"), {
  fill: fillItemRow,
  isMarked: (row, index) => index === view.markedRow || isRowOf(row, view.hover || view.focus),
  isOpen: isRowOpen,
  onFocus: (row) => setFocus(row.item, row.shift, "items"),
  onHover: (row) => setHover(row && { item: row.item, shift: row.shift, from: "items" }),
  onOpen: (row, isOpen) => {
    view.folds.setOpen(row, isOpen);
    refresh();
  },
  onActivate: toggleOccurrences,
});

const treeList = new VirtualList(byId("tree-rows"), {
  fill: fillElementRow,
  isMarked: (row, index) => index === view.markedElementRow,
  isOpen: isElementOpen,
  onFocus: (row) => setFocus(row.item, 0, "tree"),
  onHover: (row) => setHover(row && { item: row.item, shift: 0, from: "tree" }),
  onOpen: (row, isOpen) => {
    view.treeFolds.setOpen(row, isOpen);
    refresh();
  },
  onActivate: (row) => {
    const isOpen = isElementOpen(row);
    if (isOpen !== undefined) view.treeFolds.setOpen(row, !isOpen);
    refresh();
  },
});

const mapView = new MapView(byId("map"), byId("ruler"), byId("crumbs"), {
  onFocus: (item, shift) => setFocus(item, shift, "map"),
  onHover: (item, shift) => setHover(item < 0 ? null : { item, shift, from: "map" }),
});

// Rows of the same item in the same place; the text of an element is marked with it.
function isRowOf(row, at) {
  if (row.condition >= 0 || row.rest > 0) return false;
  if (row.item === at.item) return row.shift === at.shift;
  return at.from === "tree" && row.item === view.record.valueItems.get(at.item);
}

function toggleOccurrences(row) {
  const item = view.record.items[row.item];
  if (isFiltered() || row.condition >= 0) return;
  if (row.rest > 0) {
    const table = { item: row.item, shift: row.shift, occurrence: 0 };
    view.folds.showOccurrences(table, view.folds.occurrencesOf(table) + OCCURRENCES_AT_ONCE);
  } else if (item.isTable && item.max > 1 && row.occurrence === 0) {
    view.folds.showOccurrences(row, view.folds.occurrencesOf(row) > 0 ? 0 : OCCURRENCES_AT_ONCE);
    view.folds.setOpen(row, true);
  } else if (isRowOpen(row) !== undefined) {
    view.folds.setOpen(row, !isRowOpen(row));
  }
  refresh();
}

function setFocus(item, shift, from) {
  view.focus = { item, shift, from };
  view.hover = null;
  mark();
  renderDetails(byId("details"), view.record, item, shift);
}

function setHover(at) {
  view.hover = at;
  mark();
}

// Marks the same item in all views. Views other than the one that the user works in
// scroll to it.
function mark() {
  const at = view.hover || view.focus;
  const element = markedElement(at);
  view.markedRow = itemList.findRow(view.record, at.item, at.shift);
  view.markedElementRow = element < 0 ? -1 : treeList.findRow(view.record, element);
  if (at.from !== "items" && view.markedRow >= 0) itemList.scrollTo(view.markedRow);
  if (at.from !== "tree" && view.markedElementRow >= 0) treeList.scrollTo(view.markedElementRow);
  itemList.renderState();
  treeList.renderState();
  mapView.mark(at.item, at.shift);
}

// Makes the rows again after a change of what is folded or found.
function refresh() {
  const { record, folds, treeFolds, matches } = view;
  view.itemRows = new ItemRows(record, folds, matches).build();
  view.elementRows = elementRows(record, treeFolds, matches);
  itemList.setRows(view.itemRows);
  treeList.setRows(view.elementRows);
  byId("items").setAttribute("aria-rowcount", view.itemRows.length + 1);
  byId("items-count").textContent = plural(record.items.length, "item");
  byId("tree-count").textContent =
    `${number.format(record.elementCount)} elements and attributes`;
  mapView.render();
  mark();
}

function showRecord(index) {
  if (!records.has(index)) records.set(index, new RecordModel(data.records[index], data));
  view.record = records.get(index);
  view.folds = new Folds();
  view.treeFolds = new Folds();
  view.matches = findItems(view.record, byId("search").value);
  view.focus = { item: 0, shift: 0, from: "" };
  view.hover = null;
  byId("record-name").textContent = view.record.name;
  document.title = `${view.record.name} - fdrec`;
  renderFacts();
  mapView.setRecord(view.record, view.folds);
  refresh();
  renderDetails(byId("details"), view.record, 0, 0);
  [...byId("records").children].forEach((tab, i) => {
    tab.setAttribute("aria-selected", i === index);
    tab.tabIndex = i === index ? 0 : -1;
  });
}

function renderFacts() {
  const facts = [
    ["Length", plural(view.record.length, "byte")],
    ["Dialect", data.dialect],
    ["Encoding", data.encoding + (data.remark ? ` (${data.remark})` : "")],
    ["Source", data.file],
    ...(data.schema ? [["Schema", data.schema]] : []),
  ];
  byId("facts").replaceChildren(
    ...facts.map(([term, text]) => {
      const fact = make("div");
      fact.append(make("dt", "", term), make("dd", "", text));
      return fact;
    }),
  );
}

function makeTabs() {
  const tabs = byId("records");
  tabs.hidden = data.records.length < 2;
  data.records.forEach((raw, index) => {
    const tab = make("button", "tab", raw.name);
    tab.type = "button";
    tab.setAttribute("role", "tab");
    tab.addEventListener("click", () => showRecord(index));
    tabs.append(tab);
  });
  tabs.addEventListener("keydown", (event) => {
    const step = { ArrowRight: 1, ArrowLeft: -1 }[event.key];
    if (step === undefined) return;
    const at = [...tabs.children].indexOf(document.activeElement);
    const next = (at + step + tabs.children.length) % tabs.children.length;
    showRecord(next);
    tabs.children[next].focus();
  });
}

function search() {
  view.matches = findItems(view.record, byId("search").value);
  const count = view.matches ? countFound(view.matches) : 0;
  byId("found").textContent = view.matches ? `${plural(count, "item")} found` : "";
  refresh();
  if (view.matches && count > 0) {
    const first = view.matches.indexOf(2);
    view.focus = { item: first, shift: 0, from: "" };
    renderDetails(byId("details"), view.record, first, 0);
    mark();
  }
}

function connectTools() {
  let timer = 0;
  const input = byId("search");
  input.addEventListener("input", () => {
    clearTimeout(timer);
    timer = setTimeout(search, 120);
  });
  input.addEventListener("keydown", (event) => {
    if (event.key === "Escape" && input.value !== "") {
      input.value = "";
      search();
      event.preventDefault();
    } else if (event.key === "Enter" || event.key === "ArrowDown") {
      clearTimeout(timer);
      search();
      itemList.focus(Math.max(0, itemList.findRow(view.record, view.focus.item)));
      event.preventDefault();
    }
  });
  document.addEventListener("keydown", (event) => {
    if (event.key !== "/" || event.target instanceof HTMLInputElement) return;
    input.focus();
    input.select();
    event.preventDefault();
  });
  const setAll = (isOpen) => {
    view.folds.setAll(isOpen);
    view.treeFolds.setAll(isOpen);
    refresh();
  };
  byId("fold-all").addEventListener("click", () => setAll(false));
  byId("open-all").addEventListener("click", () => setAll(true));
  byId("theme").addEventListener("change", (event) => {
    document.documentElement.dataset.theme = event.target.value;
  });
  byId("enlarge").addEventListener("click", () => {
    mapView.enlarge(view.focus.item, view.focus.shift);
  });
  byId("print").addEventListener("click", () => window.print());
  window.addEventListener("beforeprint", () => renderPrintCopy(byId("print-copy"), view));
  window.addEventListener("afterprint", () => byId("print-copy").replaceChildren());
}

makeTabs();
connectTools();
showRecord(0);
