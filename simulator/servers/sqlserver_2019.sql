-- Microsoft SQL Server 2019: the shop, in the catalog views of the schema sys. Names, order and types of the columns are those of
-- https://learn.microsoft.com/en-us/sql/relational-databases/system-catalog-views/ (the pages sys-schemas, sys-objects, sys-tables, sys-columns, sys-types, sys-table-types,
-- sys-default-constraints, sys-computed-columns, sys-identity-columns, sys-key-constraints, sys-indexes, sys-index-columns, sys-foreign-keys,
-- sys-foreign-key-columns, sys-check-constraints, sys-triggers, sys-trigger-events, sys-sql-modules, sys-sequences, sys-synonyms, sys-parameters,
-- extended-properties-catalog-views-sys-extended-properties); columns that nobody asks for are left out.
BEGIN;
CREATE TABLE sys.schemas(name SYSNAME, schema_id INT, principal_id INT);
CREATE TABLE sys.objects(name SYSNAME, object_id INT PRIMARY KEY, principal_id INT, schema_id INT, parent_object_id INT, type CHAR(2), type_desc NVARCHAR(60),
  is_ms_shipped BIT);
CREATE TABLE sys.tables(name SYSNAME, object_id INT PRIMARY KEY, schema_id INT, is_memory_optimized BIT, temporal_type TINYINT, history_table_id INT);
CREATE TABLE sys.columns(object_id INT, name SYSNAME, column_id INT, system_type_id TINYINT, user_type_id INT, max_length SMALLINT, precision TINYINT,
  scale TINYINT, collation_name SYSNAME, is_nullable BIT, is_rowguidcol BIT, is_identity BIT, is_computed BIT, default_object_id INT, is_sparse BIT,
  generated_always_type TINYINT, is_hidden BIT, PRIMARY KEY (object_id, column_id)) WITHOUT ROWID;
CREATE TABLE sys.types(name SYSNAME, system_type_id TINYINT, user_type_id INT PRIMARY KEY, schema_id INT, max_length SMALLINT, precision TINYINT, scale TINYINT,
  is_nullable BIT, is_user_defined BIT, is_assembly_type BIT, is_table_type BIT);
CREATE TABLE sys.table_types(name SYSNAME, user_type_id INT, schema_id INT, type_table_object_id INT);
CREATE TABLE sys.default_constraints(name SYSNAME, object_id INT, parent_object_id INT, parent_column_id INT, definition NVARCHAR(4000));
CREATE TABLE sys.computed_columns(object_id INT, column_id INT, definition NVARCHAR(4000), is_persisted BIT, PRIMARY KEY (object_id, column_id));
CREATE TABLE sys.identity_columns(object_id INT, column_id INT, seed_value BIGINT, increment_value BIGINT, PRIMARY KEY (object_id, column_id));
CREATE TABLE sys.key_constraints(name SYSNAME, object_id INT, schema_id INT, parent_object_id INT, type CHAR(2), unique_index_id INT, is_system_named BIT);
CREATE TABLE sys.indexes(object_id INT, name SYSNAME, index_id INT, type TINYINT, type_desc NVARCHAR(60), is_unique BIT, is_primary_key BIT,
  is_unique_constraint BIT, is_disabled BIT, is_hypothetical BIT, filter_definition NVARCHAR(4000), PRIMARY KEY (object_id, index_id));
CREATE TABLE sys.index_columns(object_id INT, index_id INT, index_column_id INT, column_id INT, key_ordinal TINYINT, partition_ordinal TINYINT,
  is_descending_key BIT, is_included_column BIT, PRIMARY KEY (object_id, index_id, index_column_id)) WITHOUT ROWID;
CREATE TABLE sys.foreign_keys(name SYSNAME, object_id INT PRIMARY KEY, schema_id INT, parent_object_id INT, referenced_object_id INT, is_disabled BIT,
  is_not_trusted BIT, delete_referential_action TINYINT, update_referential_action TINYINT);
CREATE TABLE sys.foreign_key_columns(constraint_object_id INT, constraint_column_id INT, parent_object_id INT, parent_column_id INT,
  referenced_object_id INT, referenced_column_id INT, PRIMARY KEY (constraint_object_id, constraint_column_id)) WITHOUT ROWID;
CREATE TABLE sys.check_constraints(name SYSNAME, object_id INT, parent_object_id INT, parent_column_id INT, definition NVARCHAR(4000), is_disabled BIT,
  is_not_trusted BIT);
