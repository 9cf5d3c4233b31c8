// The pages that are lists: types, functions, procedures, operators and aggregates.

const GROUPS = [
  "characters",
  "numbers",
  "whole numbers",
  "binary",
  "date and time",
  "large objects",
  "rows",
  "collections",
  "opaque",
  "other",
];
const SIZE_MODIFIABLE = 1,
  LONG = 2,
  DISTINCT = 4;

// A list with a filter above it; `text` gives what an item is found by.
function filtered(items, text, label, initial, makeList) {
  const input = h("input", {
    type: "search",
    "aria-label": `Filter ${label}`,
    placeholder: `Filter ${label}`,
    value: initial,
  });
  const status = h("span", {class: "muted", role: "status"});
  const holder = h("div");
  const refresh = () => {
    const word = input.value.toLowerCase();
    const found = items.filter((item) => text(item).toLowerCase().includes(word));
    status.textContent =
      found.length === items.length
        ? NUMBER.format(items.length)
        : `${NUMBER.format(found.length)} of ${NUMBER.format(items.length)}`;
    holder.replaceChildren(makeList(found, word));
  };
  input.addEventListener("input", refresh);
  refresh();
  return [h("div", {class: "bar"}, input, status), holder];
}

function typesPage(name) {
  const size = ([, , , , length, precision, scale]) =>
    [
      length && `length ${NUMBER.format(length)}`,
      precision && `precision ${precision}`,
      scale && `scale ${scale}`,
    ]
      .filter(Boolean)
      .join(", ");
  const notes = ([, , , , , , , flags, base, parts]) =>
    [
      flags & DISTINCT && "distinct",
      flags & SIZE_MODIFIABLE && "size can be chosen",
      flags & LONG && "long",
      base && `of ${base}`,
      parts.length && parts.map(([part, type]) => (part ? `${part} ${type}` : type)).join(", "),
    ]
      .filter(Boolean)
      .join("; ");
  return [
    heading("Types"),
    userTypes.length
      ? section("Made by users", userTypes.length, factPage(userTypes, "types of users", name))
      : null,
    data.dataTypes.length ? section("Of the server", data.dataTypes.length) : null,
    data.dataTypes.length > 0 && filtered(
      data.dataTypes,
      (type) => `${type[0]} ${type[1]} ${type[2]}`,
      "types",
      name,
      (found) =>
        sheet(["Name", "Also called", "Owner", "Kind", "Size", "Notes"], found, (type) =>
          h(
            "tr",
            {},
            h("td", {class: "name"}, type[0]),
            h("td", {class: "name muted"}, type[1]),
            h("td", {}, type[2]),
            h("td", {class: "muted"}, GROUPS[type[3]] ?? ""),
            h("td", {class: "muted"}, size(type)),
            h("td", {class: "muted"}, notes(type)),
          ),
        ),
    ),
  ];
}

function functionsPage(title, list, name) {
  return [
    heading(title),
    filtered(
      list,
      (f) => `${f.owner} ${f.name}`,
      "functions",
      name,
      (found, word) => {
        const holder = h("div", {class: "sheet"});
        fillLazily(holder, found, ({owner, name: own, overloads}) =>
          h(
            "details",
            {open: found.length <= 3 || own.toLowerCase() === word},
            h(
              "summary",
              {},
              h("span", {class: "name"}, own),
              owner && h("span", {class: "muted"}, owner),
              h("span", {class: "muted"}, count(overloads.length, "overload")),
            ),
            h(
              "ul",
              {class: "overloads"},
              overloads.map(([signature, result]) =>
                h("li", {}, signature, result && h("span", {class: "result"}, ` → ${result}`)),
              ),
            ),
          ),
        );
        return holder;
      },
    ),
  ];
}

// Types, sequences and routines as an exact reading gives them, each to be opened where it has a text.
function factPage(facts, label, name) {
  return filtered(
    facts,
    (fact) => `${fact.name} ${fact.kind} ${fact.comment}`,
    label,
    name,
    (found, word) => {
      const holder = h("div", {class: "sheet facts-list"});
      fillLazily(holder, found, (fact) => {
        const head = [
          h("span", {class: "badge"}, fact.kind),
          h("span", {class: "name"}, fact.name),
          h("span", {class: "code muted"}, highlightSql(fact.text)),
        ];
        const comment = fact.comment && h("p", {class: "comment"}, fact.comment);
        return fact.body
          ? h(
              "details",
              {open: found.length === 1 || fact.name.toLowerCase() === word},
              h("summary", {}, head, comment),
              sqlBlock(fact.body),
            )
          : h("div", {class: "fact"}, head, comment);
      });
      return holder;
    },
  );
}

function routinesPage(name) {
  return [heading("Routines"), factPage(routines, "routines", name)];
}

function sequencesPage(name) {
  return [heading("Sequences"), factPage(sequences, "sequences", name)];
}

function proceduresPage(name) {
  return [
    heading("Procedures"),
    data.systemProcedures > 0 &&
      h(
        "p",
        {class: "muted"},
        `${NUMBER.format(data.systemProcedures)} of the server's own are left out; ` +
          "wbimport lists them with --system.",
      ),
    filtered(
      procedures,
      ([owner, own]) => `${owner} ${own}`,
      "procedures",
      name,
      (found) =>
        sheet(["Name", "Owner", "Qualifier"], found, ([owner, own, qualifier]) =>
          h(
            "tr",
            {},
            h("td", {class: "name"}, own),
            h("td", {}, owner),
            h("td", {class: "muted"}, qualifier),
          ),
        ),
    ),
  ];
}

function operatorsPage() {
  const list = (items) =>
    sheet(["Name", "Description"], items, ([name, description]) =>
      h(
        "tr",
        {},
        h("td", {class: "name"}, name),
        h("td", {class: "muted"}, description === name ? "" : description),
      ),
    );
  return [
    heading("Operators and aggregates"),
    h(
      "div",
      {class: "columns-2"},
      h("section", {}, section("Operators", data.operators.length, list(data.operators))),
      h("section", {}, section("Aggregates", data.aggregates.length, list(data.aggregates))),
    ),
  ];
}
