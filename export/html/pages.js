// One function per page; each returns its content. The address behind "#" chooses the page.

function tableLink(table, columns) {
  return h(
    "a",
    {href: table.href, class: "name"},
    table.title,
    columns?.length ? `.${columns.join(", ")}` : "",
  );
}

function heading(text, ...more) {
  return h("div", {class: "head"}, h("h1", {tabindex: "-1"}, text), more);
}

function section(title, number, ...content) {
  return [
    h("h2", {}, title, number === null ? "" : h("span", {class: "count"}, NUMBER.format(number))),
    content,
  ];
}

function sheet(columns, rows, makeRow, attributes = {}) {
  const body = h("tbody");
  const table = h(
    "div",
    {class: "sheet"},
    h(
      "table",
      attributes,
      h(
        "thead",
        {},
        h(
          "tr",
          {},
          columns.map((column) =>
            h("th", {scope: "col", class: column.number && "number"}, column.title ?? column),
          ),
        ),
      ),
      body,
    ),
  );
  fillLazily(body, rows, makeRow);
  return table;
}

// Overview

function overviewPage() {
  const {source} = data;
  const of = (kind) => tables.filter((table) => table.kind === kind).length;
  const cards = [
    [of("table"), "tables"],
    [of("view"), "views"],
    [of("synonym"), "synonyms"],
    [tables.reduce((sum, table) => sum + table.rawColumns.length, 0), "columns"],
    [relations.length, "relationships", "#/diagram"],
    [data.dataTypes.length, "data types", "#/types"],
    [functions.length, "functions", "#/functions"],
    [booleanFunctions.length, "boolean functions", "#/boolean-functions"],
    [data.procedures.length, "procedures", "#/procedures"],
    [data.operators.length + data.aggregates.length, "operators and aggregates", "#/operators"],
  ].filter(([n]) => n);
  const degree = (table) => table.incoming.length + table.outgoing.length;
  const hubs = tables
    .filter(degree)
    .sort((a, b) => degree(b) - degree(a))
    .slice(0, 12);
  const owners = new Map(data.ownerNames.map((owner) => [owner, 0]));
  for (const table of tables) if (table.owner) owners.set(table.owner, (owners.get(table.owner) ?? 0) + 1);
  return [
    heading(source.dbmsName || "Database schema"),
    h(
      "p",
      {class: "facts"},
      source.dbmsVersion ? h("span", {}, `Version ${source.dbmsVersion}`) : null,
      source.route && h("span", {}, `read through the ${source.route} route`),
    ),
    h(
      "div",
      {class: "cards"},
      cards.map(([n, label, href]) =>
        h(href ? "a" : "div", {class: "card", href}, h("b", {}, NUMBER.format(n)), h("span", {}, label)),
      ),
    ),
    tables.length && tables.length <= MOST_TABLES && relations.length
      ? section("Diagram", null, makeDiagram(tables))
      : null,
    h(
      "div",
      {class: "columns-2"},
      hubs.length
        ? h(
            "section",
            {},
            section(
              "Most connected tables",
              null,
              sheet(
                ["Table", {title: "Refers to", number: true}, {title: "Referred to by", number: true}],
                hubs,
                (table) =>
                  h(
                    "tr",
                    {},
                    h("td", {}, tableLink(table)),
                    h("td", {class: "number"}, String(table.outgoing.length)),
                    h("td", {class: "number"}, String(table.incoming.length)),
                  ),
              ),
            ),
          )
        : null,
      owners.size
        ? h(
            "section",
            {},
            section(
              "Owners",
              owners.size,
              sheet(["Owner", {title: "Tables, views, synonyms", number: true}], [...owners], ([owner, n]) =>
                h("tr", {}, h("td", {class: "name"}, owner), h("td", {class: "number"}, NUMBER.format(n))),
              ),
            ),
          )
        : null,
      data.columnNames.length
        ? h(
            "section",
            {},
            section(
              "Columns of the chosen table",
              data.columnNames.length,
              sheet(["Column", "Type"], data.columnNames, ([name, type]) =>
                h("tr", {}, h("td", {class: "name"}, name), h("td", {class: "type"}, data.types[type])),
              ),
            ),
          )
        : null,
    ),
  ];
}

