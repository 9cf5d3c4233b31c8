-- Oracle 19: the shop, in the views ALL_*. Names and types of the columns are those of
-- https://docs.oracle.com/en/database/oracle/oracle-database/19/refrn/ (the pages ALL_USERS, ALL_TABLES, ALL_VIEWS, ALL_MVIEWS, ALL_SYNONYMS, ALL_TAB_COLS,
-- ALL_OBJECT_TABLES, ALL_TAB_IDENTITY_COLS, ALL_TAB_COMMENTS, ALL_COL_COMMENTS, ALL_CONSTRAINTS, ALL_CONS_COLUMNS, ALL_INDEXES, ALL_IND_COLUMNS, ALL_IND_EXPRESSIONS,
-- ALL_TRIGGERS, ALL_SEQUENCES, ALL_PROCEDURES, ALL_ARGUMENTS, ALL_TYPES, ALL_TYPE_ATTRS); columns that nobody asks for are left out.
-- The server has no alias types: the shop's e-mail is what it is made of.
BEGIN;
CREATE TABLE dual (dummy VARCHAR2(1));
INSERT INTO dual VALUES ('X');
CREATE TABLE all_users (username VARCHAR2(128), user_id NUMBER, created DATE, oracle_maintained VARCHAR2(1));
CREATE TABLE all_catalog (owner VARCHAR2(128), table_name VARCHAR2(128), table_type VARCHAR2(11));
CREATE TABLE all_tables (owner VARCHAR2(128), table_name VARCHAR2(128), iot_type VARCHAR2(12), nested VARCHAR2(3), secondary VARCHAR2(1), temporary VARCHAR2(1),
  partitioned VARCHAR2(3), dropped VARCHAR2(3));
CREATE INDEX i_tables ON all_tables (owner, table_name);
CREATE TABLE all_object_tables (owner VARCHAR2(128), table_name VARCHAR2(128), table_type_owner VARCHAR2(128), table_type VARCHAR2(128), temporary VARCHAR2(1),
  secondary VARCHAR2(1), nested VARCHAR2(3));
CREATE TABLE all_views (owner VARCHAR2(128), view_name VARCHAR2(128), text_length NUMBER, text LONG);
CREATE TABLE all_mviews (owner VARCHAR2(128), mview_name VARCHAR2(128), query LONG, refresh_mode VARCHAR2(9));
CREATE INDEX i_mviews ON all_mviews (owner, mview_name);
CREATE TABLE all_synonyms (owner VARCHAR2(128), synonym_name VARCHAR2(128), table_owner VARCHAR2(128), table_name VARCHAR2(128), db_link VARCHAR2(128));
CREATE TABLE all_tab_cols (owner VARCHAR2(128), table_name VARCHAR2(128), column_name VARCHAR2(128), data_type VARCHAR2(128), data_type_owner VARCHAR2(128),
  data_length NUMBER, data_precision NUMBER, data_scale NUMBER, nullable VARCHAR2(1), column_id NUMBER, default_length NUMBER, data_default LONG,
  char_length NUMBER, char_used VARCHAR2(1), hidden_column VARCHAR2(3), virtual_column VARCHAR2(3), internal_column_id NUMBER,
  identity_column VARCHAR2(3), user_generated VARCHAR2(3));
CREATE INDEX i_tab_cols ON all_tab_cols (owner, table_name, column_id);
CREATE TABLE all_tab_identity_cols (owner VARCHAR2(128), table_name VARCHAR2(128), column_name VARCHAR2(128), generation_type VARCHAR2(10), identity_options VARCHAR2(298));
CREATE INDEX i_identity ON all_tab_identity_cols (owner, table_name, column_name);
CREATE TABLE all_tab_comments (owner VARCHAR2(128), table_name VARCHAR2(128), table_type VARCHAR2(11), comments VARCHAR2(4000));
CREATE INDEX i_tab_comments ON all_tab_comments (owner, table_name);
CREATE TABLE all_col_comments (owner VARCHAR2(128), table_name VARCHAR2(128), column_name VARCHAR2(128), comments VARCHAR2(4000));
CREATE INDEX i_col_comments ON all_col_comments (owner, table_name, column_name);
CREATE TABLE all_constraints (owner VARCHAR2(128), constraint_name VARCHAR2(128), constraint_type VARCHAR2(1), table_name VARCHAR2(128), search_condition LONG,
  search_condition_vc VARCHAR2(4000), r_owner VARCHAR2(128), r_constraint_name VARCHAR2(128), delete_rule VARCHAR2(9), status VARCHAR2(8),
  "deferrable" VARCHAR2(14), deferred VARCHAR2(9), generated VARCHAR2(14), validated VARCHAR2(13));
