-- dialect: sqlite
-- product: SQLite
-- version: 3.26
-- owners: no
-- names: ignore case
-- quote: "
-- list limit: 900

-- One file is one schema, `main`: attached and temporary tables are not read. The second argument of the pragmas
-- says so; without it a temporary table would hide the one of the file that has its name.
--
-- The catalog keeps a table as the text of its CREATE statement, which `definition` hands over: names of constraints,
-- checks, collations, AUTOINCREMENT, deferrable, expressions of generated columns, and before 3.37 WITHOUT ROWID too.

-- A type is any words; the database looks into them for what it stores. Names that say more come first.
-- type: BIT = bit, boolean, bool
-- type: TINYINT = tinyint, tinyint unsigned
-- type: SMALLINT = smallint, smallint unsigned, int2
-- type: BIGINT = bigint, bigint unsigned, int8, unsigned big int, big int
-- type: INTEGER = integer, int, mediumint, int4, integer unsigned, int unsigned, unsigned int, unsigned integer, serial
-- type: REAL = real, float4
-- type: DOUBLE = double, double precision, float8
-- type: FLOAT = float
-- type: DECIMAL = decimal, dec, money
-- type: NUMERIC = numeric, number
-- type: CHAR = char, character, nchar, native character
-- type: VARCHAR = varchar, character varying, varying character, nvarchar, varchar2, nvarchar2, char varying
-- type: LONGVARCHAR = text, clob, tinytext, mediumtext, longtext, ntext, nclob, long varchar
-- type: BINARY = binary
-- type: VARBINARY = varbinary, binary varying
-- type: LONGVARBINARY = blob, tinyblob, mediumblob, longblob, bytea, image
-- type: DATE = date
-- type: TIME = time
-- type: TIMESTAMP = timestamp, datetime

-- @server
-- row: version, sample, option:encoding
SELECT sqlite_version(), 'ä€', encoding FROM pragma_encoding;

