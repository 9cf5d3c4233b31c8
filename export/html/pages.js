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
            h(
              "th",
              {scope: "col", class: column.number ? "number" : column.wide && "wide"},
              column.title ?? column,
            ),
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

// What the import could not read, with the server's reasons.
function notReadSection() {
  const {notRead} = data;
  if (!notRead.length) return null;
  return h(
    "details",
    {class: "notice", open: notRead.length <= 8, id: "not-read"},
    h("summary", {}, h("strong", {}, `${count(notRead.length, "thing was", "things were")} not read`)),
    h(
      "ul",
      {},
      notRead.map((text) => h("li", {}, text)),
    ),
  );
}

function ownersSheet(owners) {
  const comments = new Map(data.schemas.map(([name, , comment = ""]) => [name, comment]));
  const defaults = new Set(data.schemas.filter(([, isDefault]) => isDefault).map(([name]) => name));
  const any = [...comments.values()].some(Boolean);
  return sheet(
    ["Owner", {title: "Tables, views, synonyms", number: true}, any && "Comment"].filter(Boolean),
    [...owners],
    ([owner, n]) =>
      h(
        "tr",
        {},
        h("td", {class: "name"}, owner, defaults.has(owner) && h("span", {class: "muted"}, " (default)")),
        h("td", {class: "number"}, NUMBER.format(n)),
        any && h("td", {class: "comment"}, comments.get(owner) ?? ""),
      ),
  );
}

function overviewPage() {
  const {source} = data;
  const of = (kind) => wholeTables.filter((table) => table.kind === kind).length;
  const cards = [
    [of("table"), "tables"],
    [of("view"), "views"],
    [of("synonym"), "synonyms"],
    [tables.length - wholeTables.length, "partitions"],
    [tables.reduce((sum, table) => sum + table.rawColumns.length, 0), "columns"],
    [relations.length, "relationships", "#/diagram"],
    [data.dataTypes.length, "data types of the server", "#/types"],
    [functions.length, "functions", "#/functions"],
    [booleanFunctions.length, "boolean functions", "#/boolean-functions"],
    [userTypes.length, "types of users", "#/types"],
    [routines.length, "routines", "#/routines"],
    [sequences.length, "sequences", "#/sequences"],
    [procedures.length, "procedures", "#/procedures"],
    [data.operators.length + data.aggregates.length, "operators and aggregates", "#/operators"],
  ].filter(([n]) => n);
  const degree = (table) => table.incoming.length + table.outgoing.length;
  const hubs = wholeTables
    .filter(degree)
    .sort((a, b) => degree(b) - degree(a))
    .slice(0, 12);
  const owners = new Map(data.ownerNames.map((owner) => [owner, 0]));
  for (const [schema] of data.schemas) if (!owners.has(schema)) owners.set(schema, 0);
  for (const table of wholeTables) if (table.owner) owners.set(table.owner, (owners.get(table.owner) ?? 0) + 1);
  return [
    heading(source.title || source.dbmsName || "Database schema"),
    h(
      "p",
      {class: "facts"},
      source.database && source.database !== source.title && h("span", {}, `database ${source.database}`),
      source.title && h("span", {}, source.dbmsName),
      source.dbmsVersion ? h("span", {}, `Version ${source.dbmsVersion}`) : null,
      source.route && h("span", {}, `read through the ${source.route} route`),
      source.importedAt && h("span", {}, `on ${source.importedAt.replace("T", " at ").replace("Z", " UTC")}`),
    ),
    notReadSection(),
    h(
      "div",
      {class: "cards"},
      cards.map(([n, label, href]) =>
        h(href ? "a" : "div", {class: "card", href}, h("b", {}, NUMBER.format(n)), h("span", {}, label)),
      ),
    ),
    wholeTables.length && wholeTables.length <= MOST_TABLES && relations.length
      ? section("Diagram", null, makeDiagram(wholeTables))
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
      owners.size ? h("section", {}, section("Owners", owners.size, ownersSheet(owners))) : null,
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

// Diagram

function diagramPage(query) {
  const chosen = query.get("around") && findTable(query.get("around"));
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
  const related = wholeTables.filter((table) => table.outgoing.length || table.incoming.length);
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
  if (wholeTables.length <= MOST_TABLES || data.view.whole) {
    draw(wholeTables);
  } else {
    const degree = (table) => table.incoming.length + table.outgoing.length;
    const hubs = [...related].sort((a, b) => degree(b) - degree(a)).slice(0, 40);
    append(stage, [
      h(
        "p",
        {class: "hint"},
        `${NUMBER.format(wholeTables.length)} tables are more than one picture shows well, so they are not drawn at once. Choose a table to see its neighbourhood, or draw the schema whole here; wbimport makes a page that starts with the whole diagram when it is given `,
        h("code", {}, "--whole"),
        ", and one that starts with a table's neighbourhood with ",
        h("code", {}, "--around TABLE --distance N"),
        ".",
      ),
      h(
        "div",
        {class: "bar"},
        related.length < wholeTables.length &&
          h(
            "button",
            {type: "button", onclick: () => draw(related)},
            `Draw the ${NUMBER.format(related.length)} related tables`,
          ),
        h(
          "button",
          {type: "button", onclick: () => draw(wholeTables)},
          `Draw all ${NUMBER.format(wholeTables.length)}`,
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
