// What is known about one item.

const MAX_VIEW_PARTS = 60;

function renderDetails(target, record, index, shift) {
  const item = record.items[index];
  const list = make("dl", "facts-list");
  const add = (term, text, className) => {
    if (!text) return;
    list.append(make("dt", "", term), make("dd", className || "", text));
  };
  const first = item.offset + shift;
  const range = `${number.format(first)} to ${number.format(first + item.length - 1)}`;
  const roles = { none: "not in the document", transparent: "group without an element" };
  add("Name", item.name, "mono");
  add("Picture", item.picture, "mono");
  add("Usage", item.storage);
  add("Bytes", item.length === 0 ? "none" : range);
  add("Length", plural(item.length, "byte"));
  if (item.isTable) {
    const depending = item.depending ? `, depending on ${item.depending}` : "";
    add("Occurs", occursWords(item) + depending);
    add("All", plural(item.length * item.max, "byte"));
  }
  if (item.redefines >= 0) add("Redefines", record.items[item.redefines].name, "mono");
  add("Count in", item.countIn, "mono");
  add("Role", roles[item.role] || item.role);
  add("XML path", record.xmlPath(index), "mono");
  const element = record.elementOf(index);
  if (element >= 0) add("Namespace", record.items[element].namespace, "mono");
  add("Type", item.type);
  add("Data path", record.dataPath(index), "mono");
  if (item.line > 0) add("Source", `${item.file}, line ${item.line}`);
  const parts = [list];
  if (item.findings.length > 0) parts.push(findingList(item.findings));
  if (item.conditions.length > 0) parts.push(conditionTable(item.conditions));
  const views = record.viewsAround(index);
  if (views.length > 0) parts.push(viewColumns(record, views, index));
  target.replaceChildren(...parts);
}

function findingList(findings) {
  const section = make("section", "findings");
  const list = make("ul");
  for (const [severity, code, text, path] of findings) {
    const entry = make("li", severity);
    entry.append(make("strong", "", severity), ` ${text} `, make("code", "", code));
    entry.title = path;
    list.append(entry);
  }
  section.append(make("h3", "", "Findings of the schema"), list);
  return section;
}

function conditionTable(conditions) {
  const section = make("section", "conditions");
  const table = make("table");
  for (const [name, values] of conditions) {
    const row = make("tr");
    const head = make("th", "mono", name);
    head.scope = "row";
    row.append(head, make("td", "mono", values));
    table.append(row);
  }
  section.append(make("h3", "", "Level 88"), table);
  return section;
}

// The redefinitions of an area, a column each.
function viewColumns(record, views, current) {
  const section = make("section", "views");
  const columns = make("div", "view-columns");
  for (const view of views.slice(0, MAX_VIEW_PARTS)) {
    const column = make("div", "view-column");
    column.append(make("h4", "mono", record.items[view].name));
    const list = make("ul");
    const end = Math.min(record.items[view].end, view + 1 + MAX_VIEW_PARTS);
    const first = record.isGroup(record.items[view]) ? view + 1 : view;
    for (let i = first; i < end; ++i) list.append(viewPart(record.items[i], i === current));
    column.append(list);
    const rest = record.items[view].end - end;
    if (rest > 0) column.append(make("p", "rest", `${plural(rest, "more item")}`));
    columns.append(column);
  }
  section.append(make("h3", "", "Redefinitions of these bytes"), columns);
  return section;
}

function viewPart(item, isCurrent) {
  const part = make("li", isCurrent ? "current" : "");
  part.append(make("span", "part-offset", `${item.offset}`), make("span", "mono", item.name));
  if (item.picture) part.append(make("span", "mono part-picture", item.picture));
  return part;
}