-- The row of a table in sqlite_master is its number: by it what belongs to a chosen table is found without a walk
-- through the whole catalog, of which SQLite keeps no index.
-- @tables
-- row: table_id, table, kind, definition
SELECT m.rowid, m.name, CASE WHEN m.name LIKE 'sqlite\_%' ESCAPE '\' THEN 'system table' ELSE m.type END, m.sql
FROM sqlite_master m
WHERE m.type IN ('table', 'view')
  AND (m.name NOT LIKE 'sqlite\_%' ESCAPE '\' /*@system OR m.type = 'table' */)
  /*@tables AND m.name COLLATE NOCASE IN (?list(table)) */;

-- What makes a column (a, b) of DECIMAL(10,2) precise stands in the text of its type alone.
-- @columns
-- row: table, position|not_null|key_position|generated{0=,1=,2=virtual,3=stored}|option:hidden{0=,2=,3=}|length|precision|scale, column, type, base_type, default
SELECT m.name,
       (p.cid + 1) || '|' || p."notnull" || '|' || p.pk || '|' || p.hidden || '|' || p.hidden || '|' ||
         CASE instr(p.type, '(') WHEN 0 THEN '||'
           ELSE CAST(substr(p.type, instr(p.type, '(') + 1) AS INTEGER) || '|' ||
                CAST(substr(p.type, instr(p.type, '(') + 1) AS INTEGER) || '|' ||
                CASE instr(p.type, ',') WHEN 0 THEN '' ELSE CAST(substr(p.type, instr(p.type, ',') + 1) AS INTEGER) END
         END,
       p.name, p.type,
       CASE instr(p.type, '(') WHEN 0 THEN p.type ELSE rtrim(substr(p.type, 1, instr(p.type, '(') - 1)) END,
       p.dflt_value
FROM sqlite_master m CROSS JOIN pragma_table_xinfo(m.name, 'main') p
WHERE m.type = 'table'
  AND (m.name NOT LIKE 'sqlite\_%' ESCAPE '\' /*@system OR TRUE */)
  /*@ids AND m.rowid IN (?list(table_id)) */;

-- Apart from the tables: a view that does not resolve fails the statement, which is then asked view by view.
-- @view_columns
-- row: table, position, column, type, base_type
SELECT m.name, p.cid + 1, p.name, p.type,
       CASE instr(p.type, '(') WHEN 0 THEN p.type ELSE rtrim(substr(p.type, 1, instr(p.type, '(') - 1)) END
FROM sqlite_master m CROSS JOIN pragma_table_xinfo(m.name, 'main') p
WHERE m.type = 'view'
  /*@ids AND m.rowid IN (?list(table_id)) */;

-- @view_columns fallback for each view
-- row: table, position, column, type, base_type
SELECT m.name, p.cid + 1, p.name, p.type,
       CASE instr(p.type, '(') WHEN 0 THEN p.type ELSE rtrim(substr(p.type, 1, instr(p.type, '(') - 1)) END
FROM sqlite_master m CROSS JOIN pragma_table_xinfo(m.name, 'main') p
WHERE m.type = 'view' /*@each AND m.name = ?(table) */;

-- Behind the views' columns: pragma_table_list resolves every view, which takes the square of their number where nobody did
-- before. For chosen tables it is asked only where a virtual table may have made them: the definition tells the rest.
-- @table_options since 3.37
-- row: table, option:strict|option:without rowid|option:shadow table
SELECT t.name,
       CASE WHEN t.strict THEN 1 ELSE '' END || '|' || CASE WHEN t.wr THEN 1 ELSE '' END || '|' ||
         CASE t.type WHEN 'shadow' THEN 1 ELSE '' END
FROM /*@ids sqlite_master v CROSS JOIN sqlite_master m ON v.type = 'table' AND v.rootpage = 0
  AND m.rowid IN (?list(table_id)) AND substr(m.name, 1, length(v.name) + 1) = v.name || '_' COLLATE NOCASE
CROSS JOIN pragma_table_list(m.name) t @else*/ pragma_table_list t /*@end*/
WHERE t.schema = 'main' AND (t.strict OR t.wr OR t.type = 'shadow');

-- A key has an index, but for the key that is the row's number itself, which comes with the columns alone.
-- @indexes
-- row: table, name, unique|key{c=,u=unique,pk=primary}|position|descending, column, collation, definition
SELECT m.name, i.name, i."unique" || '|' || i.origin || '|' || x.seqno || '|' || x."desc", x.name,
       NULLIF(x.coll, 'BINARY'),
       CASE x.seqno WHEN 0 THEN d.sql END
FROM sqlite_master m
CROSS JOIN pragma_index_list(m.name, 'main') i
CROSS JOIN pragma_index_xinfo(i.name, 'main') x
LEFT JOIN /*@ids (SELECT e.name, e.sql FROM sqlite_master e WHERE e.type = 'index' AND e.tbl_name IN
  (SELECT n.name FROM sqlite_master n WHERE n.rowid IN (?list(table_id))) LIMIT -1) d ON d.name = i.name
  @else*/ sqlite_master d ON d.type = 'index' AND d.name = i.name /*@end*/
WHERE m.type = 'table' AND x.key = 1
  AND (m.name NOT LIKE 'sqlite\_%' ESCAPE '\' /*@system OR TRUE */)
  /*@ids AND m.rowid IN (?list(table_id)) */;

-- A key without target columns refers to the primary key. What is written behind MATCH is not kept by the database.
-- @foreign_keys
-- row: table, name, key_id|position, column, target_table, target_column, on_update, on_delete,
-- row: match{NONE=}
SELECT m.name, NULL, f.id || '|' || f.seq, f."from", f."table", f."to", lower(f.on_update), lower(f.on_delete), f.match
FROM sqlite_master m CROSS JOIN pragma_foreign_key_list(m.name, 'main') f
WHERE m.type = 'table'
  /*@ids AND m.rowid IN (?list(table_id)) */;

-- @triggers
-- row: table, name, definition
SELECT m.tbl_name, m.name, m.sql
FROM sqlite_master m
WHERE m.type = 'trigger'
  /*@ids AND m.tbl_name IN (SELECT n.name FROM sqlite_master n WHERE n.rowid IN (?list(table_id))) */;
