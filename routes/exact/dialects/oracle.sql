-- Oracle 11 and later: the views ALL_*, which show what the user has a right on. Tables are found by their names. Columns of type LONG
-- (DATA_DEFAULT, SEARCH_CONDITION, TEXT, QUERY, TRIGGER_BODY, COLUMN_EXPRESSION) can only be selected as they stand.
--
-- Columns used (https://docs.oracle.com/en/database/oracle/oracle-database/19/refrn/, the pages ALL_TABLES, ALL_TAB_COLS, ALL_CONSTRAINTS, ...), all of
-- 11.1 but for: ALL_USERS.ORACLE_MAINTAINED, ALL_TAB_COLS.USER_GENERATED and IDENTITY_COLUMN, ALL_TAB_IDENTITY_COLS 12.1;
-- ALL_CONSTRAINTS.SEARCH_CONDITION_VC 12.1. An empty text is NULL.
-- Not read: the text of a package, which is none of one routine's; where a sequence started, which the server does not keep; types of collections; methods.
--
-- dialect: oracle
-- product: Oracle
-- version: 11
-- quote: "
-- list limit: 900
-- type: BIT = boolean
-- type: REAL = binary_float
-- type: DOUBLE = binary_double
-- type: FLOAT = float
-- type: NUMERIC = number
-- type: CHAR = char, nchar
-- type: VARCHAR = varchar2, nvarchar2, varchar
-- type: LONGVARCHAR = clob, nclob, long
-- type: VARBINARY = raw
-- type: LONGVARBINARY = blob, long raw, bfile
-- type: TIMESTAMP = date, timestamp*
-- type: INTERVAL = interval*

-- @server
-- row: catalog, schema, sample, in_transaction
SELECT SYS_CONTEXT('USERENV', 'DB_NAME'), SYS_CONTEXT('USERENV', 'CURRENT_SCHEMA'), 'ä€', 0 FROM dual;

-- @probe
-- row: -
SELECT COUNT(c.virtual_column) FROM all_tab_cols c WHERE c.owner = 'SYS' AND c.table_name = 'DUAL';

-- @schemas
-- row: schema, is_default
SELECT x.username, CASE WHEN x.username = SYS_CONTEXT('USERENV', 'CURRENT_SCHEMA') THEN 1 ELSE 0 END
FROM all_users x
WHERE (1 = 0 /*@system OR 1 = 1 */ OR x.username /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/);

-- What a synonym's link leads to is another database. A materialized view is a table too, of the same name, with a
-- comment of the server's. ALL_TABLES leaves out the tables of objects.
-- @tables
-- row: schema, table, kind, option:partitioned{NO=,YES=yes}, option:index organized{IOT=yes}, option:of type, comment,
-- row: target_database, target_schema, target_table
SELECT t.owner, t.table_name,
       CASE WHEN m.mview_name IS NOT NULL THEN 'materialized view' WHEN t.temporary = 'Y' THEN 'temporary table' ELSE 'table' END,
       t.partitioned, t.iot_type, NULL, CASE WHEN m.mview_name IS NULL OR k.comments NOT LIKE 'snapshot table for snapshot %' THEN k.comments END, NULL, NULL, NULL
FROM all_tables t
LEFT JOIN all_mviews m ON m.owner = t.owner AND m.mview_name = t.table_name
LEFT JOIN all_tab_comments k ON k.owner = t.owner AND k.table_name = t.table_name
WHERE t.nested = 'NO' AND t.secondary = 'N' AND t.dropped = 'NO' AND (t.iot_type IS NULL OR t.iot_type = 'IOT')
  AND (1 = 0 /*@system OR 1 = 1 */ OR t.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND t.owner IN (?list(owner)) */
  /*@tables AND t.table_name IN (?list(table)) */
UNION ALL
SELECT t.owner, t.table_name, CASE t.temporary WHEN 'Y' THEN 'temporary table' ELSE 'table' END, NULL, NULL,
       t.table_type_owner || '.' || t.table_type, k.comments, NULL, NULL, NULL
FROM all_object_tables t LEFT JOIN all_tab_comments k ON k.owner = t.owner AND k.table_name = t.table_name
WHERE t.nested = 'NO' AND t.secondary = 'N' AND t.table_name NOT LIKE 'BIN$%'
  AND (1 = 0 /*@system OR 1 = 1 */ OR t.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND t.owner IN (?list(owner)) */
  /*@tables AND t.table_name IN (?list(table)) */
UNION ALL
SELECT v.owner, v.view_name, 'view', NULL, NULL, NULL, k.comments, NULL, NULL, NULL
FROM all_views v LEFT JOIN all_tab_comments k ON k.owner = v.owner AND k.table_name = v.view_name
WHERE (1 = 0 /*@system OR 1 = 1 */ OR v.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND v.owner IN (?list(owner)) */
  /*@tables AND v.view_name IN (?list(table)) */
UNION ALL
SELECT s.owner, s.synonym_name, 'synonym', NULL, NULL, NULL, NULL, s.db_link, s.table_owner, s.table_name
FROM all_synonyms s
WHERE ((1 = 0 /*@system OR 1 = 1 */ OR s.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/) OR (s.owner = 'PUBLIC' AND (1 = 0 /*@system OR 1 = 1 */ OR s.table_owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)))
  /*@owners AND s.owner IN (?list(owner)) */
  /*@tables AND s.synonym_name IN (?list(table)) */;

-- An invisible column has no number; it comes behind the others.
-- @columns
-- row: schema, table, position, column, type, base_type, type_schema, length, precision, scale, nullable{Y=1,N=0}, generated,
-- row: identity{ALWAYS=always,BY DEFAULT=by default}, option:invisible, option:identity options, comment
SELECT c.owner, c.table_name, COALESCE(c.column_id, 1000 + c.internal_column_id), c.column_name,
       CASE WHEN c.data_type_owner IS NOT NULL THEN c.data_type_owner || '.' || c.data_type
            WHEN c.data_type = 'NUMBER' AND c.data_precision IS NULL AND c.data_scale = 0 THEN 'NUMBER(*,0)'
            WHEN c.data_type = 'NUMBER' AND c.data_precision IS NULL THEN 'NUMBER'
            WHEN c.data_type = 'NUMBER' AND c.data_scale = 0 THEN 'NUMBER(' || c.data_precision || ')'
            WHEN c.data_type = 'NUMBER' THEN 'NUMBER(' || c.data_precision || ',' || c.data_scale || ')'
            WHEN c.data_type = 'FLOAT' THEN 'FLOAT(' || c.data_precision || ')'
            WHEN c.data_type IN ('CHAR', 'VARCHAR2') THEN c.data_type || '(' || c.char_length || CASE c.char_used WHEN 'C' THEN ' CHAR)' ELSE ')' END
            WHEN c.data_type IN ('NCHAR', 'NVARCHAR2') THEN c.data_type || '(' || c.char_length || ')'
            WHEN c.data_type IN ('RAW', 'UROWID') THEN c.data_type || '(' || c.data_length || ')'
            ELSE c.data_type END,
       c.data_type, c.data_type_owner,
       CASE WHEN c.data_type IN ('CHAR', 'VARCHAR2', 'NCHAR', 'NVARCHAR2') THEN c.char_length WHEN c.data_type = 'RAW' THEN c.data_length END,
       CASE WHEN c.data_type IN ('NUMBER', 'FLOAT') THEN c.data_precision WHEN c.data_type LIKE 'TIMESTAMP%' THEN c.data_scale END,
       CASE WHEN c.data_type = 'NUMBER' THEN c.data_scale END,
       c.nullable, CASE c.virtual_column WHEN 'YES' THEN 'virtual' END,
       /*@before 12.1 NULL, NULL, NULL @else*/ i.generation_type, CASE WHEN c.hidden_column = 'YES' THEN 1 END, i.identity_options /*@end*/, k.comments
FROM all_tab_cols c
LEFT JOIN all_col_comments k ON k.owner = c.owner AND k.table_name = c.table_name AND k.column_name = c.column_name
/*@before 12.1 @else*/ LEFT JOIN all_tab_identity_cols i
  ON i.owner = c.owner AND i.table_name = c.table_name AND i.column_name = c.column_name /*@end*/
WHERE /*@before 12.1 c.hidden_column = 'NO' @else*/ c.user_generated = 'YES' /*@end*/
  AND (1 = 0 /*@system OR 1 = 1 */ OR c.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND c.owner IN (?list(owner)) */
  /*@tables AND c.table_name IN (?list(table)) */;

-- The default of an identity column is the sequence behind it.
-- @column_defaults
-- row: schema, table, column, default
SELECT c.owner, c.table_name, c.column_name, c.data_default
FROM all_tab_cols c
WHERE c.default_length IS NOT NULL AND /*@before 12.1 c.hidden_column = 'NO' @else*/ c.user_generated = 'YES' AND c.identity_column = 'NO' /*@end*/
  AND (1 = 0 /*@system OR 1 = 1 */ OR c.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND c.owner IN (?list(owner)) */
  /*@tables AND c.table_name IN (?list(table)) */;

-- @table_options
-- row: schema, table, option:query, option:refresh
SELECT m.owner, m.mview_name, m.query, LOWER(m.refresh_mode)
FROM all_mviews m
WHERE (1 = 0 /*@system OR 1 = 1 */ OR m.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND m.owner IN (?list(owner)) */
  /*@tables AND m.mview_name IN (?list(table)) */;

-- @view_texts
-- row: schema, table, text
SELECT v.owner, v.view_name, v.text
FROM all_views v
WHERE (1 = 0 /*@system OR 1 = 1 */ OR v.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND v.owner IN (?list(owner)) */
  /*@tables AND v.view_name IN (?list(table)) */;

-- @keys
-- row: schema, table, name, kind{P=primary,U=unique}, position, column, deferrable, option:generated name{USER NAME=,GENERATED NAME=yes},
-- row: option:disabled{ENABLED=,DISABLED=yes}
SELECT k.owner, k.table_name, k.constraint_name, k.constraint_type, c.position, c.column_name,
       CASE WHEN k."DEFERRABLE" = 'NOT DEFERRABLE' THEN NULL WHEN k.deferred = 'DEFERRED' THEN 'deferred' ELSE 'immediate' END, k.generated, k.status
FROM all_constraints k
JOIN all_cons_columns c ON c.owner = k.owner AND c.constraint_name = k.constraint_name AND c.table_name = k.table_name
WHERE k.constraint_type IN ('P', 'U') AND (1 = 0 /*@system OR 1 = 1 */ OR k.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND k.owner IN (?list(owner)) */
  /*@tables AND k.table_name IN (?list(table)) */;

-- Columns pair by their place in the two keys.
-- @foreign_keys
-- row: schema, table, name, position, column, target_schema, target_table, target_column, on_update, on_delete, enforced, deferrable,
-- row: option:generated name{USER NAME=,GENERATED NAME=yes}
SELECT k.owner, k.table_name, k.constraint_name, c.position, c.column_name, r.owner, r.table_name, r.column_name, 'no action',
       LOWER(k.delete_rule), CASE k.status WHEN 'ENABLED' THEN 1 ELSE 0 END,
       CASE WHEN k."DEFERRABLE" = 'NOT DEFERRABLE' THEN NULL WHEN k.deferred = 'DEFERRED' THEN 'deferred' ELSE 'immediate' END, k.generated
FROM all_constraints k
JOIN all_cons_columns c ON c.owner = k.owner AND c.constraint_name = k.constraint_name AND c.table_name = k.table_name
JOIN all_cons_columns r ON r.owner = k.r_owner AND r.constraint_name = k.r_constraint_name AND r.position = c.position
WHERE k.constraint_type = 'R' AND (1 = 0 /*@system OR 1 = 1 */ OR k.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND k.owner IN (?list(owner)) */
  /*@tables AND k.table_name IN (?list(table)) */;

-- @not_read
-- row: kind, schema, name, reason, failed
SELECT 'foreign_keys', k.owner, k.constraint_name, 'the key that it refers to is not shown to this user', 0
FROM all_constraints k
WHERE k.constraint_type = 'R' AND (1 = 0 /*@system OR 1 = 1 */ OR k.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  AND NOT EXISTS (SELECT 1 FROM all_cons_columns r WHERE r.owner = k.r_owner AND r.constraint_name = k.r_constraint_name)
  /*@owners AND k.owner IN (?list(owner)) */
  /*@tables AND k.table_name IN (?list(table)) */
UNION ALL
SELECT 'types', t.owner, t.type_name, 'a collection type', 0
FROM all_types t
WHERE t.typecode = 'COLLECTION' AND (1 = 0 /*@system OR 1 = 1 */ OR t.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND t.owner IN (?list(owner)) */;

-- What keeps a column from being NULL is a check too, under a name that the server made. Before 12 a statement cannot look into its text: there
-- the column comes along. One that was not held against the rows that were there leaves the column as it is.
-- @checks
-- row: schema, table, name, expression, enforced, option:generated name{USER NAME=,GENERATED NAME=yes}, column
SELECT k.owner, k.table_name, k.constraint_name, k.search_condition, CASE k.status WHEN 'ENABLED' THEN 1 ELSE 0 END, k.generated,
       /*@before 12.1 CASE k.generated WHEN 'GENERATED NAME' THEN (SELECT MIN(c.column_name) FROM all_cons_columns c WHERE c.owner = k.owner AND c.constraint_name = k.constraint_name) END @else*/ NULL /*@end*/
FROM all_constraints k
WHERE k.constraint_type = 'C' AND (1 = 0 /*@system OR 1 = 1 */ OR k.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@before 12.1 @else*/ AND NOT (k.generated = 'GENERATED NAME' AND k.status = 'ENABLED' AND k.validated = 'VALIDATED'
    AND EXISTS (SELECT 1 FROM all_cons_columns c WHERE c.owner = k.owner AND c.constraint_name = k.constraint_name AND k.search_condition_vc = '"' || c.column_name || '" IS NOT NULL')) /*@end*/
  /*@owners AND k.owner IN (?list(owner)) */
  /*@tables AND k.table_name IN (?list(table)) */;

-- A descending column is an expression to the server.
-- @indexes
-- row: schema, table, name, unique{UNIQUE=1,NONUNIQUE=0}, position, column, expression, descending{DESC=1,ASC=0},
-- row: method{NORMAL=,FUNCTION-BASED NORMAL=,IOT - TOP=,BITMAP=bitmap,FUNCTION-BASED BITMAP=bitmap,DOMAIN=domain,NORMAL/REV=reverse},
-- row: option:invisible{VISIBLE=,INVISIBLE=yes}
SELECT i.table_owner, i.table_name, i.index_name, i.uniqueness, c.column_position,
       CASE WHEN e.index_name IS NULL THEN c.column_name END, e.column_expression, c.descend, i.index_type, i.visibility
FROM all_indexes i
JOIN all_ind_columns c ON c.index_owner = i.owner AND c.index_name = i.index_name
LEFT JOIN all_ind_expressions e ON e.index_owner = i.owner AND e.index_name = i.index_name AND e.column_position = c.column_position
WHERE i.index_type <> 'LOB' AND (1 = 0 /*@system OR 1 = 1 */ OR i.table_owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND i.table_owner IN (?list(owner)) */
  /*@tables AND i.table_name IN (?list(table)) */;

-- @triggers
-- row: schema, table, name, timing, events, text, option:type, option:when, option:disabled{ENABLED=,DISABLED=yes}
SELECT g.table_owner, g.table_name, g.trigger_name,
       CASE WHEN g.trigger_type LIKE 'BEFORE%' THEN 'before' WHEN g.trigger_type LIKE 'AFTER%' THEN 'after'
            WHEN g.trigger_type LIKE 'INSTEAD OF%' THEN 'instead of' ELSE LOWER(g.trigger_type) END,
       LOWER(REPLACE(g.triggering_event, ' OR ', ', ')), g.trigger_body, LOWER(g.trigger_type), g.when_clause, g.status
FROM all_triggers g
WHERE g.table_name IS NOT NULL AND (1 = 0 /*@system OR 1 = 1 */ OR g.table_owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND g.table_owner IN (?list(owner)) */
  /*@tables AND g.table_name IN (?list(table)) */;

-- @types
-- row: schema, name, kind, position, attribute, attribute_type
SELECT t.owner, t.type_name, 'composite', c.attr_no, c.attr_name,
       CASE WHEN c.attr_type_owner IS NOT NULL THEN c.attr_type_owner || '.' || c.attr_type_name
            WHEN c.attr_type_name = 'NUMBER' AND c.precision IS NULL AND c.scale = 0 THEN 'NUMBER(*,0)'
            WHEN c.attr_type_name = 'NUMBER' AND c.precision IS NULL THEN 'NUMBER'
            WHEN c.attr_type_name = 'NUMBER' AND c.scale = 0 THEN 'NUMBER(' || c.precision || ')'
            WHEN c.attr_type_name = 'NUMBER' THEN 'NUMBER(' || c.precision || ',' || c.scale || ')'
            WHEN c.attr_type_name = 'FLOAT' THEN 'FLOAT(' || c.precision || ')'
            WHEN c.attr_type_name IN ('CHAR', 'VARCHAR2', 'NCHAR', 'NVARCHAR2', 'RAW') THEN c.attr_type_name || '(' || c.length || ')'
            ELSE c.attr_type_name END
FROM all_types t LEFT JOIN all_type_attrs c ON c.owner = t.owner AND c.type_name = t.type_name
WHERE t.typecode = 'OBJECT' AND (1 = 0 /*@system OR 1 = 1 */ OR t.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND t.owner IN (?list(owner)) */;

-- Those behind identity columns are the columns' affair.
-- @sequences
-- row: schema, name, increment, minimum, maximum, cycle{Y=1,N=0}, cache, option:order{N=,Y=yes}
SELECT q.sequence_owner, q.sequence_name, q.increment_by, q.min_value, q.max_value, q.cycle_flag, q.cache_size, q.order_flag
FROM all_sequences q
WHERE q.sequence_name NOT LIKE 'ISEQ$$%' AND (1 = 0 /*@system OR 1 = 1 */ OR q.sequence_owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND q.sequence_owner IN (?list(owner)) */;

-- A routine of a package has the package's name before its own; overloads differ in their number in it. A function has an argument at place 0.
-- The server keeps texts line by line.
-- @routines
-- row: schema, name, id, part, text, kind, result, language, option:overload
SELECT p.owner, CASE WHEN p.object_type = 'PACKAGE' THEN p.object_name || '.' || p.procedure_name ELSE p.object_name END,
       p.object_id || '.' || p.subprogram_id, s.line, s.text,
       CASE WHEN p.aggregate = 'YES' THEN 'aggregate' WHEN c.object_id IS NOT NULL THEN 'function' ELSE 'procedure' END,
       CASE WHEN c.type_owner IS NOT NULL THEN c.type_owner || '.' || c.type_name
            WHEN c.data_type = 'NUMBER' AND c.data_precision IS NULL AND c.data_scale = 0 THEN 'NUMBER(*,0)'
            WHEN c.data_type = 'NUMBER' AND c.data_precision IS NULL THEN 'NUMBER'
            WHEN c.data_type = 'NUMBER' AND c.data_scale = 0 THEN 'NUMBER(' || c.data_precision || ')'
            WHEN c.data_type = 'NUMBER' THEN 'NUMBER(' || c.data_precision || ',' || c.data_scale || ')'
            WHEN c.data_type = 'FLOAT' THEN 'FLOAT(' || c.data_precision || ')'
            ELSE c.data_type END,
       'PL/SQL', p.overload
FROM all_procedures p
LEFT JOIN all_arguments c ON c.object_id = p.object_id AND c.subprogram_id = p.subprogram_id AND c.position = 0 AND c.data_level = 0
LEFT JOIN all_source s ON s.owner = p.owner AND s.name = p.object_name AND s.type = p.object_type AND s.type IN ('FUNCTION', 'PROCEDURE')
WHERE p.object_type IN ('FUNCTION', 'PROCEDURE', 'PACKAGE') AND (p.object_type <> 'PACKAGE' OR p.procedure_name IS NOT NULL)
  AND (1 = 0 /*@system OR 1 = 1 */ OR p.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND p.owner IN (?list(owner)) */
ORDER BY 3, 4;

-- A routine without parameters has one row without a type.
-- @parameters
-- row: id, position, mode{IN=in,OUT=out,IN/OUT=inout}, name, type
SELECT c.object_id || '.' || c.subprogram_id, c.position, c.in_out, c.argument_name,
       CASE WHEN c.type_owner IS NOT NULL THEN c.type_owner || '.' || c.type_name
            WHEN c.data_type = 'NUMBER' AND c.data_precision IS NULL AND c.data_scale = 0 THEN 'NUMBER(*,0)'
            WHEN c.data_type = 'NUMBER' AND c.data_precision IS NULL THEN 'NUMBER'
            WHEN c.data_type = 'NUMBER' AND c.data_scale = 0 THEN 'NUMBER(' || c.data_precision || ')'
            WHEN c.data_type = 'NUMBER' THEN 'NUMBER(' || c.data_precision || ',' || c.data_scale || ')'
            WHEN c.data_type = 'FLOAT' THEN 'FLOAT(' || c.data_precision || ')'
            ELSE c.data_type END
FROM all_arguments c
WHERE c.position > 0 AND c.data_level = 0 AND c.data_type IS NOT NULL AND (1 = 0 /*@system OR 1 = 1 */ OR c.owner /*@before 12.1 NOT IN ('SYS', 'SYSTEM', 'OUTLN', 'DBSNMP', 'XDB', 'CTXSYS', 'MDSYS', 'WMSYS', 'ORDSYS', 'ORDDATA', 'ORDPLUGINS', 'EXFSYS', 'OLAPSYS', 'SYSMAN', 'APPQOSSYS', 'FLOWS_FILES', 'ANONYMOUS', 'XS$NULL') @else*/ IN (SELECT u.username FROM all_users u WHERE u.oracle_maintained = 'N') /*@end*/)
  /*@owners AND c.owner IN (?list(owner)) */;