CREATE INDEX i_constraints ON all_constraints (constraint_type, owner, table_name);
CREATE TABLE all_cons_columns (owner VARCHAR2(128), constraint_name VARCHAR2(128), table_name VARCHAR2(128), column_name VARCHAR2(4000), position NUMBER);
CREATE INDEX i_cons_columns ON all_cons_columns (constraint_name, owner, position);
CREATE TABLE all_indexes (owner VARCHAR2(128), index_name VARCHAR2(128), index_type VARCHAR2(27), table_owner VARCHAR2(128), table_name VARCHAR2(128),
  uniqueness VARCHAR2(9), visibility VARCHAR2(9));
CREATE TABLE all_ind_columns (index_owner VARCHAR2(128), index_name VARCHAR2(128), table_owner VARCHAR2(128), table_name VARCHAR2(128),
  column_name VARCHAR2(4000), column_position NUMBER, descend VARCHAR2(4));
CREATE INDEX i_ind_columns ON all_ind_columns (index_owner, index_name);
CREATE TABLE all_ind_expressions (index_owner VARCHAR2(128), index_name VARCHAR2(128), table_owner VARCHAR2(128), table_name VARCHAR2(128),
  column_expression LONG, column_position NUMBER);
CREATE INDEX i_ind_expressions ON all_ind_expressions (index_owner, index_name, column_position);
CREATE TABLE all_triggers (owner VARCHAR2(128), trigger_name VARCHAR2(128), trigger_type VARCHAR2(16), triggering_event VARCHAR2(246), table_owner VARCHAR2(128),
  base_object_type VARCHAR2(18), table_name VARCHAR2(128), when_clause VARCHAR2(4000), status VARCHAR2(8), trigger_body LONG);
CREATE TABLE all_sequences (sequence_owner VARCHAR2(128), sequence_name VARCHAR2(128), min_value NUMBER, max_value NUMBER, increment_by NUMBER,
  cycle_flag VARCHAR2(1), order_flag VARCHAR2(1), cache_size NUMBER, last_number NUMBER);
CREATE TABLE all_objects (owner VARCHAR2(128), object_name VARCHAR2(128), object_id NUMBER, object_type VARCHAR2(23), status VARCHAR2(7));
CREATE TABLE all_source (owner VARCHAR2(128), name VARCHAR2(128), type VARCHAR2(12), line NUMBER, text VARCHAR2(4000));
CREATE TABLE all_procedures (owner VARCHAR2(128), object_name VARCHAR2(128), procedure_name VARCHAR2(128), object_id NUMBER, subprogram_id NUMBER,
  overload VARCHAR2(40), object_type VARCHAR2(13), aggregate VARCHAR2(3));
CREATE TABLE all_arguments (owner VARCHAR2(128), object_name VARCHAR2(128), package_name VARCHAR2(128), object_id NUMBER, overload VARCHAR2(40),
  subprogram_id NUMBER, argument_name VARCHAR2(128), position NUMBER, sequence NUMBER, data_level NUMBER, data_type VARCHAR2(30), in_out VARCHAR2(9),
  data_length NUMBER, data_precision NUMBER, data_scale NUMBER, type_owner VARCHAR2(128), type_name VARCHAR2(128));
CREATE TABLE all_types (owner VARCHAR2(128), type_name VARCHAR2(128), typecode VARCHAR2(128));
CREATE TABLE all_type_attrs (owner VARCHAR2(128), type_name VARCHAR2(128), attr_name VARCHAR2(128), attr_type_owner VARCHAR2(128), attr_type_name VARCHAR2(128),
  length NUMBER, precision NUMBER, scale NUMBER, attr_no NUMBER);

