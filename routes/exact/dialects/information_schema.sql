-- The views that the SQL standard calls INFORMATION_SCHEMA (ISO/IEC 9075-11), for every server that has them and no dialect of its own.
-- Standard columns only, but for those by which MySQL and its kin tell apart what shares a name there; where they are refused, the
-- standard's follow as the fallback. What the standard has no place for is not here: indexes, comments, whether a
-- computed column is stored, the precision that a time was declared with.
--
-- Columns used: SCHEMATA, TABLES, COLUMNS, TABLE_CONSTRAINTS, KEY_COLUMN_USAGE, REFERENTIAL_CONSTRAINTS, CHECK_CONSTRAINTS,
-- VIEWS, TRIGGERS, ROUTINES, PARAMETERS as in SQL:1999; IS_GENERATED, GENERATION_EXPRESSION, IS_IDENTITY,
-- IDENTITY_GENERATION and POSITION_IN_UNIQUE_CONSTRAINT as in SQL:2003.
--
-- dialect: information_schema
-- product: *
-- names: ignore case
-- list limit: 500
-- savepoint: SAVEPOINT odbcimport
-- undo: ROLLBACK TO SAVEPOINT odbcimport
-- release: RELEASE SAVEPOINT odbcimport
-- type: BIT = boolean, bool, bit(1)
-- type: TINYINT = tinyint
-- type: SMALLINT = smallint, int2
-- type: INTEGER = integer, int, int4, mediumint
-- type: BIGINT = bigint, int8
-- type: REAL = real, float4
-- type: FLOAT = float
-- type: DOUBLE = double precision, double, float8
-- type: NUMERIC = numeric
-- type: DECIMAL = decimal, dec
-- type: CHAR = character, char, nchar, national character
-- type: VARCHAR = character varying, varchar, nvarchar, national character varying, char varying
-- type: LONGVARCHAR = text, tinytext, mediumtext, longtext, ntext, clob, character large object, national character large object
-- type: BINARY = binary, bit
-- type: VARBINARY = varbinary, binary varying, bit varying
-- type: LONGVARBINARY = blob, binary large object, tinyblob, mediumblob, longblob, bytea, image
-- type: DATE = date
-- type: TIME = time*
-- type: TIMESTAMP = timestamp*, datetime, datetime2, smalldatetime
-- type: INTERVAL = interval*

-- @server
-- row: sample
SELECT MIN('ä€') FROM information_schema.schemata;

-- @probe
-- row: -
SELECT COUNT(c.character_maximum_length)
FROM information_schema.columns c
JOIN information_schema.tables t ON t.table_schema = c.table_schema AND t.table_name = c.table_name
WHERE t.table_schema = '' AND t.table_name = '' AND t.table_type = '' AND c.ordinal_position = 0 AND c.numeric_scale = 0;

-- Some servers list a schema to its owner alone, and its tables to everybody who may read one.
-- @schemas
-- row: schema
SELECT s.schema_name FROM information_schema.schemata s
WHERE LOWER(s.schema_name) NOT IN ('information_schema', 'pg_catalog', 'pg_toast', 'mysql', 'performance_schema', 'sys')
  /*@system OR TRUE */
UNION
SELECT t.table_schema FROM information_schema.tables t
WHERE LOWER(t.table_schema) NOT IN ('information_schema', 'pg_catalog', 'pg_toast', 'mysql', 'performance_schema', 'sys')
  /*@system OR TRUE */;

-- @tables
-- row: schema, table,
-- row: kind{BASE TABLE=table,TABLE=table,VIEW=view,SYSTEM VERSIONED=table,LOCAL TEMPORARY=temporary table,GLOBAL TEMPORARY=temporary table,TEMPORARY=temporary table,FOREIGN=foreign table,FOREIGN TABLE=foreign table,MATERIALIZED VIEW=materialized view,SYSTEM VIEW=system table,SEQUENCE=sequence}
SELECT t.table_schema, t.table_name, t.table_type
FROM information_schema.tables t
WHERE (LOWER(t.table_schema) NOT IN ('information_schema', 'pg_catalog', 'pg_toast', 'mysql', 'performance_schema', 'sys')
       /*@system OR TRUE */)
  /*@owners AND t.table_schema IN (?list(owner)) */
  /*@tables AND t.table_name IN (?list(table)) */;

