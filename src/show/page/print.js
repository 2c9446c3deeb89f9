// The copy of the page that is printed. The lists on the screen have only their
// visible rows; this one has all rows that are not folded.

const MAX_PRINTED = 10000;

function renderPrintCopy(target, view) {
  const { record, folds, treeFolds, matches, itemRows: items, elementRows: elements } = view;
  const isFiltered = matches !== null;
  const parts = [make("h2", "", isFiltered ? "Items found" : "Items"), printedItems()];
  if (elements.length > 0) parts.push(make("h2", "", "XML document"), printedElements());
  target.replaceChildren(...parts);

  function printedItems() {
    const table = make("table", "printed-items");
    const head = make("tr");
    for (const each of ["Level", "Name", "Picture", "Usage", "Offset", "Length", "Occurs"]) {
      head.append(make("th", "", each));
    }
    const headGroup = make("thead");
    headGroup.append(head);
    const body = make("tbody");
    for (const row of items.slice(0, MAX_PRINTED)) body.append(printedItem(row));
    table.append(headGroup, body);
    return withRest(table, items.length);
  }

  function printedItem(row) {
    const cells = cellsOf(record, row);
    const line = make("tr");
    const name = make("td", "mono", cells.name);
    name.style.paddingLeft = `${indentOf(row.depth)}px`;
    const remark = remarkOn(record, row, folds, isFiltered);
    if (remark) name.append(make("span", "remark", ` ${remark}`));
    line.append(make("td", "", cells.level), name);
    if (cells.values !== undefined) {
      const values = make("td", "mono", cells.values);
      values.colSpan = 5;
      line.append(values);
      return line;
    }
    for (const [column, className] of [
      ["picture", "mono"],
      ["usage", ""],
      ["offset", "amount"],
      ["length", "amount"],
      ["occurs", "amount"],
    ]) {
      line.append(make("td", className, cells[column]));
    }
    return line;
  }

  function printedElements() {
    const list = make("ul", "printed-elements");
    for (const row of elements.slice(0, MAX_PRINTED)) {
      const line = make("li", "", "");
      line.style.paddingLeft = `${indentOf(row.depth)}px`;
      line.append(make("span", "mono", elementName(record.items[row.item])));
      const remark = elementRemark(record, row, treeFolds, isFiltered);
      const namespace = namespaceChange(record, record.items[row.item]);
      for (const each of [remark, namespace]) {
        if (each) line.append(make("span", "remark", ` ${each}`));
      }
      list.append(line);
    }
    return withRest(list, elements.length);
  }

  function withRest(content, count) {
    const box = make("div");
    box.append(content);
    if (count > MAX_PRINTED) {
      const rest = `${number.format(count - MAX_PRINTED)} more rows are not printed. `;
      box.append(make("p", "rest", `${rest}Fold groups or search to print a part.`));
    }
    return box;
  }
}
