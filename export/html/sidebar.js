// The list of owners and tables with its search. Only the rows in sight are in the document, so
// that its length does not matter.

const ROW_HEIGHT = 31;
const LIMIT = {columns: 300, others: 100}; // results shown of each kind but tables

class Sidebar {
  constructor(root) {
    this.collapsed = new Set();
    this.current = null; // the table whose page is shown
    this.active = -1; // the row that Enter opens
    this.input = h("input", {
      type: "search",
      id: "search",
      placeholder: "Search names, comments",
      autocomplete: "off",
      spellcheck: "false",
      role: "combobox",
      "aria-label": "Search",
      "aria-controls": "rows",
      "aria-expanded": "true",
      "aria-autocomplete": "list",
      oninput: () => this.refresh(),
      onfocus: () => this.openList(),
      onkeydown: (event) => this.onKey(event),
    });
    this.found = h("div", {class: "found", role: "status"});
    this.spacer = h("div", {class: "spacer"});
    this.rows = h(
      "div",
      {class: "rows", id: "rows", role: "listbox", "aria-label": "Tables", tabindex: "-1"},
      this.spacer,
    );
    this.rows.addEventListener("scroll", () => this.draw());
    new ResizeObserver(() => this.draw()).observe(this.rows);
    this.root = root;
    // On a narrow page the list lies over the content and shows when it is asked for.
    this.toggle = h(
      "button",
      {
        type: "button",
        class: "toggle",
        "aria-label": "List of tables",
        "aria-expanded": "false",
        "aria-controls": "rows",
        onclick: () => (root.classList.contains("open") ? this.close() : this.openList()),
      },
      icon("menu"),
    );
    addEventListener("pointerdown", (event) => {
      if (!root.contains(event.target)) this.close();
    });
    append(root, [
      h(
        "div",
        {class: "find"},
        this.toggle,
        h("div", {class: "field"}, icon("search"), this.input, h("kbd", {"aria-hidden": "true"}, "/")),
      ),
      this.found,
      this.rows,
    ]);
    this.sorted = [...tables].sort(
      (a, b) => COLLATOR.compare(a.owner, b.owner) || COLLATOR.compare(a.name, b.name),
    );
    this.refresh();
  }

  openList() {
    this.root.classList.add("open");
    this.toggle.setAttribute("aria-expanded", "true");
  }
  close() {
    this.root.classList.remove("open");
    this.toggle.setAttribute("aria-expanded", "false");
  }

  // What is searched, made on the first search: lower-case text and the row it leads to.
  get index() {
    if (this.cachedIndex) return this.cachedIndex;
    const entries = {tables: [], columns: [], functions: [], types: [], procedures: [], routines: [], sequences: []};
    const add = (kind, text, row, comment = "") =>
      entries[kind].push({text: text.toLowerCase(), row: {...row, comment}, comment: comment.toLowerCase()});
    for (const table of this.sorted) {
      add("tables", table.title, this.tableRow(table, true), table.comment);
      table.rawColumns.forEach(([name, , , , , comment = ""]) => {
        entries.columns.push({
          text: `${table.title}.${name}`.toLowerCase(),
          own: name.toLowerCase(),
          comment: comment.toLowerCase(),
          shown: comment,
          table,
          name,
        });
      });
    }
    for (const [list, kind, page, image] of [
      [userTypes, "types", "types", "type"],
      [routines, "routines", "routines", "function"],
      [sequences, "sequences", "sequences", "sequence"],
    ])
      for (const {name, kind: where, comment} of list)
        add(kind, name, {icon: image, name, where, href: `#/${page}/${encodeURIComponent(name)}`}, comment);
    for (const [list, route] of [
      [functions, "functions"],
      [booleanFunctions, "boolean-functions"],
    ]) {
      for (const f of list) {
        add("functions", f.owner ? `${f.owner}.${f.name}` : f.name, {
          icon: "function",
          name: f.name,
          where: f.owner,
          href: `#/${route}/${encodeURIComponent(f.name)}`,
        });
      }
    }
    for (const type of data.dataTypes) {
      add("types", type[0], {
        icon: "type",
        name: type[0],
        where: type[2],
        href: `#/types/${encodeURIComponent(type[0])}`,
      });
    }
    for (const [owner, name] of procedures) {
      add("procedures", owner ? `${owner}.${name}` : name, {
        icon: "procedure",
        name,
        where: owner,
        href: `#/procedures/${encodeURIComponent(name)}`,
      });
    }
    return (this.cachedIndex = entries);
  }

