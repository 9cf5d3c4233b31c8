// Ties the parts together: top bar, pages by address, keys, theme.

const main = document.getElementById("main");
const sidebar = new Sidebar(document.getElementById("side"));

const TABS = [
  ["#/", "Overview", null],
  ["#/diagram", "Diagram", relations.length],
  ["#/types", "Types", userTypes.length || data.dataTypes.length],
  ["#/routines", "Routines", routines.length],
  ["#/sequences", "Sequences", sequences.length],
  ["#/functions", "Functions", functions.length],
  ["#/boolean-functions", "Boolean functions", booleanFunctions.length],
  ["#/procedures", "Procedures", procedures.length + data.systemProcedures],
  ["#/operators", "Operators", data.operators.length + data.aggregates.length],
].filter(([, , number]) => number !== 0);

// What a reader has to know of the import before believing the page.
function importNotice() {
  const {source} = data;
  const sentences = [];
  if (source.cutShort) {
    sentences.push(h("strong", {}, `${source.cutShort} `), "Tables, columns and keys may be missing here. ");
  } else if (!source.result) {
    sentences.push(
      h("strong", {}, "The import reported a failure. "),
      "Parts of the schema may be missing here. ",
    );
  }
  if (source.errorsShown)
    sentences.push(`${count(source.errorsShown, "database error")} came up during the import.`);
  return sentences.length ? h("p", {class: "notice", role: "note", id: "import-notice"}, sentences) : null;
}

const THEMES = ["auto", "light", "dark"];
function setTheme(theme) {
  if (theme === "auto") delete document.documentElement.dataset.theme;
  else document.documentElement.dataset.theme = theme;
  themeButton.replaceChildren(icon(theme), {auto: "Auto", light: "Light", dark: "Dark"}[theme]);
  themeButton.value = theme;
  // A page opened from a file may have no storage.
  try {
    localStorage.setItem("schema-theme", theme);
  } catch {
    /* the choice lasts for this visit */
  }
}
const themeButton = h("button", {
  type: "button",
  class: "theme",
  title: "Colour theme",
  onclick: () => setTheme(THEMES[(THEMES.indexOf(themeButton.value) + 1) % 3]),
});
let savedTheme = null;
try {
  savedTheme = localStorage.getItem("schema-theme");
} catch {
  /* none saved */
}
setTheme(THEMES.includes(savedTheme) ? savedTheme : "auto");

const help = document.getElementById("help");
const SHORTCUTS = [
  ["/", "search: names, comments, owner.table, table.column"],
  ["↑ ↓", "move in the list"],
  ["Enter", "open what is chosen"],
  ["Escape", "clear the search, then leave it"],
  ["← ↑ ↓ →", "move the diagram in hand"],
  ["+ − 0", "zoom it in, out, and to fit"],
  ["?", "these keys"],
];
help.append(
  h("h2", {id: "help-title", style: "margin-top:0"}, "Keys"),
  h(
    "dl",
    {},
    SHORTCUTS.map(([key, what]) => [h("dt", {}, h("kbd", {}, key)), h("dd", {}, what)]),
  ),
  h("button", {type: "button", onclick: () => help.close()}, "Close"),
);

document.getElementById("top").append(
  h(
    "a",
    {class: "brand", href: "#/"},
    icon("table"),
    h("span", {}, data.source.title || data.source.dbmsName || "Schema"),
  ),
  h(
    "nav",
    {class: "tabs", "aria-label": "Pages"},
    TABS.map(([href, label, number]) =>
      h("a", {href}, label, number ? h("span", {class: "count"}, NUMBER.format(number)) : null),
    ),
  ),
  h(
    "button",
    {type: "button", "aria-label": "Keys", title: "Keys (?)", onclick: () => help.showModal()},
    "?",
  ),
  themeButton,
);

function contentFor(path, query) {
  const table = findTable(path);
  if (table) return [table.title, tablePage(table, query)];
  const [, page, name = ""] = path.split("/");
  switch (page) {
    case "":
    case undefined:
      return ["Overview", overviewPage()];
    case "diagram":
      return ["Diagram", diagramPage(query)];
    case "types":
      return ["Types", typesPage(decode(name))];
    case "routines":
      return ["Routines", routinesPage(decode(name))];
    case "sequences":
      return ["Sequences", sequencesPage(decode(name))];
    case "functions":
      return ["Functions", functionsPage("Functions", functions, decode(name))];
    case "boolean-functions":
      return ["Boolean functions", functionsPage("Boolean functions", booleanFunctions, decode(name))];
    case "procedures":
      return ["Procedures", proceduresPage(decode(name))];
    case "operators":
      return ["Operators and aggregates", operatorsPage()];
    default:
      return ["Not found", missingPage()];
  }
}

const pageTitle = document.title;
function showPage(moveFocus) {
  const [path, parameters = ""] = location.hash.slice(1).split("?");
  const [title, content] = contentFor(path, new URLSearchParams(parameters));
  main.classList.toggle("full", path === "/diagram");
  main.replaceChildren();
  append(main, [importNotice(), content]);
  main.scrollTop = 0;
  document.title = `${title} · ${pageTitle}`;
  sidebar.show(findTable(path));
  for (const tab of document.querySelectorAll(".tabs a")) {
    const current = tab.getAttribute("href") === (path ? `#/${path.split("/")[1]}` : "#/");
    if (current) tab.setAttribute("aria-current", "page");
    else tab.removeAttribute("aria-current");
  }
  if (moveFocus) main.querySelector("h1")?.focus({preventScroll: true});
}

document.querySelector(".skip").addEventListener("click", (event) => {
  event.preventDefault();
  main.focus();
});
addEventListener("hashchange", () => {
  sidebar.close();
  showPage(true);
});
addEventListener("keydown", (event) => {
  if (event.ctrlKey || event.metaKey || event.altKey || event.target.closest("input, select, dialog")) return;
  if (event.key === "/") {
    event.preventDefault();
    sidebar.input.focus();
    sidebar.input.select();
  } else if (event.key === "?") {
    help.showModal();
  } else if (event.key === "Escape" && document.activeElement !== main) {
    main.focus();
  }
});

// A page that was made around one table, or to be drawn whole, starts there.
if (!location.hash && data.view.around >= 0) {
  history.replaceState(
    null,
    "",
    `#/diagram?around=${encodeURIComponent(tables[data.view.around].path)}&distance=${data.view.distance}`,
  );
} else if (!location.hash && data.view.whole) {
  history.replaceState(null, "", "#/diagram");
}
showPage(false);