-- A type's name with the sizes that belong into it; a domain, or a type that is none of the standard's, by its own name.
-- @columns
-- row: schema, table, position, column, type, base_type, type_schema, length, precision, scale, nullable{YES=1,NO=0}, default,
-- row: expression, identity{ALWAYS=always,BY DEFAULT=by default}, collation
SELECT c.table_schema, c.table_name, c.ordinal_position, c.column_name,
       CASE WHEN c.domain_name IS NOT NULL THEN CONCAT(CONCAT(c.domain_schema, '.'), c.domain_name)
            WHEN c.data_type = 'ARRAY' THEN c.udt_name
            WHEN c.data_type = 'USER-DEFINED' THEN CONCAT(CONCAT(c.udt_schema, '.'), c.udt_name)
            WHEN c.character_maximum_length > 0 AND LOWER(c.data_type) IN ('character', 'character varying', 'char', 'varchar',
                 'nchar', 'nvarchar', 'binary', 'varbinary', 'bit', 'bit varying', 'binary varying', 'national character',
                 'national character varying')
              THEN CONCAT(CONCAT(CONCAT(c.data_type, '('), c.character_maximum_length), ')')
            WHEN LOWER(c.data_type) IN ('numeric', 'decimal', 'dec') AND c.numeric_precision > 0
              THEN CONCAT(CONCAT(CONCAT(CONCAT(CONCAT(c.data_type, '('), c.numeric_precision), ','), c.numeric_scale), ')')
            ELSE c.data_type END,
       CASE WHEN c.data_type IN ('USER-DEFINED', 'ARRAY') THEN c.udt_name ELSE c.data_type END,
       CASE WHEN c.domain_name IS NOT NULL THEN c.domain_schema WHEN c.data_type = 'USER-DEFINED' THEN c.udt_schema END,
       CASE WHEN c.character_maximum_length > 0 THEN c.character_maximum_length END,
       CASE WHEN LOWER(c.data_type) IN ('numeric', 'decimal', 'dec') THEN c.numeric_precision ELSE c.datetime_precision END,
       CASE WHEN LOWER(c.data_type) IN ('numeric', 'decimal', 'dec') THEN c.numeric_scale END,
       c.is_nullable, NULLIF(c.column_default, 'NULL'),
       CASE WHEN c.is_generated = 'ALWAYS' THEN c.generation_expression END,
       CASE WHEN c.is_identity = 'YES' THEN c.identity_generation END, c.collation_name
FROM information_schema.columns c
WHERE (LOWER(c.table_schema) NOT IN ('information_schema', 'pg_catalog', 'pg_toast', 'mysql', 'performance_schema', 'sys')
       /*@system OR TRUE */)
  /*@owners AND c.table_schema IN (?list(owner)) */
  /*@tables AND c.table_name IN (?list(table)) */;

-- MySQL and its kin have no domains and say how a column is made in one text.
-- @columns fallback
-- row: schema, table, position, column, type, base_type, length, precision, scale, nullable{YES=1,NO=0}, default, expression,
-- row: identity, collation, comment
SELECT c.table_schema, c.table_name, c.ordinal_position, c.column_name, c.column_type, c.data_type,
       CASE WHEN c.data_type IN ('char', 'varchar', 'binary', 'varbinary') THEN c.character_maximum_length END,
       CASE WHEN c.data_type IN ('decimal', 'bit') THEN c.numeric_precision ELSE c.datetime_precision END,
       CASE WHEN c.data_type = 'decimal' THEN c.numeric_scale END,
       c.is_nullable, NULLIF(c.column_default, 'NULL'), NULLIF(c.generation_expression, ''),
       CASE WHEN c.extra LIKE '%auto_increment%' THEN 'auto increment' END, c.collation_name, NULLIF(c.column_comment, '')
