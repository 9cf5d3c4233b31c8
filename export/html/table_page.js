// The page of one table.

const KIND_ORDER = ["primary key", "unique key", "index", "unique index", "check", "trigger", "options"];

function tablePage(table, query) {
  const target = targetColumn(table, query.get("column"));
  const {outgoing, incoming} = table;
  const content = [
    heading(
      table.name,
      h("span", {class: `badge ${table.kind}`}, icon(table.kind), table.exactKind),
      table.owner && h("span", {class: "badge"}, `owner ${table.owner}`),
    ),
    table.comment && h("p", {class: "comment lead"}, table.comment),
    tableFacts(table),
    table.synonym && synonymHint(table.synonym),
    table.partOf &&
      h("p", {class: "hint"}, "A partition of ", tableLink(table.partOf), table.bound && `: ${table.bound}`, "."),
    table.nameOnly
      ? h("p", {class: "hint"}, "Only the name was read.")
      : section("Columns", table.rawColumns.length, columnSheet(table, target)),
    outgoing.length + incoming.length ? section("Neighbourhood", null, makeNeighbourhood(table, 1)) : null,
    outgoing.length + table.outside.length
      ? section(
          "Refers to",
          outgoing.length + table.outside.length,
          outgoing.length ? relationSheet(outgoing, true) : null,
          table.outside.length ? factSheet(table.outside) : null,
        )
      : null,
    incomingSection(incoming),
    table.facts.length
      ? section(
          "Keys, indexes, checks, triggers",
          table.facts.length,
          factSheet(
            [...table.facts].sort((a, b) => KIND_ORDER.indexOf(a.kind) - KIND_ORDER.indexOf(b.kind)),
          ),
        )
      : null,
    table.parts.length ? partsSection(table) : null,
    table.text && section("Text", null, sqlBlock(table.text)),
  ];
  if (target >= 0)
    requestAnimationFrame(() =>
      document.getElementById(`column-${target}`)?.scrollIntoView({block: "center"}),
    );
  return content;
}

// A column is named in an address, so that the link holds when others come before it.
function targetColumn(table, wanted) {
  if (wanted === null) return -1;
  return table.rawColumns.findIndex(([name]) => name === wanted);
}

function tableFacts(table) {
  const {outgoing, incoming} = table;
  const tablesOf = (relations, end) => count(new Set(relations.map((relation) => relation[end])).size, "table");
  return h(
    "p",
    {class: "facts"},
    h("span", {}, count(table.rawColumns.length, "column")),
    table.key.length
      ? h(
          "span",
          {title: table.keyName || null},
          "primary key ",
          h("span", {class: "name"}, table.columnNames(table.key).join(", ")),
        )
      : null,
    outgoing.length ? h("span", {}, `refers to ${tablesOf(outgoing, "to")}`) : null,
    incoming.length ? h("span", {}, `referred to by ${tablesOf(incoming, "from")}`) : null,
    table.parts.length ? h("span", {}, count(table.parts.length, "partition")) : null,
  );
}

function synonymHint(synonym) {
  const base = tables.find(
    ({owner, name, kind}) => kind !== "synonym" && owner === synonym.owner && name === synonym.name,
  );
  const name = [synonym.owner, synonym.name].filter(Boolean).join(".") || "a table that is not known";
  return h(
    "p",
    {class: "hint"},
    "Stands for ",
    base ? tableLink(base) : h("span", {class: "name"}, name),
    synonym.database && ` in the database ${synonym.database}`,
    synonym.server && ` on the server ${synonym.server}`,
    ".",
  );
}