// One table

function tablePage(table, query) {
  const target = query.has("column") ? Number(query.get("column")) : -1;
  const synonym = table.synonym;
  const base =
    synonym &&
    tables.find(
      ({owner, name, kind}) => kind !== "synonym" && owner === synonym.owner && name === synonym.name,
    );
  const references = new Map();
  for (const relation of table.outgoing)
    relation.fromColumns.forEach((column, i) => {
      if (!references.has(column)) references.set(column, []);
      references.get(column).push([relation.to, relation.to.columnNames([relation.toColumns[i]])]);
    });
  const marks = ({flags}) =>
    [flags & READ_ONLY && "read only", flags & GENERATED && "generated"].filter(Boolean).join(", ");
  const columnRow = (column) =>
    h(
      "tr",
      {class: column.position === target && "target", id: `column-${column.position}`},
      h("td", {class: "number"}, String(column.position + 1)),
      h(
        "td",
        {class: "marks"},
        column.flags & PRIMARY ? h("span", {class: "key", title: "Part of the primary key"}, "PK") : null,
        " ",
        references.has(column.position)
          ? h("span", {class: "key foreign", title: "Refers to another table"}, "FK")
          : null,
      ),
      h("td", {class: "name"}, column.name),
      h("td", {class: "type"}, column.type),
      h("td", {class: "marks muted"}, column.flags & REQUIRED ? "required" : ""),
      h("td", {class: "muted"}, marks(column)),
      h(
        "td",
        {},
        (references.get(column.position) ?? []).map(([to, names], i) => [
          i ? ", " : "",
          tableLink(to, names),
        ]),
      ),
    );
  const relationRow = (other, otherColumns, own, relation) =>
    h(
      "tr",
      {},
      h("td", {class: "name"}, own.join(", ")),
      h("td", {}, tableLink(other, otherColumns)),
      h(
        "td",
        {class: "muted"},
        relation.oneToOne ? "one to one" : other === relation.to ? "many to one" : "one to many",
        relation.optional ? ", optional" : "",
      ),
    );
  const {outgoing, incoming} = table;
  const content = [
    heading(
      table.name,
      h("span", {class: `badge ${table.kind}`}, icon(table.kind), table.kind),
      table.owner && h("span", {class: "badge"}, `owner ${table.owner}`),
    ),
    h(
      "p",
      {class: "facts"},
      h("span", {}, count(table.rawColumns.length, "column")),
      table.key.length
        ? h("span", {}, "primary key ", h("span", {class: "name"}, table.columnNames(table.key).join(", ")))
        : null,
      outgoing.length
        ? h("span", {}, `refers to ${count(new Set(outgoing.map(({to}) => to)).size, "table")}`)
        : null,
      incoming.length
        ? h("span", {}, `referred to by ${count(new Set(incoming.map(({from}) => from)).size, "table")}`)
        : null,
    ),
    synonym &&
      h(
        "p",
        {class: "hint"},
        "Stands for ",
        base
          ? tableLink(base)
          : h(
              "span",
              {class: "name"},
              [synonym.owner, synonym.name].filter(Boolean).join(".") || "a table that is not known",
            ),
        synonym.database && ` in the database ${synonym.database}`,
        synonym.server && ` on the server ${synonym.server}`,
        ".",
      ),
    table.nameOnly
      ? h("p", {class: "hint"}, "Only the name was read.")
      : section(
          "Columns",
          table.rawColumns.length,
          sheet(
            [{title: "#", number: true}, "Key", "Name", "Type", "Required", "Notes", "Refers to"],
            table.columns,
            columnRow,
          ),
        ),
    outgoing.length + incoming.length ? section("Neighbourhood", null, makeNeighbourhood(table, 1)) : null,
    outgoing.length
      ? section(
          "Refers to",
          outgoing.length,
          sheet(["Columns", "Table", "Relationship"], outgoing, (r) =>
            relationRow(r.to, r.to.columnNames(r.toColumns), table.columnNames(r.fromColumns), r),
          ),
        )
      : null,
    incoming.length
      ? section(
          "Referred to by",
          incoming.length,
          sheet(["Columns", "Table", "Relationship"], incoming, (r) =>
            relationRow(r.from, r.from.columnNames(r.fromColumns), table.columnNames(r.toColumns), r),
          ),
        )
      : null,
  ];
  if (target >= 0)
    requestAnimationFrame(() =>
      document.getElementById(`column-${target}`)?.scrollIntoView({block: "center"}),
    );
  return content;
}

