// Workbook files for the test: one with hostile names, and large ones.

function dataType(typeName) {
  return {
    typeName,
    otherTypeName: "",
    name: "",
    owner: "",
    physicalCode: 3,
    genericCode: 3,
    typeGroup: 1,
    length: 0,
    precision: 10,
    scale: 0,
    long: false,
    sizeModifiable: false,
    distinct: false,
    extendedId: 0,
    extendedTypeNames: [],
    base: {code: 0, owner: "", extendedTypeName: "", genericCode: 0, typeGroup: 0},
    components: [],
  };
}

function column(name, typeName = "INTEGER", required = true, primaryKey = false) {
  return {
    name,
    columnId: 0,
    dataType: typeName && dataType(typeName),
    physicalCode: 3,
    width: 0,
    precision: 10,
    scale: 0,
    required,
    readOnly: false,
    generatedKey: false,
    primaryKey,
    intervalMax: 0,
    intervalMin: 0,
    extendedTypeName: "",
  };
}

function table(owner, name, columns, type = "table") {
  return {
    owner,
    name,
    type,
    synonym: {
      synonymId: 0,
      baseTableId: 0,
      serverName: "",
      databaseName: "",
      baseOwner: "",
      baseTableName: "",
    },
    columns,
    primaryKey: columns.filter((c) => c.primaryKey).map((c) => c.name),
    foreignKeys: [],
  };
}

// Both keys of the relationship in which `from`.`fromColumn` refers to `to`.`toColumn`.
function relate(tables, from, fromColumn, to, toColumn) {
  const side = (index, name) => [
    {owner: tables[index].owner, table: tables[index].name, index, column: name},
  ];
  const [key, foreignKey] = [side(to, toColumn), side(from, fromColumn)];
  tables[to].foreignKeys.push({key, foreignKey, oneToOne: false, role: "forward"});
  tables[from].foreignKeys.push({key: foreignKey, foreignKey: key, oneToOne: false, role: "mirror"});
}

function workbook(tables, more = {}) {
  return {
    format: "workbook",
    version: 1,
    source: {dbmsName: "Test Server", dbmsVersion: 1, dbmsType: 4, route: "native"},
    result: true,
    status: 0,
    errorsShown: 0,
    ownerNames: [],
    tableNames: [],
    columnNames: [],
    dataTypes: [dataType("INTEGER")],
    tables,
    operators: [],
    booleanFunctions: [],
    functions: [],
    aggregates: [],
    procedures: [],
    ...more,
  };
}

// Names that would break out of the page's script, markup or addresses.
export const HOSTILE = [
  "</script><script>document.title='broken'</script>",
  "<!--<script>",
  '"><img src=x onerror="document.title=\'broken\'">',
  "a&amp;b",
  'it\'s "quoted"',
  "100%/slash?#hash",
  "line\nbreak",
  "{{data}}",
  "𝒯able ü",
  "{{title}}\u2028",
];

export function hostileSchema() {
  const tables = HOSTILE.map((name) =>
    table(name, name, [column(name, "INTEGER", true, true), column(`${name}2`, name, false)]),
  );
  for (let i = 1; i < tables.length; ++i) relate(tables, i, `${HOSTILE[i]}2`, 0, HOSTILE[0]);
  return workbook(tables, {
    status: 9,
    incomplete: true,
    source: {dbmsName: HOSTILE[0], dbmsVersion: 0, dbmsType: 0, route: "odbc"},
    functions: HOSTILE.map((name) => ({
      owner: "",
      name,
      overloads: [{signature: `${name}(a)`, result: name}],
    })),
    procedures: HOSTILE.map((name) => ({owner: name, name, qualifier: name, server: name})),
    operators: [{name: "<", description: "<"}],
    aggregates: [{name: "<b>", description: "&lt;"}],
  });
}

// `count` tables of twelve columns with two owners; each refers to two others. Most columns have no
// type, which makes up most of a file and little of a page.
export function largeSchema(count) {
  const tables = [];
  for (let i = 0; i < count; ++i) {
    const columns = [
      column("id", "INTEGER", true, true),
      column("parent_id", "INTEGER", false),
      column("group_id"),
    ];
    for (let c = 3; c < 12; ++c) columns.push(column(`value_${c}`, c === 3 ? "VARCHAR" : null, false));
    tables.push(table(i % 2 ? "sales" : "stock", `table_${i}`, columns));
  }
  for (let i = 1; i < count; ++i) {
    relate(tables, i, "parent_id", Math.floor(i / 3), "id");
    relate(tables, i, "group_id", i % 20, "id");
  }
  return workbook(tables);
}