// The columns; those of the sheet that no column has anything for are left out.
function columnSheet(table, target) {
  const references = new Map();
  for (const relation of table.outgoing)
    relation.fromColumns.forEach((column, i) => {
      if (!references.has(column)) references.set(column, []);
      references.get(column).push([relation.to, relation.to.columnNames([relation.toColumns[i]])]);
    });
  const columns = table.columns;
  // An exact reading says in its notes what the flags say in other readings.
  const notes = ({flags, notes: text, value}) =>
    text || value ? text : [flags & READ_ONLY && "read only", flags & GENERATED && "generated"].filter(Boolean).join(", ");
  const targets = (column) =>
    (references.get(column.position) ?? []).map(([to, names], i) => [i ? ", " : "", tableLink(to, names)]);
  const wide = (title) => ({title, wide: true});
  // Where there is no room for the last columns of the sheet, what they say stands under the name.
  const below = (column) => {
    const parts = [
      column.value && ["default ", h("span", {class: "code"}, column.value)],
      notes(column),
      references.has(column.position) && ["→ ", targets(column)],
    ].filter(Boolean);
    if (!parts.length && !column.comment) return null;
    return h(
      "div",
      {class: "below"},
      parts.map((part, i) => [i ? ", " : "", part]),
      parts.length && column.comment ? "\n" : "",
      column.comment,
    );
  };
  const cells = [
    [{title: "#", number: true}, (column) => h("td", {class: "number"}, String(column.position + 1))],
    columns.some(({flags, position}) => flags & PRIMARY || references.has(position)) && [
      "Key",
      (column) =>
        h(
          "td",
          {class: "marks"},
          column.flags & PRIMARY ? h("span", {class: "key", title: "Part of the primary key"}, "PK") : null,
          " ",
          references.has(column.position)
            ? h("span", {class: "key foreign", title: "Refers to another table"}, "FK")
            : null,
        ),
    ],
    ["Name", (column) => h("td", {class: "name"}, h("span", {class: "column-name"}, column.name), below(column))],
    ["Type", (column) => h("td", {class: "type"}, column.type)],
    columns.some(({flags}) => flags & REQUIRED) && ["Required", (column) => h("td", {class: "marks muted"}, column.flags & REQUIRED ? "required" : "")],
    columns.some(({value}) => value) && [wide("Default"), ({value}) => h("td", {class: "code wide"}, value)],
    columns.some(notes) && [wide("Notes"), (column) => h("td", {class: "muted wide"}, notes(column))],
    references.size && [wide("Refers to"), (column) => h("td", {class: "wide"}, targets(column))],
    columns.some(({comment}) => comment) && [
      wide("Comment"),
      ({comment}) => h("td", {class: "comment wide"}, comment),
    ],
  ].filter(Boolean);
  return sheet(
    cells.map(([title]) => title),
    columns,
    (column) =>
      h(
        "tr",
        {class: column.position === target && "target", id: `column-${column.position}`},
        cells.map(([, make]) => make(column)),
      ),
    {class: "columns-sheet"},
  );
}

function relationSheet(list, isOutgoing) {
  const acts = list.some(({acts: text}) => text);
  const names = isOutgoing && list.some(({name}) => name);
  const comments = isOutgoing && list.some(({comment}) => comment);
  return sheet(
    ["Columns", "Table", "Relationship", acts && "Actions", names && "Name", comments && "Comment"].filter(Boolean),
    list,
    (relation) => {
      const {from, fromColumns, to, toColumns} = relation;
      const [own, ownColumns, other, otherColumns] = isOutgoing
        ? [from, fromColumns, to, toColumns]
        : [to, toColumns, from, fromColumns];
      return h(
        "tr",
        {},
        h("td", {class: "name"}, own.columnNames(ownColumns).join(", ")),
        h("td", {}, tableLink(other, other.columnNames(otherColumns))),
        h(
          "td",
          {class: "muted"},
          relation.oneToOne ? "one to one" : isOutgoing ? "many to one" : "one to many",
          relation.optional ? ", optional" : "",
        ),
        acts && h("td", {class: "muted"}, relation.acts),
        names && h("td", {class: "name muted"}, relation.name),
        comments && h("td", {class: "comment"}, relation.comment),
      );
    },
  );
}

// Partitions repeat what their table refers to: they are counted.
function incomingSection(incoming) {
  if (!incoming.length) return null;
  const whole = incoming.filter(({from}) => !from.partOf);
  const rest = incoming.length - whole.length;
  return section(
    "Referred to by",
    whole.length,
    whole.length ? relationSheet(whole, false) : null,
    rest ? h("p", {class: "muted"}, `and by ${count(rest, "partition")}`) : null,
  );
}

function factSheet(facts) {
  const names = facts.some(({name}) => name);
  const comments = facts.some(({comment}) => comment);
  return sheet(
    ["Kind", names && "Name", "Definition", comments && "Comment"].filter(Boolean),
    facts,
    ({kind, name, text, comment, body, made}) =>
      h(
        "tr",
        {},
        h("td", {class: "marks"}, kind),
        names &&
          h("td", {class: made ? "name muted" : "name", title: made ? "Named by the server" : null}, name),
        h(
          "td",
          {class: "definition"},
          h("span", {class: "code"}, highlightSql(text)),
          body && h("details", {}, h("summary", {}, "Text"), sqlBlock(body)),
        ),
        comments && h("td", {class: "comment"}, comment),
      ),
  );
}

function partsSection(table) {
  return h(
    "details",
    {class: "fold", id: "partitions", open: table.parts.length <= 5},
    h("summary", {}, h("h2", {}, "Partitions", h("span", {class: "count"}, NUMBER.format(table.parts.length)))),
    sheet(["Name", "Rows", "Comment"], table.parts, (part) =>
      h(
        "tr",
        {},
        h("td", {}, tableLink(part)),
        h("td", {class: "code"}, part.bound),
        h("td", {class: "comment"}, part.comment),
      ),
    ),
  );
}