FROM information_schema.columns c
WHERE (LOWER(c.table_schema) NOT IN ('information_schema', 'mysql', 'performance_schema', 'sys') /*@system OR TRUE */)
  /*@owners AND c.table_schema IN (?list(owner)) */
  /*@tables AND c.table_name IN (?list(table)) */;

-- SQL:1992: what every server has that has these views at all.
-- @columns fallback
-- row: schema, table, position, column, type, base_type, length, precision, scale, nullable{YES=1,NO=0}, default
SELECT c.table_schema, c.table_name, c.ordinal_position, c.column_name, c.data_type, c.data_type,
       CASE WHEN c.character_maximum_length > 0 THEN c.character_maximum_length END, c.numeric_precision, c.numeric_scale,
       c.is_nullable, NULLIF(c.column_default, 'NULL')
FROM information_schema.columns c
WHERE (LOWER(c.table_schema) NOT IN ('information_schema', 'pg_catalog', 'pg_toast', 'mysql', 'performance_schema', 'sys')
       /*@system OR TRUE */)
  /*@owners AND c.table_schema IN (?list(owner)) */
  /*@tables AND c.table_name IN (?list(table)) */;

-- @view_texts
-- row: schema, table, text, reason
SELECT v.table_schema, v.table_name, v.view_definition,
       CASE WHEN v.view_definition IS NULL OR v.view_definition = ''
            THEN 'the server shows the text of a view to its owner' END
FROM information_schema.views v
WHERE (LOWER(v.table_schema) NOT IN ('information_schema', 'pg_catalog', 'pg_toast', 'mysql', 'performance_schema', 'sys')
       /*@system OR TRUE */)
  /*@owners AND v.table_schema IN (?list(owner)) */
  /*@tables AND v.table_name IN (?list(table)) */;

-- Where a foreign key's target stands in its own rows, it is believed, and the other rows are those of keys.
-- @keys
-- row: schema, table, name, kind, position, column
SELECT k.table_schema, k.table_name, k.constraint_name, CASE WHEN k.constraint_name = 'PRIMARY' THEN 'primary' ELSE 'unique' END,
       k.ordinal_position, k.column_name
FROM information_schema.key_column_usage k
WHERE k.referenced_table_name IS NULL
  /*@owners AND k.table_schema IN (?list(owner)) */
  /*@tables AND k.table_name IN (?list(table)) */;

-- Names of constraints are a schema's by the standard, and in fact often a table's.
-- @keys fallback
-- row: schema, table, name, kind{PRIMARY KEY=primary,UNIQUE=unique}, position, column
SELECT k.table_schema, k.table_name, k.constraint_name, t.constraint_type, k.ordinal_position, k.column_name
FROM information_schema.key_column_usage k
JOIN information_schema.table_constraints t
  ON t.table_schema = k.table_schema AND t.table_name = k.table_name
 AND t.constraint_schema = k.constraint_schema AND t.constraint_name = k.constraint_name
WHERE t.constraint_type IN ('PRIMARY KEY', 'UNIQUE')
  /*@owners AND k.table_schema IN (?list(owner)) */
  /*@tables AND k.table_name IN (?list(table)) */;

-- @foreign_keys
-- row: schema, table, name, position, column, target_schema, target_table, target_column, on_update, on_delete
SELECT k.table_schema, k.table_name, k.constraint_name, k.ordinal_position, k.column_name, k.referenced_table_schema,
       k.referenced_table_name, k.referenced_column_name, LOWER(r.update_rule), LOWER(r.delete_rule)
FROM information_schema.key_column_usage k
LEFT JOIN information_schema.referential_constraints r
  ON r.constraint_schema = k.constraint_schema AND r.constraint_name = k.constraint_name AND r.table_name = k.table_name
WHERE k.referenced_table_name IS NOT NULL
  /*@owners AND k.table_schema IN (?list(owner)) */
  /*@tables AND k.table_name IN (?list(table)) */;