INSERT INTO all_users VALUES ('SYS', 0, NULL, 'Y'), ('SYSTEM', 9, NULL, 'Y'), ('XDB', 57, NULL, 'Y');
INSERT INTO all_users SELECT name, 100 + number, NULL, 'N' FROM shop_schema;
INSERT INTO all_tables VALUES ('SYS', 'DUAL', NULL, 'NO', 'N', 'N', 'NO', 'NO');

-- The shop's types, as this server has them.
CREATE TEMP TABLE here(type TEXT PRIMARY KEY, name TEXT, length INT, precision INT, scale INT);
INSERT INTO here VALUES ('INTEGER', 'NUMBER', 22, 10, 0), ('SMALLINT', 'NUMBER', 22, 5, 0), ('BIGINT', 'NUMBER', 22, 19, 0), ('CHAR', 'CHAR', NULL, NULL, NULL),
  ('VARCHAR', 'VARCHAR2', NULL, NULL, NULL), ('DECIMAL', 'NUMBER', 22, NULL, NULL), ('DATE', 'DATE', 7, NULL, NULL),
  ('TIMESTAMP', 'TIMESTAMP(6)', 11, NULL, 6), ('DOUBLE', 'BINARY_DOUBLE', 8, NULL, NULL), ('CLOB', 'CLOB', 4000, NULL, NULL), ('BLOB', 'BLOB', 4000, NULL, NULL);
CREATE TEMP VIEW shop AS SELECT t.number, s.name AS owner, t.name, t.kind, t.comment, t.text FROM shop_table t JOIN shop_schema s ON s.number = t.schema_number;

INSERT INTO all_tables SELECT owner, name, NULL, 'NO', 'N', 'N', 'NO', 'NO' FROM shop WHERE kind = 'table';
INSERT INTO all_views SELECT owner, name, length(text), text FROM shop WHERE kind = 'view';
INSERT INTO all_objects SELECT owner, name, number, upper(kind), 'VALID' FROM shop;
INSERT INTO all_tab_comments SELECT owner, name, upper(kind), comment FROM shop;
INSERT INTO all_col_comments SELECT t.owner, t.name, c.name, c.comment FROM shop t JOIN shop_column c ON c.table_number = t.number;
INSERT INTO all_tab_cols
  SELECT t.owner, t.name, c.name, h.name, NULL, coalesce(h.length, c.size), coalesce(h.precision, CASE c.type WHEN 'DECIMAL' THEN c.size END),
         coalesce(h.scale, CASE c.type WHEN 'DECIMAL' THEN c.digits END), CASE c.nullable WHEN 1 THEN 'Y' ELSE 'N' END, c.position,
         length(coalesce(c.default_text, c.expression, CASE WHEN c.identity IS NOT NULL THEN 'x' END)),
         coalesce(c.default_text, c.expression, CASE WHEN c.identity IS NOT NULL THEN '"sales"."ISEQ$$_7".nextval' END),
         CASE WHEN c.type IN ('CHAR', 'VARCHAR') THEN c.size ELSE 0 END, CASE WHEN c.type IN ('CHAR', 'VARCHAR') THEN 'B' END, 'NO',
         CASE WHEN c.expression IS NULL THEN 'NO' ELSE 'YES' END, c.position, CASE WHEN c.identity IS NULL THEN 'NO' ELSE 'YES' END, 'YES'
  FROM shop t JOIN shop_column c ON c.table_number = t.number JOIN here h ON h.type = c.type;
INSERT INTO all_tab_identity_cols SELECT t.owner, t.name, c.name, upper(c.identity), 'START WITH: 1, INCREMENT BY: 1' FROM shop t JOIN shop_column c ON c.table_number = t.number
  WHERE c.identity IS NOT NULL;
INSERT INTO all_constraints
  SELECT t.owner, k.name, CASE k.kind WHEN 'F' THEN 'R' ELSE k.kind END, t.name, k.expression, k.expression, r.owner, g.name, upper(k.on_delete), 'ENABLED',
         'NOT DEFERRABLE', 'IMMEDIATE', 'USER NAME', 'VALIDATED'
  FROM shop_key k JOIN shop t ON t.number = k.table_number LEFT JOIN shop_key g ON g.number = k.target_number LEFT JOIN shop r ON r.number = g.table_number;
