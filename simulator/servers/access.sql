-- Microsoft Access. A file, not a server: there are no owners, the columns lie in the pages of each
-- table and not in a table of columns, and of the relationships MSysRelationships alone tells.
CREATE TABLE MSysObjects(
  Id INTEGER, ParentId INTEGER, Name NVARCHAR(64), Type SMALLINT, Flags INTEGER,
  Owner VARBINARY(255));
CREATE TABLE MSysRelationships(
  szRelationship NVARCHAR(64), szObject NVARCHAR(64), szColumn NVARCHAR(64),
  szReferencedObject NVARCHAR(64), szReferencedColumn NVARCHAR(64), icolumn INTEGER,
  ccolumn INTEGER, grbit INTEGER);
CREATE TABLE MSysQueries(
  ObjectId INTEGER, Attribute SMALLINT, Name1 NVARCHAR(255), Expression NVARCHAR(255));
CREATE INDEX MSysObjectsName ON MSysObjects(Name);
CREATE INDEX MSysRelationshipsTarget ON MSysRelationships(szReferencedObject);

-- Types 1: table, 5: query, 8: relationship. Flags with the highest bit: a system object.
INSERT INTO MSysObjects
  SELECT number, 0, name, CASE type WHEN 'VIEW' THEN 5 ELSE 1 END, 0, NULL FROM seed_table;
INSERT INTO MSysObjects VALUES
  (101, 0, 'MSysObjects', 1, -2147483648, NULL), (102, 0, 'MSysQueries', 1, -2147483648, NULL),
  (103, 0, 'MSysRelationships', 1, -2147483648, NULL), (201, 0, 'delete paid fines', 5, 32, NULL);
INSERT INTO MSysQueries VALUES
  (201, 1, NULL, NULL), (201, 5, 'fine', NULL), (201, 8, NULL, 'fine.paid_at IS NOT NULL');
INSERT INTO MSysRelationships
  SELECT t.name || p.name || k.number, t.name, k.column_name, p.name, k.target_column,
         k.position - 1, (SELECT max(position) FROM seed_foreign_key n WHERE n.number = k.number), 0
  FROM seed_foreign_key k JOIN seed_table t ON t.number = k.table_number
                          JOIN seed_table p ON p.number = k.target_number;

CREATE TABLE sim_types(
  type_name TEXT PRIMARY KEY, data_type INTEGER, column_size INTEGER, create_params TEXT,
  auto_increment INTEGER, max_scale INTEGER);
INSERT INTO sim_types VALUES
  ('GUID', -11, 36, NULL, NULL, NULL), ('BIT', -7, 1, NULL, NULL, NULL),
  ('BYTE', -6, 3, NULL, 0, 0), ('LONGBINARY', -4, 1073741823, NULL, NULL, NULL),
  ('VARBINARY', -3, 510, 'MAX LENGTH', NULL, NULL), ('BINARY', -2, 510, 'LENGTH', NULL, NULL),
  ('LONGCHAR', -10, 1073741823, NULL, NULL, NULL), ('CHAR', -8, 255, 'LENGTH', NULL, NULL),
  ('CURRENCY', 2, 19, NULL, 0, 4), ('INTEGER', 4, 10, NULL, 0, 0),
  ('COUNTER', 4, 10, NULL, 1, 0), ('SMALLINT', 5, 5, NULL, 0, 0), ('REAL', 7, 24, NULL, 0, NULL),
  ('DOUBLE', 8, 53, NULL, 0, NULL), ('DATETIME', 93, 19, NULL, NULL, 0),
  ('VARCHAR', -9, 255, 'MAX LENGTH', NULL, NULL), ('DECIMAL', 3, 28, 'PRECISION,SCALE', 0, 28);

CREATE TABLE sim_columns(
  owner TEXT, table_name TEXT, position INTEGER, column_name TEXT, type_name TEXT,
  column_size INTEGER, decimal_digits INTEGER, nullable INTEGER, remarks TEXT, column_def TEXT);
CREATE INDEX sim_columns_name ON sim_columns(table_name);
INSERT INTO sim_columns
  SELECT NULL, t.name, c.position, c.name,
         CASE WHEN c.serial = 1 AND c.type = 'INTEGER' THEN 'COUNTER'
              WHEN c.type IN ('DATE', 'TIME', 'TIMESTAMP') THEN 'DATETIME'
              WHEN c.type = 'BIGINT' THEN 'DECIMAL' WHEN c.type = 'TEXT' THEN 'LONGCHAR'
              WHEN c.type = 'BLOB' THEN 'LONGBINARY' WHEN c.type = 'BOOLEAN' THEN 'BIT'
              WHEN c.type = 'TINYINT' THEN 'BYTE'
              WHEN c.type = 'DECIMAL' AND c.name IN ('salary', 'amount') THEN 'CURRENCY'
              ELSE c.type END,
         CASE WHEN c.type = 'BIGINT' THEN 19 WHEN c.type <> 'DECIMAL' THEN c.size
              WHEN c.name NOT IN ('salary', 'amount') THEN c.size END,
         CASE WHEN c.name IN ('salary', 'amount') THEN 4 ELSE c.digits END, c.nullable, NULL, NULL
  FROM seed_column c JOIN seed_table t ON t.number = c.table_number;
INSERT INTO sim_columns
  SELECT NULL, o.Name, c.cid + 1, c.name,
         CASE WHEN c.type LIKE 'NVARCHAR%' THEN 'VARCHAR' WHEN c.type LIKE 'VARBIN%' THEN 'VARBINARY'
              ELSE c.type END, NULL, NULL, 1, NULL, NULL
  FROM MSysObjects o, pragma_table_info(o.Name) c WHERE o.Flags < 0;

CREATE VIEW sim_tables AS
  SELECT NULL AS owner, Name AS name,
         CASE WHEN Flags < 0 THEN 'SYSTEM TABLE' WHEN Type = 5 THEN 'VIEW' ELSE 'TABLE' END AS type,
         NULL AS remarks
  FROM MSysObjects WHERE Type IN (1, 5) AND Flags <= 0;
-- Neither key function is there: a program finds the keys among the unique indexes.
CREATE VIEW sim_primary_keys AS
  SELECT NULL AS owner, NULL AS table_name, NULL AS position, NULL AS column_name,
         NULL AS key_name
  WHERE 0;
CREATE VIEW sim_foreign_keys AS
  SELECT NULL AS pk_owner, szReferencedObject AS pk_table, szReferencedColumn AS pk_column,
         NULL AS fk_owner, szObject AS fk_table, szColumn AS fk_column, icolumn + 1 AS position,
         szRelationship AS fk_name, NULL AS pk_name
  FROM MSysRelationships;
CREATE TABLE sim_statistics(
  owner TEXT, table_name TEXT, non_unique INTEGER, index_name TEXT, position INTEGER,
  column_name TEXT, descending INTEGER);
CREATE INDEX sim_statistics_name ON sim_statistics(table_name);
INSERT INTO sim_statistics
  SELECT NULL, t.name, 0, 'PrimaryKey', c.key_position, c.name, 0
  FROM seed_column c JOIN seed_table t ON t.number = c.table_number
  WHERE c.key_position IS NOT NULL
  UNION ALL
  SELECT NULL, t.name, 1 - i.is_unique, i.name, i.position, i.column_name, 0
  FROM seed_index i JOIN seed_table t ON t.number = i.table_number;
-- Queries that change something are the procedures.
CREATE VIEW sim_procedures AS
  SELECT NULL AS owner, Name AS name, 1 AS type, NULL AS remarks
  FROM MSysObjects WHERE Type = 5 AND Flags > 0;