-- Where several keys have one name, or several tables a key of the name that is referred to, a column has several
-- targets: those keys are left out, and said to be.
-- @foreign_keys fallback
-- row: schema, table, name, position, column, target_schema, target_table, target_column, on_update, on_delete,
-- row: match{NONE=simple,SIMPLE=simple,FULL=full,PARTIAL=partial}
SELECT f.table_schema, f.table_name, f.constraint_name, f.ordinal_position, f.column_name, f.target_schema, f.target_table,
       f.target_column, f.on_update, f.on_delete, f.match_option
FROM (SELECT e.*, COUNT(*) OVER (PARTITION BY e.table_schema, e.table_name, e.constraint_name, e.ordinal_position) AS targets
FROM (SELECT DISTINCT k.table_schema, k.table_name, k.constraint_name, k.ordinal_position, k.column_name, u.table_schema AS target_schema,
             u.table_name AS target_table, u.column_name AS target_column, LOWER(r.update_rule) AS on_update,
             LOWER(r.delete_rule) AS on_delete, r.match_option
      FROM information_schema.key_column_usage k
      JOIN information_schema.referential_constraints r
        ON r.constraint_schema = k.constraint_schema AND r.constraint_name = k.constraint_name
      JOIN information_schema.key_column_usage u
        ON u.constraint_schema = r.unique_constraint_schema AND u.constraint_name = r.unique_constraint_name
       AND u.ordinal_position = k.position_in_unique_constraint
      WHERE k.position_in_unique_constraint IS NOT NULL
        /*@owners AND k.table_schema IN (?list(owner)) */
        /*@tables AND k.table_name IN (?list(table)) */) e) f
WHERE f.targets = 1;

-- Where a check says its table, its name may come again in another one. Else what keeps a column from being NULL may come
-- as a check; those have names that the server made.
-- @checks
-- row: schema, table, name, expression
SELECT k.constraint_schema, k.table_name, k.constraint_name, k.check_clause
FROM information_schema.check_constraints k
WHERE TRUE
  /*@owners AND k.constraint_schema IN (?list(owner)) */
  /*@tables AND k.table_name IN (?list(table)) */;

-- @checks fallback
-- row: schema, table, name, expression
SELECT t.table_schema, t.table_name, k.constraint_name, k.check_clause
FROM information_schema.check_constraints k
JOIN information_schema.table_constraints t
  ON t.constraint_schema = k.constraint_schema AND t.constraint_name = k.constraint_name AND t.constraint_type = 'CHECK'
WHERE NOT (k.constraint_name LIKE '%_not_null' AND k.check_clause LIKE '% IS NOT NULL')
  /*@owners AND t.table_schema IN (?list(owner)) */
  /*@tables AND t.table_name IN (?list(table)) */;

-- A row an event.
-- @triggers
-- row: schema, table, name, timing, text,
-- row: events{1=insert,2=update,3=insert or update,4=delete,5=insert or delete,6=update or delete,7=insert or update or delete}
SELECT g.event_object_schema, g.event_object_table, g.trigger_name, LOWER(MIN(g.action_timing)), MIN(g.action_statement),
       SUM(CASE g.event_manipulation WHEN 'INSERT' THEN 1 WHEN 'UPDATE' THEN 2 WHEN 'DELETE' THEN 4 ELSE 0 END)
FROM information_schema.triggers g
WHERE TRUE
  /*@owners AND g.event_object_schema IN (?list(owner)) */
  /*@tables AND g.event_object_table IN (?list(table)) */
GROUP BY g.event_object_schema, g.event_object_table, g.trigger_name;

-- A function and a procedure may share their specific name where these columns are.
-- @routines
-- row: schema, name, id, kind{FUNCTION=function,PROCEDURE=procedure}, result, language, text, comment, reason
SELECT r.routine_schema, r.routine_name, CONCAT(r.routine_schema, '.', r.routine_type, '.', r.specific_name), r.routine_type,
       r.dtd_identifier, COALESCE(r.external_language, r.routine_body), r.routine_definition, NULLIF(r.routine_comment, ''),
       CASE WHEN r.routine_definition IS NULL THEN 'the server keeps the text of this routine from this user' END