INSERT INTO all_cons_columns SELECT t.owner, k.name, t.name, c.name, p.position
  FROM shop_key k JOIN shop t ON t.number = k.table_number JOIN shop_key_column p ON p.key_number = k.number
  JOIN shop_column c ON c.table_number = k.table_number AND c.position = p.column_number;
-- What keeps a column from being NULL.
INSERT INTO all_constraints SELECT t.owner, printf('SYS_C%06d', c.table_number * 100 + c.position), 'C', t.name, '"' || c.name || '" IS NOT NULL',
  '"' || c.name || '" IS NOT NULL', NULL, NULL, NULL, 'ENABLED', 'NOT DEFERRABLE', 'IMMEDIATE', 'GENERATED NAME', 'VALIDATED'
  FROM shop t JOIN shop_column c ON c.table_number = t.number WHERE c.nullable = 0 AND t.kind = 'table';
INSERT INTO all_cons_columns SELECT t.owner, printf('SYS_C%06d', c.table_number * 100 + c.position), t.name, c.name, NULL
  FROM shop t JOIN shop_column c ON c.table_number = t.number WHERE c.nullable = 0 AND t.kind = 'table';
INSERT INTO all_indexes SELECT t.owner, k.name, 'NORMAL', t.owner, t.name, 'UNIQUE', 'VISIBLE' FROM shop_key k JOIN shop t ON t.number = k.table_number
  WHERE k.kind IN ('P', 'U');
INSERT INTO all_ind_columns SELECT t.owner, k.name, t.owner, t.name, c.name, p.position, 'ASC'
  FROM shop_key k JOIN shop t ON t.number = k.table_number JOIN shop_key_column p ON p.key_number = k.number
  JOIN shop_column c ON c.table_number = k.table_number AND c.position = p.column_number WHERE k.kind IN ('P', 'U');
INSERT INTO all_indexes SELECT t.owner, i.name, CASE WHEN (SELECT max(descending) FROM shop_index_column p WHERE p.index_number = i.number) THEN 'FUNCTION-BASED NORMAL' ELSE 'NORMAL' END,
  t.owner, t.name, CASE i.is_unique WHEN 1 THEN 'UNIQUE' ELSE 'NONUNIQUE' END, 'VISIBLE' FROM shop_index i JOIN shop t ON t.number = i.table_number;
INSERT INTO all_ind_columns SELECT t.owner, i.name, t.owner, t.name, CASE p.descending WHEN 1 THEN printf('SYS_NC%05d$', 90 + p.position) ELSE c.name END, p.position,
  CASE p.descending WHEN 1 THEN 'DESC' ELSE 'ASC' END FROM shop_index i JOIN shop t ON t.number = i.table_number JOIN shop_index_column p ON p.index_number = i.number
  JOIN shop_column c ON c.table_number = i.table_number AND c.position = p.column_number;
INSERT INTO all_ind_expressions SELECT t.owner, i.name, t.owner, t.name, '"' || c.name || '"', p.position
  FROM shop_index i JOIN shop t ON t.number = i.table_number JOIN shop_index_column p ON p.index_number = i.number
  JOIN shop_column c ON c.table_number = i.table_number AND c.position = p.column_number WHERE p.descending = 1;
INSERT INTO all_triggers SELECT t.owner, g.name, 'AFTER EACH ROW', upper(g.event), t.owner, 'TABLE', t.name, NULL, 'ENABLED', g.text
  FROM shop_trigger g JOIN shop t ON t.number = g.table_number;
INSERT INTO all_sequences SELECT s.name, q.name, q.minimum, q.maximum, q.increment, CASE q.cycle WHEN 1 THEN 'Y' ELSE 'N' END, 'N', q.cache, q.start
  FROM shop_sequence q JOIN shop_schema s ON s.number = q.schema_number;
INSERT INTO all_synonyms SELECT s.name, y.name, y.target_schema, y.target, CASE WHEN y.server IS NOT NULL THEN upper(y.server) END
  FROM shop_synonym y JOIN shop_schema s ON s.number = y.schema_number;
