// The schema as the page was given it: compact arrays, made into tables that know their neighbours.

const data = JSON.parse(document.getElementById("data").textContent);
const KINDS = ["table", "view", "synonym"];
const REQUIRED = 1,
  READ_ONLY = 2,
  GENERATED = 4,
  PRIMARY = 8;
const COLLATOR = new Intl.Collator(undefined, {numeric: true, sensitivity: "base"});

// A key, an index, a check, a trigger, a type, a sequence or a routine.
function makeFact([kind, name, text = "", comment = "", body = "", made = ""]) {
  return {kind, name, text, comment, body, made: made !== ""};
}

class Table {
  constructor(index, [owner, name, kind, columns = null, key = [], synonym = null, more = null]) {
    Object.assign(this, {index, name, key, synonym});
    this.owner = data.owners[owner];
    this.kind = KINDS[kind]; // what the icons and colours tell apart
    this.exactKind = more?.kind ?? this.kind;
    this.comment = more?.comment ?? "";
    this.text = more?.text ?? ""; // of a view
    this.keyName = more?.keyName ?? "";
    this.facts = (more?.facts ?? []).map(makeFact); // indexes, checks, triggers, ...
    this.outside = (more?.outside ?? []).map(makeFact); // keys to tables that are not here
    this.partOf = more?.partOf ?? null; // [owner, name, bound]; later the table
    this.bound = "";
    this.parts = []; // partitions, which stand under their table
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
    const [name, type, flags, value = "", notes = "", comment = ""] = this.rawColumns[position];
    return {position, name, type: data.types[type], flags, value, notes, comment};
  }
  get columns() {
    return this.rawColumns.map((_, position) => this.column(position));
  }
  columnNames(positions) {
    return positions.map((position) => this.rawColumns[position][0]);
  }
}

const tables = [...data.tables, ...data.names].map((raw, index) => new Table(index, raw));
// Pages are found by name, so that a link holds in the page of a later import too.
const tableByPath = new Map();
const tablesByName = new Map();
for (const table of tables) {
  const path = `/table/${encodeURIComponent(table.owner)}/${encodeURIComponent(table.name)}`;
  table.path = path;
  for (let n = 2; tableByPath.has(table.path); ++n) table.path = `${path}/${n}`;
  tableByPath.set(table.path, table);
  if (!tablesByName.has(table.name)) tablesByName.set(table.name, []);
  tablesByName.get(table.name).push(table);
}
for (const table of tables) {
  if (!table.partOf) continue;
  const [owner, name, bound] = table.partOf;
  table.bound = bound;
  table.partOf = tableByPath.get(`/table/${encodeURIComponent(owner)}/${encodeURIComponent(name)}`) ?? null;
  table.partOf?.parts.push(table);
}
const wholeTables = tables.filter((table) => !table.partOf);

// The table of an address: by owner and name, or by a name that only one table has.
function findTable(path) {
  const exact = tableByPath.get(path);
  if (exact) return exact;
  const [, page, ...names] = path.split("/");
  if (page !== "table" || names.length < 1) return null;
  const parts = names.map(decode);
  const found = tablesByName.get(parts.at(-1)) ?? [];
  if (parts.length > 1) return found.find(({owner}) => owner === parts[0]) ?? null;
  if (found.length === 1) return found[0];
  // "owner.name" in one piece, as it is written elsewhere.
  return tables.find(({title}) => title === parts[0]) ?? null;
}

function decode(text) {
  try {
    return decodeURIComponent(text);
  } catch {
    return text;
  }
}

// `from` refers to `to`; both sides give column positions.
const relations = data.relations.map((raw, index) => {
  const [from, fromColumns, to, toColumns, oneToOne, name = "", acts = "", comment = ""] = raw;
  const relation = {index, from: tables[from], fromColumns, to: tables[to], toColumns, oneToOne: !!oneToOne};
  Object.assign(relation, {name, acts, comment});
  relation.from.outgoing.push(relation);
  relation.to.incoming.push(relation);
  return relation;
});
relations.forEach((relation) => {
  relation.optional = relation.fromColumns.some((c) => !(relation.from.rawColumns[c][2] & REQUIRED));
});

function describeRelation({from, fromColumns, to, toColumns, name, acts}) {
  const more = [acts, name].filter(Boolean).map((text) => `\n${text}`);
  return `${from.title} (${from.columnNames(fromColumns).join(", ")}) → ${to.title} (${to.columnNames(toColumns).join(", ")})${more.join("")}`;
}

// The table and all within `distance` relations of it, nearest first.
function neighbourhood(center, distance) {
  const found = new Map([[center, 0]]);
  const weight = (table) => table.incoming.length + table.outgoing.length;
  for (const [table, depth] of found) {
    if (depth === distance) continue;
    for (const {from, to} of [...table.outgoing, ...table.incoming]) {
      for (const next of [from, to])
        if (!found.has(next) && !next.partOf) found.set(next, depth + 1);
    }
  }
  // Of those as near, the ones with the most relations first: a picture of the first few shows them.
  return [...found].sort((a, b) => a[1] - b[1] || weight(b[0]) - weight(a[0])).map(([table]) => table);
}

function relationsAmong(some) {
  const inside = new Set(some);
  return some.flatMap((table) => table.outgoing.filter((relation) => inside.has(relation.to)));
}

// Sorts by name what an exact reading knows beside tables.
function namedFacts(list) {
  return list.map(makeFact).sort((a, b) => COLLATOR.compare(a.name, b.name));
}
const routines = namedFacts(data.routines);
const sequences = namedFacts(data.sequences);
const userTypes = namedFacts(data.userTypes);

// Functions and procedures that stand among the routines, with more about them, are not listed twice.
const routineNames = new Set(routines.map(({name}) => name));
const isNoRoutine = ([owner, name]) => !routineNames.has(owner ? `${owner}.${name}` : name);
const toFunction = ([owner, name, overloads]) => ({owner, name, overloads});
const functions = data.functions.filter(isNoRoutine).map(toFunction);
const booleanFunctions = data.booleanFunctions.filter(isNoRoutine).map(toFunction);
const procedures = data.procedures.filter(isNoRoutine);