// Diagram

function diagramPage(query) {
  const chosen = query.get("around") && tableByPath.get(query.get("around"));
  if (chosen) {
    return [
      heading(
        chosen.title,
        h("a", {href: chosen.href}, "its page"),
        h("a", {href: "#/diagram"}, "other tables"),
      ),
      makeNeighbourhood(chosen, Number(query.get("distance")) || 1),
    ];
  }
  const related = tables.filter((table) => table.outgoing.length || table.incoming.length);
  let allColumns = false;
  const stage = h("div", {class: "stage", style: "display:contents"});
  const draw = (some) => {
    stage.replaceChildren(
      h("p", {class: "muted", role: "status"}, `Laying out ${count(some.length, "table")} …`),
    );
    // Large diagrams take seconds: let the browser show that first.
    if (some.length > 300) setTimeout(() => drawNow(some), 50);
    else drawNow(some);
  };
  const drawNow = (some) => {
    const toggle = h(
      "button",
      {
        type: "button",
        "aria-pressed": String(allColumns),
        onclick: () => {
          allColumns = !allColumns;
          draw(some);
        },
      },
      "All columns",
    );
    stage.replaceChildren(
      h(
        "div",
        {class: "bar"},
        toggle,
        h(
          "span",
          {class: "muted"},
          `${count(some.length, "table")}, ${count(relationsAmong(some).length, "relationship")}`,
        ),
      ),
      makeDiagram(some, {allColumns}),
    );
  };
  if (tables.length <= MOST_TABLES || data.view.whole) {
    draw(tables);
  } else {
    const degree = (table) => table.incoming.length + table.outgoing.length;
    const hubs = [...related].sort((a, b) => degree(b) - degree(a)).slice(0, 40);
    append(stage, [
      h(
        "p",
        {class: "hint"},
        `${NUMBER.format(tables.length)} tables are more than one picture shows well, so they are not drawn at once. Choose a table to see its neighbourhood, or draw the schema whole here; wbimport makes a page that starts with the whole diagram when it is given `,
        h("code", {}, "--whole"),
        ", and one that starts with a table's neighbourhood with ",
        h("code", {}, "--around TABLE --distance N"),
        ".",
      ),
      h(
        "div",
        {class: "bar"},
        related.length < tables.length &&
          h(
            "button",
            {type: "button", onclick: () => draw(related)},
            `Draw the ${NUMBER.format(related.length)} related tables`,
          ),
        h(
          "button",
          {type: "button", onclick: () => draw(tables)},
          `Draw all ${NUMBER.format(tables.length)}`,
        ),
      ),
      section(
        "Start from a table",
        null,
        h(
          "div",
          {class: "chips"},
          hubs.map((table) =>
            h(
              "a",
              {class: "badge", href: `#/diagram?around=${encodeURIComponent(table.path)}`},
              table.title,
              " ",
              String(degree(table)),
            ),
          ),
        ),
      ),
    ]);
  }
  return [heading("Diagram"), stage];
}

function missingPage() {
  return [
    heading("Not in this schema"),
    h("p", {}, "There is no such table or page here. ", h("a", {href: "#/"}, "Back to the overview")),
  ];
}