INSERT INTO all_catalog SELECT owner, name, upper(kind) FROM shop UNION ALL SELECT owner, synonym_name, 'SYNONYM' FROM all_synonyms;
-- Two lines, of which the first ends with a blank.
INSERT INTO all_source SELECT s.name, r.name, upper(r.kind), 1, substr(r.text, 1, 7) FROM shop_routine r JOIN shop_schema s ON s.number = r.schema_number;
INSERT INTO all_source SELECT s.name, r.name, upper(r.kind), 2, substr(r.text, 8) FROM shop_routine r JOIN shop_schema s ON s.number = r.schema_number;
INSERT INTO all_procedures SELECT s.name, r.name, NULL, 500 + r.number, 1, NULL, upper(r.kind), 'NO' FROM shop_routine r JOIN shop_schema s ON s.number = r.schema_number;
INSERT INTO all_arguments SELECT s.name, r.name, NULL, 500 + r.number, NULL, 1, NULL, 0, 1, 0, h.name, 'OUT', NULL, coalesce(h.precision, r.size), coalesce(h.scale, r.digits), NULL, NULL
  FROM shop_routine r JOIN shop_schema s ON s.number = r.schema_number JOIN here h ON h.type = r.result;
INSERT INTO all_arguments SELECT s.name, r.name, NULL, 500 + r.number, NULL, 1, p.name, p.position, p.position, 0, h.name, upper(p.mode), NULL,
  coalesce(h.precision, p.size), coalesce(h.scale, p.digits), NULL, NULL
  FROM shop_parameter p JOIN shop_routine r ON r.number = p.routine_number JOIN shop_schema s ON s.number = r.schema_number JOIN here h ON h.type = p.type;

-- What this server alone has: a materialized view, an invisible column, a type with attributes, a table of it, a collection type, a package with overloads.
INSERT INTO all_tables VALUES ('stock', 'shelf', NULL, 'NO', 'N', 'N', 'YES', 'NO');
INSERT INTO all_tab_comments VALUES ('stock', 'shelf', 'TABLE', 'snapshot table for snapshot stock.shelf');
INSERT INTO all_mviews VALUES ('stock', 'shelf', 'SELECT a FROM bin', 'DEMAND');
INSERT INTO all_tab_cols VALUES
  ('stock', 'shelf', 'a', 'NUMBER', NULL, 22, NULL, NULL, 'Y', 1, NULL, NULL, 0, NULL, 'NO', 'NO', 1, 'NO', 'YES'),
  ('stock', 'shelf', 'hidden', 'NUMBER', NULL, 22, NULL, 0, 'Y', NULL, NULL, NULL, 0, NULL, 'YES', 'NO', 2, 'NO', 'YES'),
  ('stock', 'shelf', 'SYS_NC00003$', 'NUMBER', NULL, 22, NULL, 0, 'Y', NULL, NULL, NULL, 0, NULL, 'YES', 'YES', 3, 'NO', 'NO');
INSERT INTO all_object_tables VALUES ('stock', 'shelf_places', 'stock', 'shelf_place', 'N', 'N', 'NO'), ('stock', 'BIN$x==$0', 'stock', 'shelf_place', 'N', 'N', 'NO');
INSERT INTO all_tab_cols VALUES
  ('stock', 'shelf_places', 'SYS_NC_OID$', 'RAW', NULL, 16, NULL, NULL, 'N', NULL, NULL, NULL, 0, NULL, 'YES', 'NO', 1, 'NO', 'NO'),
  ('stock', 'shelf_places', 'row_number', 'NUMBER', NULL, 22, 4, 0, 'Y', 1, NULL, NULL, 0, NULL, 'NO', 'NO', 3, 'NO', 'YES');
-- Checks without a name: one that only looks like what keeps a column from being NULL, and one that was not held against the rows that were there.
INSERT INTO all_constraints VALUES
  ('stock', 'SYS_C900001', 'C', 'shelf', '"a" > 0 AND "hidden" IS NOT NULL', '"a" > 0 AND "hidden" IS NOT NULL', NULL, NULL, NULL, 'ENABLED', 'NOT DEFERRABLE', 'IMMEDIATE', 'GENERATED NAME', 'VALIDATED'),
  ('stock', 'SYS_C900002', 'C', 'shelf', '"a" IS NOT NULL', '"a" IS NOT NULL', NULL, NULL, NULL, 'ENABLED', 'NOT DEFERRABLE', 'IMMEDIATE', 'GENERATED NAME', 'NOT VALIDATED');