  tableRow(table, withOwner) {
    return {
      icon: table.kind,
      name: table.name,
      where: withOwner ? table.owner : "",
      number: table.rawColumns.length || "",
      href: table.href,
      table,
    };
  }

  browse() {
    const byOwner = tables.some((table) => table.owner);
    const groups = new Map();
    for (const table of this.sorted) {
      if (table.partOf) continue; // stands on its table's page
      const heading = byOwner
        ? table.owner || "(no owner)"
        : {table: "Tables", view: "Views", synonym: "Synonyms"}[table.kind];
      if (!groups.has(heading)) groups.set(heading, []);
      groups.get(heading).push(table);
    }
    const rows = [];
    for (const [heading, members] of groups) {
      const open = !this.collapsed.has(heading);
      rows.push({heading, open, number: members.length});
      if (open) for (const table of members) rows.push(this.tableRow(table, false));
    }
    return rows;
  }

  search(words) {
    const matches = ({text, comment = ""}) =>
      words.every((word) => text.includes(word) || comment.includes(word));
    const rank = ({text, row}) => {
      const name = row.name.toLowerCase();
      if (name === words[0] || text === words[0]) return 0;
      if (name.startsWith(words[0])) return 1;
      return text.startsWith(words[0]) ? 2 : text.includes(words[0]) ? 3 : 4;
    };
    const rows = [];
    const section = (heading, found, limit, toRow) => {
      if (!found.length) return;
      rows.push({heading, open: true, fixed: true, number: found.length});
      for (const entry of found.slice(0, limit)) rows.push({...toRow(entry), words});
    };
    const named = (heading, kind, limit) => {
      const found = this.index[kind].filter(matches).map((entry) => ({...entry, rank: rank(entry)}));
      section(
        heading,
        found.sort((a, b) => a.rank - b.rank),
        limit,
        ({row, text}) => ({...row, comment: words.every((word) => text.includes(word)) ? "" : row.comment}),
      );
    };
    named("Tables", "tables", Infinity);
    // A column counts by its own name or comment; its table's name may narrow the search down, also as
    // table.column.
    const own = ({own: name, text, comment}) =>
      words.some((word) => {
        const last = word.slice(word.lastIndexOf(".") + 1);
        return name.includes(word) || comment.includes(word) || (last !== word && text.includes(word) && name.startsWith(last));
      });
    section(
      "Columns",
      this.index.columns
        .filter((entry) => own(entry) && matches(entry))
        .map((entry) => ({...entry, rank: this.rankColumn(entry, words)}))
        .sort((a, b) => a.rank - b.rank),
      LIMIT.columns,
      ({table, name, text, shown}) => ({
        icon: "column",
        name,
        where: table.title,
        href: `${table.href}?column=${encodeURIComponent(name)}`,
        comment: words.every((word) => text.includes(word)) ? "" : shown,
      }),
    );
    named("Routines", "routines", LIMIT.others);
    named("Functions", "functions", LIMIT.others);
    named("Types", "types", LIMIT.others);
    named("Sequences", "sequences", LIMIT.others);
    named("Procedures", "procedures", LIMIT.others);
    return rows;
  }

  rankColumn({text, own}, words) {
    if (words.some((word) => own === word || text === word || text.endsWith(`.${word}`))) return 0;
    return words.some((word) => own.startsWith(word)) ? 1 : words.some((word) => text.includes(word)) ? 2 : 3;
  }

  refresh() {
    const words = this.input.value.toLowerCase().split(/\s+/).filter(Boolean);
    this.list = words.length ? this.search(words) : this.browse();
    this.active = words.length ? this.list.findIndex((row) => row.href) : -1;
    this.found.textContent = !words.length
      ? count(wholeTables.length, "table, view or synonym", "tables, views and synonyms")
      : this.list.length
        ? count(
            this.list.filter((row) => row.heading).reduce((sum, row) => sum + row.number, 0),
            "match",
            "matches",
          )
        : "Nothing found";
    this.spacer.style.height = `${this.list.length * ROW_HEIGHT}px`;
    if (words.length) this.rows.scrollTop = 0;
    this.draw();
  }

