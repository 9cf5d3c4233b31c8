// The schema as the page was given it: compact arrays, made into tables that know their neighbours.

const data = JSON.parse(document.getElementById("data").textContent);
const KINDS = ["table", "view", "synonym"];
const REQUIRED = 1,
  READ_ONLY = 2,
  GENERATED = 4,
  PRIMARY = 8;
const COLLATOR = new Intl.Collator(undefined, {numeric: true, sensitivity: "base"});

class Table {
  constructor(index, [owner, name, kind, columns = null, key = [], synonym = null]) {
    Object.assign(this, {index, name, key, synonym});
    this.owner = data.owners[owner];
    this.kind = KINDS[kind];
    this.nameOnly = columns === null; // its columns were not read
    this.rawColumns = columns ?? [];
    this.outgoing = []; // relations in which this table refers to another
    this.incoming = [];
    this.path = ""; // of its page, behind "#"
  }
  get title() {
    return this.owner ? `${this.owner}.${this.name}` : this.name;
  }
  get href() {
    return `#${this.path}`;
  }
  column(position) {
    const [name, type, flags] = this.rawColumns[position];
    return {position, name, type: data.types[type], flags};
  }
  get columns() {
    return this.rawColumns.map((_, position) => this.column(position));
  }
  columnNames(positions) {
    return positions.map((position) => this.rawColumns[position][0]);
  }
}

const tables = [...data.tables, ...data.names].map((raw, index) => new Table(index, raw));
const tableByPath = new Map();
for (const table of tables) {
  const path = `/table/${encodeURIComponent(table.owner)}/${encodeURIComponent(table.name)}`;
  table.path = path;
  for (let n = 2; tableByPath.has(table.path); ++n) table.path = `${path}/${n}`;
  tableByPath.set(table.path, table);
}

// `from` refers to `to`; both sides give column positions.
const relations = data.relations.map(([from, fromColumns, to, toColumns, oneToOne], index) => {
  const relation = {index, from: tables[from], fromColumns, to: tables[to], toColumns, oneToOne: !!oneToOne};
  relation.from.outgoing.push(relation);
  relation.to.incoming.push(relation);
  return relation;
});
relations.forEach((relation) => {
  relation.optional = relation.fromColumns.some((c) => !(relation.from.rawColumns[c][2] & REQUIRED));
});

function describeRelation({from, fromColumns, to, toColumns}) {
  return `${from.title} (${from.columnNames(fromColumns).join(", ")}) → ${to.title} (${to.columnNames(toColumns).join(", ")})`;
}

// The table and all within `distance` relations of it, nearest first.
function neighbourhood(center, distance) {
  const found = new Map([[center, 0]]);
  for (const [table, depth] of found) {
    if (depth === distance) continue;
    for (const {from, to} of [...table.outgoing, ...table.incoming]) {
      if (!found.has(from)) found.set(from, depth + 1);
      if (!found.has(to)) found.set(to, depth + 1);
    }
  }
  return [...found.keys()];
}

function relationsAmong(some) {
  const inside = new Set(some);
  return some.flatMap((table) => table.outgoing.filter((relation) => inside.has(relation.to)));
}

const functions = data.functions.map(([owner, name, overloads]) => ({owner, name, overloads}));
const booleanFunctions = data.booleanFunctions.map(([owner, name, overloads]) => ({owner, name, overloads}));