INSERT INTO all_cons_columns VALUES ('stock', 'SYS_C900001', 'shelf', 'a', NULL), ('stock', 'SYS_C900001', 'shelf', 'hidden', NULL), ('stock', 'SYS_C900002', 'shelf', 'a', NULL);
INSERT INTO all_types VALUES ('stock', 'shelf_place', 'OBJECT'), ('stock', 'shelf_names', 'COLLECTION'), ('SYS', 'XMLTYPE', 'OBJECT');
INSERT INTO all_type_attrs VALUES ('stock', 'shelf_place', 'row_number', NULL, 'NUMBER', NULL, 4, 0, 1), ('stock', 'shelf_place', 'name', NULL, 'VARCHAR2', 20, NULL, NULL, 2);
INSERT INTO all_procedures VALUES ('stock', 'shelves', 'shelf_fill', 600, 1, '1', 'PACKAGE', 'NO'), ('stock', 'shelves', 'shelf_fill', 600, 2, '2', 'PACKAGE', 'NO'),
  ('stock', 'shelves', NULL, 600, 0, NULL, 'PACKAGE', 'NO');
INSERT INTO all_arguments VALUES ('stock', 'shelf_fill', 'shelves', 600, '1', 1, 'a', 1, 1, 0, 'NUMBER', 'IN', 22, NULL, NULL, NULL, NULL),
  ('stock', 'shelf_fill', 'shelves', 600, '2', 2, 'p', 1, 1, 0, 'OBJECT', 'IN/OUT', NULL, NULL, NULL, 'stock', 'shelf_place');

-- What the catalog functions and the statements of older versions ask for.
CREATE VIEW all_tab_columns AS SELECT owner, table_name, column_name, data_type, data_type_owner, data_length, data_precision, data_scale, nullable, column_id,
  default_length, data_default FROM all_tab_cols WHERE hidden_column = 'NO';
CREATE TABLE sim_types (type_name, data_type, column_size, create_params, auto_increment, max_scale);
INSERT INTO sim_types VALUES ('NUMBER', 3, 38, 'precision,scale', 0, NULL), ('VARCHAR2', 12, 4000, 'max length', 0, NULL);
CREATE VIEW sim_tables AS SELECT owner, table_name AS name, table_type AS type, NULL AS remarks FROM all_catalog;
CREATE VIEW sim_columns AS SELECT owner, table_name, column_id AS position, column_name, data_type AS type_name, data_length AS column_size, data_scale AS decimal_digits,
  nullable = 'Y' AS nullable, NULL AS remarks, data_default AS column_def FROM all_tab_columns;
CREATE VIEW sim_primary_keys AS SELECT k.owner, k.table_name, c.position, c.column_name, k.constraint_name AS key_name FROM all_constraints k
  JOIN all_cons_columns c ON c.owner = k.owner AND c.constraint_name = k.constraint_name WHERE k.constraint_type = 'P';
CREATE VIEW sim_foreign_keys AS SELECT r.owner AS pk_owner, r.table_name AS pk_table, r.column_name AS pk_column, k.owner AS fk_owner, k.table_name AS fk_table,
  c.column_name AS fk_column, c.position, k.constraint_name AS fk_name, k.r_constraint_name AS pk_name FROM all_constraints k
  JOIN all_cons_columns c ON c.owner = k.owner AND c.constraint_name = k.constraint_name
  JOIN all_cons_columns r ON r.owner = k.r_owner AND r.constraint_name = k.r_constraint_name AND r.position = c.position WHERE k.constraint_type = 'R';
CREATE VIEW sim_statistics AS SELECT i.table_owner AS owner, i.table_name, i.uniqueness <> 'UNIQUE' AS non_unique, i.index_name, c.column_position AS position, c.column_name,
  c.descend = 'DESC' AS descending FROM all_indexes i JOIN all_ind_columns c ON c.index_owner = i.owner AND c.index_name = i.index_name;
CREATE VIEW sim_procedures AS SELECT owner, object_name AS name, CASE object_type WHEN 'PROCEDURE' THEN 1 ELSE 2 END AS type, NULL AS remarks FROM all_procedures;
COMMIT;