CREATE TABLE sys.triggers(name SYSNAME, object_id INT, parent_class TINYINT, parent_id INT, is_ms_shipped BIT, is_disabled BIT, is_instead_of_trigger BIT);
CREATE TABLE sys.trigger_events(object_id INT, type INT, type_desc NVARCHAR(60));
CREATE TABLE sys.sql_modules(object_id INT PRIMARY KEY, definition TEXT);
CREATE TABLE sys.sequences(name SYSNAME, object_id INT, schema_id INT, start_value BIGINT, increment BIGINT, minimum_value BIGINT, maximum_value BIGINT,
  is_cycling BIT, is_cached BIT, cache_size INT, system_type_id TINYINT, user_type_id INT, precision TINYINT);
CREATE TABLE sys.synonyms(name SYSNAME, object_id INT PRIMARY KEY, schema_id INT, base_object_name NVARCHAR(1035));
CREATE TABLE sys.parameters(object_id INT, name SYSNAME, parameter_id INT, system_type_id TINYINT, user_type_id INT, max_length SMALLINT, precision TINYINT,
  scale TINYINT, is_output BIT);
CREATE TABLE sys.extended_properties(class TINYINT, class_desc NVARCHAR(60), major_id INT, minor_id INT, name SYSNAME, value NVARCHAR(3750));

INSERT INTO sys.schemas VALUES ('dbo', 1, 1), ('guest', 2, 2), ('INFORMATION_SCHEMA', 3, 3), ('sys', 4, 4), ('db_owner', 16384, 16384);
INSERT INTO sys.schemas SELECT name, 4 + number, 1 FROM shop_schema;

INSERT INTO sys.types VALUES
  ('image', 34, 34, 4, 16, 0, 0, 1, 0, 0, 0), ('text', 35, 35, 4, 16, 0, 0, 1, 0, 0, 0), ('date', 40, 40, 4, 3, 10, 0, 1, 0, 0, 0),
  ('time', 41, 41, 4, 5, 16, 7, 1, 0, 0, 0), ('datetime2', 42, 42, 4, 8, 27, 7, 1, 0, 0, 0), ('tinyint', 48, 48, 4, 1, 3, 0, 1, 0, 0, 0),
  ('smallint', 52, 52, 4, 2, 5, 0, 1, 0, 0, 0), ('int', 56, 56, 4, 4, 10, 0, 1, 0, 0, 0), ('real', 59, 59, 4, 4, 24, 0, 1, 0, 0, 0),
  ('money', 60, 60, 4, 8, 19, 4, 1, 0, 0, 0), ('datetime', 61, 61, 4, 8, 23, 3, 1, 0, 0, 0), ('float', 62, 62, 4, 8, 53, 0, 1, 0, 0, 0),
  ('bit', 104, 104, 4, 1, 1, 0, 1, 0, 0, 0), ('decimal', 106, 106, 4, 17, 38, 38, 1, 0, 0, 0), ('bigint', 127, 127, 4, 8, 19, 0, 1, 0, 0, 0),
  ('varbinary', 165, 165, 4, 8000, 0, 0, 1, 0, 0, 0), ('varchar', 167, 167, 4, 8000, 0, 0, 1, 0, 0, 0), ('char', 175, 175, 4, 8000, 0, 0, 1, 0, 0, 0),
  ('nvarchar', 231, 231, 4, 8000, 0, 0, 1, 0, 0, 0), ('sysname', 231, 256, 4, 256, 0, 0, 0, 0, 0, 0), ('xml', 241, 241, 4, -1, 0, 0, 1, 0, 0, 0);
-- The shop's types, as this server has them. length in bytes; -1: max.
CREATE TEMP TABLE here(type TEXT PRIMARY KEY, id INT, length INT, precision INT);
INSERT INTO here VALUES ('INTEGER', 56, 4, 10), ('SMALLINT', 52, 2, 5), ('BIGINT', 127, 8, 19), ('CHAR', 175, NULL, 0), ('VARCHAR', 167, NULL, 0),
  ('DECIMAL', 106, 9, NULL), ('DATE', 40, 3, 10), ('TIMESTAMP', 61, 8, 23), ('DOUBLE', 62, 8, 53), ('CLOB', 167, -1, 0), ('BLOB', 165, -1, 0);
INSERT INTO sys.types SELECT t.name, h.id, 256 + t.number, 4 + t.schema_number, t.size, 0, 0, 1, 1, 0, 0 FROM shop_type t JOIN here h USING (type);