  show(table) {
    this.current = table;
    if (table && !this.input.value) {
      const position = this.list.findIndex((row) => row.table === table);
      const top = position * ROW_HEIGHT;
      if (
        position >= 0 &&
        (top < this.rows.scrollTop || top > this.rows.scrollTop + this.rows.clientHeight - ROW_HEIGHT)
      ) {
        this.rows.scrollTop = top - this.rows.clientHeight / 2;
      }
    }
    this.draw();
  }

  draw() {
    const first = Math.max(0, Math.floor(this.rows.scrollTop / ROW_HEIGHT) - 4);
    const last = Math.min(
      this.list.length,
      Math.ceil((this.rows.scrollTop + this.rows.clientHeight) / ROW_HEIGHT) + 4,
    );
    const visible = [];
    for (let position = first; position < last; ++position) visible.push(this.makeRow(position));
    this.spacer.replaceChildren(...visible);
    if (this.active >= first && this.active < last)
      this.input.setAttribute("aria-activedescendant", `row-${this.active}`);
    else this.input.removeAttribute("aria-activedescendant");
  }

  makeRow(position) {
    const row = this.list[position];
    const classes = [
      "row",
      row.heading && "heading",
      position === this.active && "active",
      row.table && row.table === this.current && "current",
    ];
    return h(
      "div",
      {
        id: `row-${position}`,
        role: "option",
        class: classes.filter(Boolean).join(" "),
        style: `top:${position * ROW_HEIGHT}px`,
        "aria-selected": String(position === this.active),
        "aria-setsize": this.list.length,
        "aria-posinset": position + 1,
        "aria-expanded": row.heading && !row.fixed ? String(row.open) : null,
        title: row.heading ? null : [row.where ? `${row.where}.${row.name}` : row.name, row.comment].filter(Boolean).join("\n"),
        onclick: () => this.open(position),
      },
      row.heading ? !row.fixed && icon("chevron") : icon(row.icon),
      h("span", {class: "name"}, row.heading ?? highlight(row.name, row.words)),
      (row.comment || row.where) &&
        h("span", {class: "where"}, row.comment ? highlight(row.comment, row.words) : row.where),
      h("span", {class: "number"}, row.number === undefined ? "" : String(row.number)),
    );
  }

  open(position) {
    const row = this.list[position];
    if (!row) return;
    if (row.heading) {
      if (row.fixed) return;
      if (!this.collapsed.delete(row.heading)) this.collapsed.add(row.heading);
      this.refresh();
      this.active = position;
      this.draw();
    } else if (location.hash === row.href) {
      this.close();
      document.querySelector("main h1")?.focus();
    } else {
      location.hash = row.href;
    }
  }

  move(by) {
    if (!this.list.length) return;
    const next = this.active < 0 ? (by > 0 ? 0 : this.list.length - 1) : this.active + by;
    this.active = Math.max(0, Math.min(this.list.length - 1, next));
    const top = this.active * ROW_HEIGHT;
    if (top < this.rows.scrollTop) this.rows.scrollTop = top;
    else if (top + ROW_HEIGHT > this.rows.scrollTop + this.rows.clientHeight)
      this.rows.scrollTop = top + ROW_HEIGHT - this.rows.clientHeight;
    this.draw();
  }

  onKey(event) {
    const page = Math.max(1, Math.floor(this.rows.clientHeight / ROW_HEIGHT) - 1);
    const moves = {ArrowDown: 1, ArrowUp: -1, PageDown: page, PageUp: -page};
    if (event.key in moves) this.move(moves[event.key]);
    else if (event.key === "Enter") this.open(this.active);
    else if (event.key === "Escape" && this.input.value) {
      this.input.value = "";
      this.refresh();
    } else if (event.key === "Escape") {
      this.close();
      document.getElementById("main").focus();
    }
    else return;
    event.preventDefault();
  }
}

// The text with every found word marked.
function highlight(text, words) {
  if (!words) return text;
  const lower = text.toLowerCase();
  const pieces = [];
  for (let at = 0; at < text.length;) {
    const hits = words.map((word) => [lower.indexOf(word, at), word.length]).filter(([from]) => from >= 0);
    if (!hits.length || lower.length !== text.length) {
      pieces.push(text.slice(at));
      break;
    }
    const [from, length] = hits.reduce((a, b) => (b[0] < a[0] ? b : a));
    pieces.push(text.slice(at, from), h("mark", {}, text.slice(from, from + length)));
    at = from + length;
  }
  return pieces;
}