FROM information_schema.routines r
WHERE (LOWER(r.routine_schema) NOT IN ('information_schema', 'mysql', 'performance_schema', 'sys') /*@system OR TRUE */)
  AND r.routine_type IN ('FUNCTION', 'PROCEDURE')
  /*@owners AND r.routine_schema IN (?list(owner)) */;

-- @routines fallback
-- row: schema, name, id, kind{FUNCTION=function,PROCEDURE=procedure}, result, language, text
SELECT r.routine_schema, r.routine_name, CONCAT(CONCAT(r.specific_schema, '.'), r.specific_name), r.routine_type, r.data_type,
       CASE WHEN r.routine_body = 'EXTERNAL' THEN r.external_language ELSE r.routine_body END, r.routine_definition
FROM information_schema.routines r
WHERE (LOWER(r.routine_schema) NOT IN ('information_schema', 'pg_catalog', 'pg_toast', 'mysql', 'performance_schema', 'sys')
       /*@system OR TRUE */)
  AND r.routine_type IN ('FUNCTION', 'PROCEDURE')
  /*@owners AND r.routine_schema IN (?list(owner)) */;

-- @parameters
-- row: id, position, mode, name, type
SELECT CONCAT(p.specific_schema, '.', p.routine_type, '.', p.specific_name), p.ordinal_position, LOWER(p.parameter_mode),
       p.parameter_name, p.dtd_identifier
FROM information_schema.parameters p
WHERE p.ordinal_position > 0 AND p.routine_type IS NOT NULL
  /*@owners AND p.specific_schema IN (?list(owner)) */;

-- @parameters fallback
-- row: id, position, mode, name, type
SELECT CONCAT(CONCAT(p.specific_schema, '.'), p.specific_name), p.ordinal_position, LOWER(p.parameter_mode), p.parameter_name,
       CASE WHEN p.data_type IN ('USER-DEFINED', 'ARRAY') THEN p.udt_name ELSE p.data_type END
FROM information_schema.parameters p
WHERE p.ordinal_position > 0
  /*@owners AND p.specific_schema IN (?list(owner)) */;

-- A key to columns that an index keeps unique, without a constraint: its name is there, its target is not.
-- @not_read
-- row: kind, schema, name, reason, failed
SELECT 'foreign_keys', r.constraint_schema, r.constraint_name, 'it refers to an index, which information_schema does not tell', 0
FROM information_schema.referential_constraints r
WHERE NOT EXISTS (SELECT 1 FROM information_schema.domains d WHERE d.domain_name IS NULL)
  /*@owners AND r.constraint_schema IN (?list(owner)) */
GROUP BY r.constraint_schema, r.constraint_name HAVING COUNT(r.unique_constraint_name) = 0
UNION ALL
SELECT 'foreign_keys', e.table_schema, e.constraint_name,
       'several keys have this name or that of their target: information_schema does not tell them apart', 0
FROM (SELECT DISTINCT k.table_schema, k.table_name, k.constraint_name, k.ordinal_position, k.column_name, u.table_schema AS target_schema,
             u.table_name AS target_table, u.column_name AS target_column, LOWER(r.update_rule) AS on_update,
             LOWER(r.delete_rule) AS on_delete, r.match_option
      FROM information_schema.key_column_usage k
      JOIN information_schema.referential_constraints r
        ON r.constraint_schema = k.constraint_schema AND r.constraint_name = k.constraint_name
      JOIN information_schema.key_column_usage u
        ON u.constraint_schema = r.unique_constraint_schema AND u.constraint_name = r.unique_constraint_name
       AND u.ordinal_position = k.position_in_unique_constraint
      WHERE k.position_in_unique_constraint IS NOT NULL
        /*@owners AND k.table_schema IN (?list(owner)) */
        /*@tables AND k.table_name IN (?list(table)) */) e
GROUP BY e.table_schema, e.table_name, e.constraint_name, e.ordinal_position HAVING COUNT(*) > 1 AND e.ordinal_position = 1;

-- Where there are no domains, keys say their targets themselves.
-- @not_read fallback
-- row: kind, reason
SELECT s.schema_name, s.schema_name FROM information_schema.schemata s WHERE s.schema_name IS NULL;