INSERT INTO sys.objects SELECT name, 1000 + number, NULL, 4 + schema_number, 0, CASE kind WHEN 'view' THEN 'V' ELSE 'U' END,
  CASE kind WHEN 'view' THEN 'VIEW' ELSE 'USER_TABLE' END, 0 FROM shop_table;
INSERT INTO sys.tables SELECT name, object_id, schema_id, 0, 0, NULL FROM sys.objects WHERE type = 'U';
INSERT INTO sys.sql_modules SELECT 1000 + number, '-- as it was written' || char(13, 10) || 'CREATE VIEW [sales].[' || name || '] (id, name) WITH SCHEMABINDING AS ' || text FROM shop_table WHERE text IS NOT NULL;
INSERT INTO sys.columns
  SELECT 1000 + c.table_number, c.name, c.position, h.id, CASE WHEN c.type_number IS NULL THEN h.id ELSE 256 + c.type_number END,
         coalesce(h.length, c.size), coalesce(h.precision, c.size), CASE c.type WHEN 'DECIMAL' THEN c.digits WHEN 'TIMESTAMP' THEN 3 ELSE 0 END,
         CASE WHEN c.type IN ('CHAR', 'VARCHAR', 'CLOB') THEN 'Latin1_General_CI_AS' END, c.nullable, 0, c.identity IS NOT NULL, c.expression IS NOT NULL,
         CASE WHEN c.default_text IS NOT NULL THEN 5000 + c.table_number * 100 + c.position ELSE 0 END, 0, 0, 0
  FROM shop_column c JOIN here h USING (type);
INSERT INTO sys.default_constraints SELECT printf('DF_%d_%d', table_number, position), 5000 + table_number * 100 + position, 1000 + table_number, position,
  '(' || default_text || ')' FROM shop_column WHERE default_text IS NOT NULL;
INSERT INTO sys.computed_columns SELECT 1000 + table_number, position, '(' || expression || ')', generated = 'stored' FROM shop_column WHERE expression IS NOT NULL;
INSERT INTO sys.identity_columns SELECT 1000 + table_number, position, 1, 1 FROM shop_column WHERE identity IS NOT NULL;

-- Keys are indexes 1 to 99 of their table by the key's number, others follow.
INSERT INTO sys.objects SELECT k.name, 2000 + k.number, NULL, 4 + t.schema_number, 1000 + t.number, CASE k.kind WHEN 'P' THEN 'PK' WHEN 'U' THEN 'UQ' ELSE k.kind END,
  NULL, 0 FROM shop_key k JOIN shop_table t ON t.number = k.table_number;
INSERT INTO sys.key_constraints SELECT k.name, 2000 + k.number, 4 + t.schema_number, 1000 + t.number, CASE k.kind WHEN 'P' THEN 'PK' ELSE 'UQ' END, k.number, 0
  FROM shop_key k JOIN shop_table t ON t.number = k.table_number WHERE k.kind IN ('P', 'U');
INSERT INTO sys.indexes SELECT 1000 + table_number, name, number, CASE kind WHEN 'P' THEN 1 ELSE 2 END, CASE kind WHEN 'P' THEN 'CLUSTERED' ELSE 'NONCLUSTERED' END, 1, kind = 'P', kind = 'U', 0, 0, NULL
  FROM shop_key WHERE kind IN ('P', 'U');
INSERT INTO sys.index_columns SELECT 1000 + k.table_number, k.number, c.position, c.column_number, c.position, 0, 0, 0
  FROM shop_key k JOIN shop_key_column c ON c.key_number = k.number WHERE k.kind IN ('P', 'U');
INSERT INTO sys.indexes SELECT 1000 + table_number, name, 100 + number, 2, 'NONCLUSTERED', is_unique, 0, 0, 0, 0, NULL FROM shop_index;
INSERT INTO sys.index_columns SELECT 1000 + i.table_number, 100 + i.number, c.position, c.column_number, c.position, 0, c.descending, 0
  FROM shop_index i JOIN shop_index_column c ON c.index_number = i.number;
INSERT INTO sys.foreign_keys SELECT k.name, 2000 + k.number, 4 + t.schema_number, 1000 + k.table_number, 1000 + g.table_number, 0, 0,
  CASE k.on_delete WHEN 'cascade' THEN 1 WHEN 'set null' THEN 2 WHEN 'set default' THEN 3 ELSE 0 END, 0
  FROM shop_key k JOIN shop_table t ON t.number = k.table_number JOIN shop_key g ON g.number = k.target_number;
INSERT INTO sys.foreign_key_columns SELECT 2000 + k.number, c.position, 1000 + k.table_number, c.column_number, 1000 + g.table_number, c.target_column
  FROM shop_key k JOIN shop_key g ON g.number = k.target_number JOIN shop_key_column c ON c.key_number = k.number;
INSERT INTO sys.check_constraints SELECT name, 2000 + number, 1000 + table_number, 0, '(' || expression || ')', 0, 0 FROM shop_key WHERE kind = 'C';

INSERT INTO sys.objects SELECT g.name, 3000 + g.rowid, NULL, 4 + t.schema_number, 1000 + t.number, 'TR', 'SQL_TRIGGER', 0 FROM shop_trigger g JOIN shop_table t ON t.number = g.table_number;
INSERT INTO sys.triggers SELECT name, 3000 + rowid, 1, 1000 + table_number, 0, 0, 0 FROM shop_trigger;
INSERT INTO sys.trigger_events SELECT 3000 + rowid, CASE event WHEN 'insert' THEN 1 WHEN 'update' THEN 2 ELSE 3 END, upper(event) FROM shop_trigger;
INSERT INTO sys.sql_modules SELECT 3000 + rowid, text FROM shop_trigger;
INSERT INTO sys.sequences SELECT name, 3100 + rowid, 4 + schema_number, start, increment, minimum, maximum, cycle, 1, cache, 127, 127, 19 FROM shop_sequence;
INSERT INTO sys.objects SELECT name, 3100 + rowid, NULL, 4 + schema_number, 0, 'SO', 'SEQUENCE_OBJECT', 0 FROM shop_sequence;
INSERT INTO sys.synonyms SELECT name, 3200 + rowid, 4 + schema_number,
  coalesce('[' || server || '].', '') || coalesce('[' || database || '].', '') || '[' || target_schema || '].[' || target || ']' FROM shop_synonym;
INSERT INTO sys.objects SELECT name, object_id, NULL, schema_id, 0, 'SN', 'SYNONYM', 0 FROM sys.synonyms;
INSERT INTO sys.objects SELECT name, 3300 + number, NULL, 4 + schema_number, 0, CASE kind WHEN 'function' THEN 'FN' ELSE 'P' END, NULL, 0 FROM shop_routine;
INSERT INTO sys.sql_modules SELECT 3300 + number, text FROM shop_routine;
INSERT INTO sys.parameters SELECT 3300 + r.number, '', 0, h.id, h.id, coalesce(h.length, r.size), coalesce(h.precision, r.size), coalesce(r.digits, 0), 1
  FROM shop_routine r JOIN here h ON h.type = r.result;
INSERT INTO sys.parameters SELECT 3300 + p.routine_number, '@' || p.name, p.position, h.id, h.id, coalesce(h.length, p.size), coalesce(h.precision, p.size),
  coalesce(p.digits, 0), p.mode = 'out' FROM shop_parameter p JOIN here h USING (type);
INSERT INTO sys.extended_properties SELECT 3, 'SCHEMA', 4 + number, 0, 'MS_Description', comment FROM shop_schema WHERE comment IS NOT NULL;
INSERT INTO sys.extended_properties SELECT 1, 'OBJECT_OR_COLUMN', 1000 + number, 0, 'MS_Description', comment FROM shop_table WHERE comment IS NOT NULL;
INSERT INTO sys.extended_properties SELECT 1, 'OBJECT_OR_COLUMN', 1000 + table_number, position, 'MS_Description', comment FROM shop_column WHERE comment IS NOT NULL;

-- What this server alone has: a table of versions, a column with a collation of its own, an index of some rows that carries a column, one for XML, a stored computed column, a type of rows.
INSERT INTO sys.objects VALUES ('shelf', 4001, NULL, 6, 0, 'U', 'USER_TABLE', 0), ('shelf_history', 4002, NULL, 6, 0, 'U', 'USER_TABLE', 0);
INSERT INTO sys.tables VALUES ('shelf', 4001, 6, 0, 2, 4002), ('shelf_history', 4002, 6, 0, 1, NULL);
INSERT INTO sys.columns VALUES
  (4001, 'id', 1, 56, 56, 4, 10, 0, NULL, 0, 0, 1, 0, 0, 0, 0, 0), (4001, 'width', 2, 56, 56, 4, 10, 0, NULL, 1, 0, 0, 0, 0, 1, 0, 0),
  (4001, 'twice', 4, 56, 56, 4, 10, 0, NULL, 1, 0, 0, 1, 0, 0, 0, 0), (4001, 'valid_from', 5, 42, 42, 8, 27, 7, NULL, 0, 0, 0, 0, 0, 0, 1, 1),
  (4001, 'notes', 7, 241, 241, -1, 0, 0, NULL, 1, 0, 0, 0, 0, 0, 0, 0), (4001, 'code', 8, 167, 167, 8, 0, 0, 'Latin1_General_BIN2', 1, 0, 0, 0, 0, 0, 0, 0),
  (4001, 'valid_to', 6, 42, 42, 6, 19, 0, NULL, 0, 0, 0, 0, 0, 0, 2, 1), (4002, 'id', 1, 56, 56, 4, 10, 0, NULL, 0, 0, 0, 0, 0, 0, 0, 0),
  (4003, 'n', 1, 56, 56, 4, 10, 0, NULL, 1, 0, 0, 0, 0, 0, 0, 0), (4003, 'name', 2, 231, 256, 256, 0, 0, 'Latin1_General_CI_AS', 1, 0, 0, 0, 0, 0, 0, 0);
INSERT INTO sys.computed_columns VALUES (4001, 4, '([width]*(2))', 1);
INSERT INTO sys.identity_columns VALUES (4001, 1, 100, 10);
INSERT INTO sys.types VALUES ('numbered', 243, 300, 6, -1, 0, 0, 0, 1, 0, 1);
INSERT INTO sys.table_types VALUES ('numbered', 300, 6, 4003);
INSERT INTO sys.indexes VALUES (4001, 'shelf_wide', 2, 2, 'NONCLUSTERED', 0, 0, 0, 0, 0, '([width]>(9))'), (4001, 'shelf_notes', 256000, 3, 'XML', 0, 0, 0, 0, 0, NULL);
INSERT INTO sys.index_columns VALUES (4001, 2, 1, 2, 1, 0, 1, 0), (4001, 2, 2, 1, 0, 0, 0, 1), (4001, 256000, 1, 7, 0, 0, 0, 0);

CREATE INDEX sys.by_table ON foreign_keys(parent_object_id);

-- What SQL Server 2000 had as tables is there as views (system-compatibility-views/sys-sysobjects-transact-sql and so on). sysobjects.uid is the number of a schema;
-- each has a user of its name and number here, or else its tables would have no owner there.
CREATE VIEW sys.sysusers AS SELECT name, schema_id AS uid FROM schemas;
CREATE VIEW sys.sysobjects AS SELECT name, object_id AS id, type AS xtype, schema_id AS uid FROM objects;
CREATE VIEW sys.systypes AS SELECT name, system_type_id AS xtype, user_type_id AS xusertype, max_length AS length, precision AS prec, scale FROM types;
CREATE VIEW sys.syscolumns AS SELECT name, object_id AS id, user_type_id AS xusertype, max_length AS length, column_id AS colid, precision AS prec, scale, is_nullable AS isnullable
  FROM columns;
CREATE VIEW sys.sysindexes AS SELECT object_id AS id, index_id AS indid, name, is_primary_key * 2048 AS status,
  (SELECT count(*) FROM index_columns k WHERE k.object_id = i.object_id AND k.index_id = i.index_id AND k.key_ordinal > 0) AS keycnt FROM indexes i;
CREATE VIEW sys.sim_index_keys AS SELECT o.name AS table_name, k.index_id AS indid, k.key_ordinal AS keyno, c.name AS column_name
  FROM objects o JOIN index_columns k ON k.object_id = o.object_id JOIN columns c ON c.object_id = k.object_id AND c.column_id = k.column_id;
CREATE TABLE sys.sysreferences(constid INT, fkeyid INT, rkeyid INT, keycnt SMALLINT,
  fkey1 SMALLINT, fkey2 SMALLINT, fkey3 SMALLINT, fkey4 SMALLINT, fkey5 SMALLINT, fkey6 SMALLINT, fkey7 SMALLINT, fkey8 SMALLINT, fkey9 SMALLINT, fkey10 SMALLINT, fkey11 SMALLINT, fkey12 SMALLINT, fkey13 SMALLINT, fkey14 SMALLINT, fkey15 SMALLINT, fkey16 SMALLINT,
  rkey1 SMALLINT, rkey2 SMALLINT, rkey3 SMALLINT, rkey4 SMALLINT, rkey5 SMALLINT, rkey6 SMALLINT, rkey7 SMALLINT, rkey8 SMALLINT, rkey9 SMALLINT, rkey10 SMALLINT, rkey11 SMALLINT, rkey12 SMALLINT, rkey13 SMALLINT, rkey14 SMALLINT, rkey15 SMALLINT, rkey16 SMALLINT);
INSERT INTO sys.sysreferences SELECT constraint_object_id, parent_object_id, referenced_object_id, count(*),
  sum(CASE constraint_column_id WHEN 1 THEN parent_column_id ELSE 0 END), sum(CASE constraint_column_id WHEN 2 THEN parent_column_id ELSE 0 END), sum(CASE constraint_column_id WHEN 3 THEN parent_column_id ELSE 0 END),
  0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
  sum(CASE constraint_column_id WHEN 1 THEN referenced_column_id ELSE 0 END), sum(CASE constraint_column_id WHEN 2 THEN referenced_column_id ELSE 0 END), sum(CASE constraint_column_id WHEN 3 THEN referenced_column_id ELSE 0 END),
  0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0
  FROM sys.foreign_key_columns GROUP BY constraint_object_id, parent_object_id, referenced_object_id;
CREATE TABLE sys.sim_types (type_name, data_type, column_size, create_params, auto_increment, max_scale);
INSERT INTO sys.sim_types VALUES ('int', 4, 10, NULL, 0, NULL), ('varchar', 12, 8000, 'max length', 0, NULL);
CREATE VIEW sys.sim_tables AS SELECT s.name AS owner, o.name AS name, CASE o.type WHEN 'V' THEN 'VIEW' WHEN 'SN' THEN 'SYNONYM' ELSE 'TABLE' END AS type, NULL AS remarks
  FROM objects o JOIN schemas s ON s.schema_id = o.schema_id WHERE o.type IN ('U', 'V', 'SN');
CREATE VIEW sys.sim_columns AS SELECT s.name AS owner, o.name AS table_name, c.column_id AS position, c.name AS column_name, t.name AS type_name, c.max_length AS column_size,
  c.scale AS decimal_digits, c.is_nullable AS nullable, NULL AS remarks, NULL AS column_def
  FROM objects o JOIN schemas s ON s.schema_id = o.schema_id JOIN columns c ON c.object_id = o.object_id JOIN types t ON t.user_type_id = c.user_type_id;
CREATE VIEW sys.sim_primary_keys AS SELECT s.name AS owner, o.name AS table_name, ic.key_ordinal AS position, c.name AS column_name, k.name AS key_name
  FROM key_constraints k JOIN objects o ON o.object_id = k.parent_object_id JOIN schemas s ON s.schema_id = o.schema_id
  JOIN index_columns ic ON ic.object_id = o.object_id AND ic.index_id = k.unique_index_id JOIN columns c ON c.object_id = o.object_id AND c.column_id = ic.column_id
  WHERE k.type = 'PK';
CREATE VIEW sys.sim_foreign_keys AS SELECT rs.name AS pk_owner, ro.name AS pk_table, rc.name AS pk_column, s.name AS fk_owner, o.name AS fk_table, c.name AS fk_column,
  fc.constraint_column_id AS position, f.name AS fk_name, NULL AS pk_name
  FROM foreign_keys f JOIN foreign_key_columns fc ON fc.constraint_object_id = f.object_id JOIN objects o ON o.object_id = f.parent_object_id
  JOIN schemas s ON s.schema_id = o.schema_id JOIN objects ro ON ro.object_id = f.referenced_object_id JOIN schemas rs ON rs.schema_id = ro.schema_id
  JOIN columns c ON c.object_id = o.object_id AND c.column_id = fc.parent_column_id
  JOIN columns rc ON rc.object_id = ro.object_id AND rc.column_id = fc.referenced_column_id;
CREATE VIEW sys.sim_statistics AS SELECT s.name AS owner, o.name AS table_name, 1 - i.is_unique AS non_unique, i.name AS index_name, ic.key_ordinal AS position,
  c.name AS column_name, ic.is_descending_key AS descending FROM indexes i JOIN objects o ON o.object_id = i.object_id JOIN schemas s ON s.schema_id = o.schema_id
  JOIN index_columns ic ON ic.object_id = i.object_id AND ic.index_id = i.index_id JOIN columns c ON c.object_id = o.object_id AND c.column_id = ic.column_id;
CREATE VIEW sys.sim_procedures AS SELECT s.name AS owner, o.name AS name, CASE o.type WHEN 'P' THEN 1 ELSE 2 END AS type, NULL AS remarks
  FROM objects o JOIN schemas s ON s.schema_id = o.schema_id WHERE o.type IN ('P', 'FN');
COMMIT;
