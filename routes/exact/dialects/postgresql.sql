-- PostgreSQL's catalog, pg_catalog, by numbers: the client joins. Facts that are numbers or single letters are packed into the
-- first cell. What users made has numbers from 16384 on; what an extension made is left to the extension.
--
-- dialect: postgresql
-- product: PostgreSQL
-- version: 9.6
-- quote: "
-- savepoint: SAVEPOINT odbcimport
-- undo: ROLLBACK TO SAVEPOINT odbcimport
-- release: RELEASE SAVEPOINT odbcimport
-- begin: BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY; SAVEPOINT odbcimport
-- end: COMMIT
-- type: BIT = boolean
-- type: SMALLINT = smallint
-- type: INTEGER = integer
-- type: BIGINT = bigint
-- type: REAL = real
-- type: DOUBLE = double precision
-- type: NUMERIC = numeric
-- type: CHAR = character, "char"
-- type: VARCHAR = character varying, name
-- type: LONGVARCHAR = text
-- type: LONGVARBINARY = bytea
-- type: DATE = date
-- type: TIME = time without time zone, time with time zone
-- type: TIMESTAMP = timestamp without time zone, timestamp with time zone
-- type: INTERVAL = interval

-- A fork calls itself PostgreSQL to its clients and something else here. In an own transaction every statement begins when
-- the transaction does.
-- @server
-- row: version, schema, catalog, sample, in_transaction, option:encoding, option:collation, option:character type,
-- row: option:extensions, option:collations
SELECT current_setting('server_version'), current_schema(), d.datname, 'ä€',
       CASE WHEN now() = statement_timestamp() THEN 0 ELSE 1 END, pg_encoding_to_char(d.encoding), d.datcollate, d.datctype,
       (SELECT string_agg(e.extname || ' ' || e.extversion ||
                          CASE WHEN n.nspname NOT IN ('pg_catalog', 'public') THEN ' in ' || n.nspname ELSE '' END, ', ' ORDER BY e.extname)
        FROM pg_catalog.pg_extension e JOIN pg_catalog.pg_namespace n ON n.oid = e.extnamespace WHERE e.extname <> 'plpgsql'),
       /*@before 10 NULL @else*/
       (SELECT CAST(array_agg(format('%I.%I (%s)', n.nspname, l.collname, concat_ws(', ',
          CASE l.collprovider WHEN 'i' THEN 'PROVIDER = icu' WHEN 'c' THEN 'PROVIDER = libc' WHEN 'b' THEN 'PROVIDER = builtin' END,
          /*@since 17 'LOCALE = ' || quote_literal(l.colllocale), @else*/
          /*@since 15 'LOCALE = ' || quote_literal(l.colliculocale), */ /*@end*/
          'LC_COLLATE = ' || quote_literal(NULLIF(CAST(l.collcollate AS text), '')),
          'LC_CTYPE = ' || quote_literal(NULLIF(CAST(l.collctype AS text), ''))
          /*@since 16 , 'RULES = ' || quote_literal(l.collicurules) */
          /*@since 12 , CASE WHEN NOT l.collisdeterministic THEN 'DETERMINISTIC = false' END */)) ORDER BY n.nspname, l.collname) AS text)
        FROM pg_catalog.pg_collation l JOIN pg_catalog.pg_namespace n ON n.oid = l.collnamespace
        WHERE l.oid >= 16384 AND l.oid NOT IN (SELECT x.objid FROM pg_catalog.pg_depend x
              WHERE x.refclassid = CAST('pg_catalog.pg_extension' AS regclass) AND x.deptype = 'e'
              AND x.classid = CAST('pg_catalog.pg_collation' AS regclass))) /*@end*/
FROM pg_catalog.pg_database d WHERE d.datname = current_database() AND version() LIKE 'PostgreSQL %';

-- @schemas
-- row: schema_id, schema, option:owner
SELECT n.oid, n.nspname, pg_get_userbyid(n.nspowner)
FROM pg_catalog.pg_namespace n
WHERE /*@system TRUE @else*/ (left(n.nspname, 3) <> 'pg_' AND n.nspname <> 'information_schema') OR n.oid = pg_my_temp_schema() /*@end*/;

-- The numbers of the catalogs that comments are kept for never change.
-- @comments
-- row: of{1259=relation,1247=type,1255=routine,2606=constraint,2620=trigger,2615=schema}|id|position, comment
SELECT concat(d.classoid, '|', d.objoid, '|', d.objsubid), d.description
FROM pg_catalog.pg_description d
WHERE (/*@system TRUE @else*/ d.objoid >= 16384 OR d.classoid = 2615 /*@end*/)
  /*@ids AND (d.classoid <> 1259 OR d.objoid = ANY (CAST(?array(table_id) AS oid[])) OR d.objoid IN
      (SELECT i.indexrelid FROM pg_catalog.pg_index i WHERE i.indrelid = ANY (CAST(?array(table_id) AS oid[])))) */;

-- Operator classes that need no mention are left out. What is not found without its schema is named with it, both in quotes.
-- @names
-- row: of{m=method,o=operator_class,c=collation}, id, name, is_default
SELECT 'm', m.oid, m.amname, 0 FROM pg_catalog.pg_am m
UNION ALL SELECT 'o', o.oid, CASE WHEN o.oid < 16384 OR pg_opclass_is_visible(o.oid) THEN CAST(o.opcname AS text)
  ELSE (SELECT '"' || replace(n.nspname, '"', '""') || '"."' || replace(o.opcname, '"', '""') || '"' FROM pg_catalog.pg_namespace n
        WHERE n.oid = o.opcnamespace) END, 0 FROM pg_catalog.pg_opclass o WHERE NOT o.opcdefault
UNION ALL SELECT 'c', l.oid, CASE WHEN l.oid < 16384 OR pg_collation_is_visible(l.oid) THEN CAST(l.collname AS text)
  ELSE (SELECT '"' || replace(n.nspname, '"', '""') || '"."' || replace(l.collname, '"', '""') || '"' FROM pg_catalog.pg_namespace n
        WHERE n.oid = l.collnamespace) END, CASE WHEN l.oid = 100 THEN 1 ELSE 0 END FROM pg_catalog.pg_collation l;

-- @tables
-- row: table_id|schema_id|kind{r=table,p=partitioned table,v=view,m=materialized view,f=foreign table,P=partition,t=temporary table}|
-- row: option:unlogged{p=,t=,u=yes}|option:row security{0=,1=yes}|column_count|parent_id,
-- row: table, option:partition key, option:partition bound, option:of type, option:storage parameters, option:foreign server,
-- row: option:foreign options
SELECT concat(c.oid, '|', c.relnamespace, '|',
              CASE WHEN c.relpersistence = 't' AND c.relkind IN ('r', 'p') THEN 't'
                   /*@since 10 WHEN c.relispartition THEN 'P' */ ELSE CAST(c.relkind AS text) END, '|',
              c.relpersistence, '|', CAST(c.relrowsecurity AS int), '|', c.relnatts, '|',
              CASE WHEN c.oid IN (SELECT i.inhrelid FROM pg_catalog.pg_inherits i) THEN
                (SELECT string_agg(CAST(i.inhparent AS text), ' ' ORDER BY i.inhseqno) FROM pg_catalog.pg_inherits i
                 WHERE i.inhrelid = c.oid) END),
       c.relname,
       /*@before 10 NULL, NULL, @else*/ CASE WHEN c.relkind = 'p' THEN pg_get_partkeydef(c.oid) END,
       CASE WHEN c.relispartition THEN pg_get_expr(c.relpartbound, c.oid) END, /*@end*/
       CASE WHEN c.reloftype <> 0 THEN format_type(c.reloftype, NULL) END, CAST(c.reloptions AS text),
       s.srvname, CAST(f.ftoptions AS text)
FROM pg_catalog.pg_class c
LEFT JOIN pg_catalog.pg_foreign_table f ON f.ftrelid = c.oid
LEFT JOIN pg_catalog.pg_foreign_server s ON s.oid = f.ftserver
WHERE c.relkind IN ('r', 'p', 'v', 'm', 'f') AND (c.relpersistence <> 't' OR c.relnamespace = pg_my_temp_schema())
  /*@system @else*/ AND c.oid >= 16384 AND c.oid NOT IN
      (SELECT d.objid FROM pg_catalog.pg_depend d WHERE d.refclassid = CAST('pg_catalog.pg_extension' AS regclass)
       AND d.deptype = 'e' AND d.classid = CAST('pg_catalog.pg_class' AS regclass)) /*@end*/
  /*@owners AND c.relnamespace IN (SELECT n.oid FROM pg_catalog.pg_namespace n
                                   WHERE n.nspname = ANY (CAST(?array(owner) AS name[]))) */
  /*@tables AND c.relname = ANY (CAST(?array(table) AS name[])) */
  /*@ids AND c.oid = ANY (CAST(?array(table_id) AS oid[])) */;

-- A server's options are kept without those that look like secrets. A wrapper that an extension made comes with the extension.
-- @table_options
-- row: table_id, option:foreign wrapper, option:wrapper clauses, option:server type, option:server version, option:server options,
-- row: option:server options left out, option:column options
SELECT f.ftrelid, w.fdwname,
       CASE WHEN w.oid NOT IN (SELECT d.objid FROM pg_catalog.pg_depend d
              WHERE d.refclassid = CAST('pg_catalog.pg_extension' AS regclass) AND d.deptype = 'e'
              AND d.classid = CAST('pg_catalog.pg_foreign_data_wrapper' AS regclass)) THEN
         concat_ws(' ', CASE WHEN w.fdwhandler = 0 THEN 'NO HANDLER' ELSE 'HANDLER ' || CAST(CAST(w.fdwhandler AS regproc) AS text) END,
                   CASE WHEN w.fdwvalidator <> 0 THEN 'VALIDATOR ' || CAST(CAST(w.fdwvalidator AS regproc) AS text) END) END,
       s.srvtype, s.srvversion,
       (SELECT CAST(array_agg(o) AS text) FROM unnest(s.srvoptions) o WHERE o !~* '^[^=]*(passw|secret|token|credential)'),
       (SELECT string_agg(split_part(o, '=', 1), ', ') FROM unnest(s.srvoptions) o WHERE o ~* '^[^=]*(passw|secret|token|credential)'),
       (SELECT CAST(array_agg(x.v ORDER BY a.attnum, x.n) AS text) FROM pg_catalog.pg_attribute a
        CROSS JOIN LATERAL (VALUES (1, CAST(a.attname AS text)), (2, CAST(a.attfdwoptions AS text))) x(n, v)
        WHERE a.attrelid = f.ftrelid AND a.attfdwoptions IS NOT NULL AND NOT a.attisdropped)
FROM pg_catalog.pg_foreign_table f JOIN pg_catalog.pg_foreign_server s ON s.oid = f.ftserver
JOIN pg_catalog.pg_foreign_data_wrapper w ON w.oid = s.srvfdw
WHERE TRUE /*@ids AND f.ftrelid = ANY (CAST(?array(table_id) AS oid[])) */;

-- A dropped column keeps its number: it counts, so that one can tell when a table is whole.
-- @columns
-- row: table_id|position|type_id|type_modifier|collation_id|dimensions|not_null|identity{a=always,d=by default}|
-- row: generated{s=stored,v=virtual}|dropped, column
SELECT concat(a.attrelid, '|', a.attnum, '|', a.atttypid, '|', a.atttypmod, '|', a.attcollation, '|', a.attndims, '|',
              CAST(a.attnotnull AS int), '|', /*@before 10 '' @else*/ a.attidentity /*@end*/, '|',
              /*@before 12 '' @else*/ a.attgenerated /*@end*/, '|', CAST(a.attisdropped AS int)),
       a.attname
FROM pg_catalog.pg_attribute a JOIN pg_catalog.pg_class c ON c.oid = a.attrelid
WHERE a.attnum > 0 AND c.relkind IN ('r', 'p', 'v', 'm', 'f')
  /*@system @else*/ AND a.attrelid >= 16384 /*@end*/
  /*@ids AND a.attrelid = ANY (CAST(?array(table_id) AS oid[])) */;

-- The types in use, those that domains and arrays are made of with them. What a modifier means is a type's own affair.
-- OFFSET 0 keeps the look-up of each: joined as it stands, the server reads all types, two of every table, for the few in use.
-- @column_types
-- row: type_id, type_modifier, type, base_type, type_schema, length, precision, scale, collation_id, category, base_type_id,
-- row: base_type_modifier
WITH RECURSIVE used(oid, typmod) AS (
  SELECT p.oid, p.typmod FROM
    /*@types unnest(CAST(?array(type_id) AS oid[]), CAST(?array(type_modifier) AS int[])) @else*/
    (SELECT DISTINCT a.atttypid, a.atttypmod FROM pg_catalog.pg_attribute a JOIN pg_catalog.pg_class c ON c.oid = a.attrelid
     WHERE a.attrelid >= 16384 AND a.attnum > 0 AND NOT a.attisdropped AND c.relkind IN ('r', 'p', 'v', 'm', 'f')) /*@end*/
    AS p(oid, typmod)
  UNION
  SELECT x.oid, x.typmod FROM used u JOIN pg_catalog.pg_type t ON t.oid = u.oid
  CROSS JOIN LATERAL (VALUES (t.typbasetype, t.typtypmod), (t.typelem, u.typmod)) AS x(oid, typmod)
  WHERE x.oid <> 0 AND (x.oid = t.typbasetype OR t.typcategory = 'A'))
SELECT u.oid, u.typmod, format_type(u.oid, u.typmod),
       CASE WHEN n.nspname = 'pg_catalog' OR t.typcategory = 'A' THEN format_type(u.oid, NULL) ELSE t.typname END,
       CASE WHEN n.nspname <> 'pg_catalog' THEN n.nspname END,
       CASE WHEN t.typname IN ('varchar', 'bpchar') AND u.typmod > 4 THEN u.typmod - 4
            WHEN t.typname IN ('bit', 'varbit') AND u.typmod > 0 THEN u.typmod
            WHEN t.typname = 'name' THEN 63 WHEN t.typname = 'char' THEN 1 END,
       CASE WHEN t.typname = 'numeric' AND u.typmod >= 4 THEN ((u.typmod - 4) >> 16) & 65535
            WHEN t.typname IN ('time', 'timetz', 'timestamp', 'timestamptz') AND u.typmod >= 0 THEN u.typmod
            WHEN t.typname = 'interval' AND u.typmod >= 0 AND u.typmod & 65535 <> 65535 THEN u.typmod & 65535 END,
       CASE WHEN t.typname = 'numeric' AND u.typmod >= 4 THEN
         /*@before 15 (u.typmod - 4) & 65535 @else*/ (((u.typmod - 4) & 2047) # 1024) - 1024 /*@end*/ END,
       t.typcollation,
       CASE WHEN t.typcategory = 'A' THEN 'array' WHEN t.typtype = 'd' THEN 'domain' WHEN t.typtype = 'e' THEN 'enum'
            WHEN t.typtype = 'c' THEN 'composite' WHEN t.typtype IN ('r', 'm') THEN 'range' END,
       CASE WHEN t.typcategory = 'A' THEN t.typelem ELSE t.typbasetype END,
       CASE WHEN t.typcategory = 'A' THEN u.typmod ELSE t.typtypmod END
FROM used u CROSS JOIN LATERAL (
  SELECT y.typname, y.typnamespace, y.typcollation, y.typcategory, y.typtype, y.typelem, y.typbasetype, y.typtypmod
  FROM pg_catalog.pg_type y WHERE y.oid = u.oid OFFSET 0) t
JOIN pg_catalog.pg_namespace n ON n.oid = t.typnamespace;

-- With a table pg_get_expr opens that table, ten times as dear; only an expression that names columns needs it.
-- @column_defaults
-- row: table_id|position, default
SELECT concat(d.adrelid, '|', d.adnum),
       pg_get_expr(d.adbin, CASE WHEN strpos(CAST(d.adbin AS text), ':varno') > 0 THEN d.adrelid ELSE 0 END)
FROM pg_catalog.pg_attrdef d
WHERE /*@system TRUE @else*/ d.adrelid >= 16384 /*@end*/ /*@ids AND d.adrelid = ANY (CAST(?array(table_id) AS oid[])) */;

-- @view_texts
-- row: table_id, text
SELECT c.oid, pg_get_viewdef(c.oid) FROM pg_catalog.pg_class c
WHERE c.relkind IN ('v', 'm') /*@system @else*/ AND c.oid >= 16384 /*@end*/
  /*@ids AND c.oid = ANY (CAST(?array(table_id) AS oid[])) */;

-- A foreign key of or to a partitioned table has a copy for each partition: those are left out. A domain's checks have no table.
-- @constraints
-- row: constraint_id|table_id|type_id|kind{p=primary,u=unique,f=foreign,c=check,x=exclusion}|deferrable{i=immediate,d=deferred}|
-- row: option:validated{1=,0=no}|option:no inherit|index_id|column_positions|target_id|target_positions|
-- row: on_update{a=no action,r=restrict,c=cascade,n=set null,d=set default}|
-- row: on_delete{a=no action,r=restrict,c=cascade,n=set null,d=set default}|match{s=simple,f=full,p=partial}|set_positions,
-- row: name, expression
SELECT concat(o.oid, '|', o.conrelid, '|', o.contypid, '|', o.contype, '|',
              CASE WHEN o.condeferred THEN 'd' WHEN o.condeferrable THEN 'i' END, '|', CAST(o.convalidated AS int), '|',
              CASE WHEN o.contype = 'c' AND o.connoinherit THEN 1 END, '|', o.conindid, '|', o.conkey, '|',
              CASE WHEN o.contype = 'f' THEN o.confrelid END, '|', o.confkey, '|', o.confupdtype, '|', o.confdeltype, '|',
              o.confmatchtype, '|', /*@before 15 NULL @else*/ o.confdelsetcols /*@end*/),
       o.conname,
       CASE o.contype WHEN 'c' THEN pg_get_expr(o.conbin, o.conrelid) WHEN 'x' THEN pg_get_constraintdef(o.oid) END
FROM pg_catalog.pg_constraint o
WHERE o.contype IN ('p', 'u', 'f', 'c', 'x') /*@before 11 @else*/ AND (o.contype <> 'f' OR o.conparentid = 0) /*@end*/
  /*@system @else*/ AND o.oid >= 16384 /*@end*/
  /*@ids AND o.conrelid = ANY (array_append(CAST(?array(table_id) AS oid[]), CAST(0 AS oid))) */;

-- Where a part is an expression, all parts are given as texts.
-- @indexes
-- row: index_id|table_id|method_id|unique|option:valid{1=,0=no}|key_count|option:nulls not distinct{0=,1=yes}|column_positions|
-- row: orders|operator_class_ids|collation_ids, name, predicate, expressions, option:storage parameters
SELECT concat(i.indexrelid, '|', i.indrelid, '|', c.relam, '|', CAST(i.indisunique AS int), '|',
              CAST(i.indisvalid AS int), '|', /*@before 11 i.indnatts @else*/ i.indnkeyatts /*@end*/, '|',
              /*@before 15 0 @else*/ CAST(i.indnullsnotdistinct AS int) /*@end*/, '|',
              i.indkey, '|', i.indoption, '|', i.indclass, '|', i.indcollation),
       c.relname,
       CASE WHEN i.indpred IS NOT NULL THEN pg_get_expr(i.indpred, i.indrelid) END,
       CASE WHEN i.indexprs IS NOT NULL THEN
         CAST(ARRAY(SELECT pg_get_indexdef(i.indexrelid, k, false) FROM generate_series(1, i.indnatts) k) AS text) END,
       CAST(c.reloptions AS text)
FROM pg_catalog.pg_index i JOIN pg_catalog.pg_class c ON c.oid = i.indexrelid
JOIN pg_catalog.pg_class t ON t.oid = i.indrelid
WHERE t.relkind IN ('r', 'p', 'm') /*@system @else*/ AND i.indrelid >= 16384 /*@end*/
  /*@ids AND i.indrelid = ANY (CAST(?array(table_id) AS oid[])) */;

-- @triggers
-- row: table_id, trigger_id, name, timing, events, text, option:enabled{O=,D=no,R=replica,A=always}
SELECT g.tgrelid, g.oid, g.tgname,
       CASE WHEN g.tgtype & 2 <> 0 THEN 'before' WHEN g.tgtype & 64 <> 0 THEN 'instead of' ELSE 'after' END,
       concat_ws(', ', CASE WHEN g.tgtype & 4 <> 0 THEN 'insert' END,
                 CASE WHEN g.tgtype & 16 <> 0 THEN 'update' ||
                   coalesce((SELECT ' of ' || string_agg(a.attname, ', ' ORDER BY a.attnum) FROM pg_catalog.pg_attribute a
                             WHERE a.attrelid = g.tgrelid AND a.attnum = ANY (g.tgattr)), '') END,
                 CASE WHEN g.tgtype & 8 <> 0 THEN 'delete' END, CASE WHEN g.tgtype & 32 <> 0 THEN 'truncate' END),
       pg_get_triggerdef(g.oid), g.tgenabled
FROM pg_catalog.pg_trigger g
WHERE NOT g.tgisinternal /*@system @else*/ AND g.tgrelid >= 16384 /*@end*/
  /*@ids AND g.tgrelid = ANY (CAST(?array(table_id) AS oid[])) */;

-- @types
-- row: type_id|schema_id|kind{e=enum,d=domain,c=composite,r=range}|not_null|collation_id|position,
-- row: name, base_type, default, label, attribute, attribute_type
SELECT concat(t.oid, '|', t.typnamespace, '|', t.typtype, '|', CAST(t.typnotnull AS int), '|',
              CASE WHEN t.typtype = 'd' AND t.typcollation <> b.typcollation THEN t.typcollation END, '|', p.position),
       t.typname,
       CASE t.typtype WHEN 'd' THEN format_type(t.typbasetype, t.typtypmod) WHEN 'r' THEN format_type(g.rngsubtype, NULL) END,
       t.typdefault, p.label, p.attribute, p.type
FROM pg_catalog.pg_type t
LEFT JOIN pg_catalog.pg_class c ON c.oid = t.typrelid
LEFT JOIN pg_catalog.pg_type b ON b.oid = t.typbasetype
LEFT JOIN pg_catalog.pg_range g ON g.rngtypid = t.oid
LEFT JOIN LATERAL (
  SELECT row_number() OVER (ORDER BY e.enumsortorder) AS position, CAST(e.enumlabel AS text) AS label,
         CAST(NULL AS text) AS attribute, CAST(NULL AS text) AS type
  FROM pg_catalog.pg_enum e WHERE e.enumtypid = t.oid
  UNION ALL
  SELECT a.attnum, NULL, CAST(a.attname AS text), format_type(a.atttypid, a.atttypmod) FROM pg_catalog.pg_attribute a
  WHERE a.attrelid = t.typrelid AND a.attnum > 0 AND NOT a.attisdropped) p ON t.typtype IN ('e', 'c')
WHERE t.typtype IN ('e', 'd', 'c', 'r') AND (t.typtype <> 'c' OR c.relkind = 'c')
  /*@system @else*/ AND t.oid >= 16384 AND t.oid NOT IN
      (SELECT d.objid FROM pg_catalog.pg_depend d WHERE d.refclassid = CAST('pg_catalog.pg_extension' AS regclass)
       AND d.deptype = 'e' AND d.classid = CAST('pg_catalog.pg_type' AS regclass)) /*@end*/
  /*@types AND t.oid = ANY (CAST(?array(type_id) AS oid[])) */;

-- Before version 10 only a user who may use a sequence learns its numbers.
-- @sequences since 10
-- row: sequence_id|schema_id|cycle|owner_table_id|owner_position|option:identity{a=,i=yes}, name, type, start, increment, minimum,
-- row: maximum, cache
SELECT concat(c.oid, '|', c.relnamespace, '|', CAST(s.seqcycle AS int), '|', d.refobjid, '|', d.refobjsubid, '|', d.deptype),
       c.relname, format_type(s.seqtypid, NULL), s.seqstart, s.seqincrement, s.seqmin, s.seqmax, s.seqcache
FROM pg_catalog.pg_sequence s JOIN pg_catalog.pg_class c ON c.oid = s.seqrelid
LEFT JOIN pg_catalog.pg_depend d ON d.classid = CAST('pg_catalog.pg_class' AS regclass) AND d.objid = s.seqrelid
     AND d.objsubid = 0 AND d.refclassid = CAST('pg_catalog.pg_class' AS regclass) AND d.deptype IN ('a', 'i')
WHERE (c.relpersistence <> 't' OR c.relnamespace = pg_my_temp_schema())
  /*@system @else*/ AND c.oid >= 16384 AND c.oid NOT IN
      (SELECT x.objid FROM pg_catalog.pg_depend x WHERE x.refclassid = CAST('pg_catalog.pg_extension' AS regclass)
       AND x.deptype = 'e' AND x.classid = CAST('pg_catalog.pg_class' AS regclass)) /*@end*/
  /*@ids AND d.refobjid = ANY (CAST(?array(table_id) AS oid[])) */;

-- @sequences before 10
-- row: sequence_id|schema_id|cycle|owner_table_id|owner_position, name, start, increment, minimum, maximum
SELECT concat(c.oid, '|', c.relnamespace, '|', CAST(s.cycle_option AS int), '|', d.refobjid, '|', d.refobjsubid),
       c.relname, s.start_value, s.increment, s.minimum_value, s.maximum_value
FROM pg_catalog.pg_class c
LEFT JOIN LATERAL pg_sequence_parameters(c.oid) s
     ON CASE WHEN c.relkind = 'S' THEN has_sequence_privilege(c.oid, 'SELECT, UPDATE, USAGE') ELSE FALSE END
LEFT JOIN pg_catalog.pg_depend d ON d.classid = CAST('pg_catalog.pg_class' AS regclass) AND d.objid = c.oid
     AND d.objsubid = 0 AND d.refclassid = CAST('pg_catalog.pg_class' AS regclass) AND d.deptype = 'a'
WHERE c.relkind = 'S' AND (c.relpersistence <> 't' OR c.relnamespace = pg_my_temp_schema())
  /*@system @else*/ AND c.oid >= 16384 AND c.oid NOT IN
      (SELECT x.objid FROM pg_catalog.pg_depend x WHERE x.refclassid = CAST('pg_catalog.pg_extension' AS regclass)
       AND x.deptype = 'e' AND x.classid = CAST('pg_catalog.pg_class' AS regclass)) /*@end*/
  /*@ids AND d.refobjid = ANY (CAST(?array(table_id) AS oid[])) */;

-- The text of an aggregate is what stands in the parentheses of its statement. What a type or an extension made comes with it.
-- @routines
-- row: id|schema_id|kind{f=function,p=procedure,a=aggregate,w=window}|option:volatility{v=,s=stable,i=immutable}|
-- row: option:strict{0=,1=yes}|option:security definer{0=,1=yes}|option:parallel{u=,s=safe,r=restricted}|option:leakproof{0=,1=yes},
-- row: name, language, arguments, result, text, option:cost, option:rows, option:settings, option:library, option:arguments
SELECT concat(p.oid, '|', p.pronamespace, '|',
              /*@before 11 CASE WHEN p.proisagg THEN 'a' WHEN p.proiswindow THEN 'w' ELSE 'f' END @else*/ p.prokind /*@end*/, '|',
              p.provolatile, '|', CAST(p.proisstrict AS int), '|', CAST(p.prosecdef AS int), '|', p.proparallel, '|',
              CAST(p.proleakproof AS int)),
       p.proname, l.lanname, pg_get_function_arguments(p.oid), pg_get_function_result(p.oid),
       CASE WHEN a.aggfnoid IS NOT NULL THEN concat_ws(', ', 'SFUNC = ' || CAST(a.aggtransfn AS text), 'STYPE = ' || format_type(a.aggtranstype, NULL),
              'SSPACE = ' || NULLIF(a.aggtransspace, 0), 'FINALFUNC = ' || NULLIF(CAST(a.aggfinalfn AS text), '-'),
              CASE WHEN a.aggfinalextra THEN 'FINALFUNC_EXTRA' END,
              /*@since 11 CASE WHEN a.aggfinalfn <> 0 THEN 'FINALFUNC_MODIFY = ' ||
                CASE a.aggfinalmodify WHEN 'r' THEN 'READ_ONLY' WHEN 's' THEN 'SHAREABLE' ELSE 'READ_WRITE' END END, */
              'COMBINEFUNC = ' || NULLIF(CAST(a.aggcombinefn AS text), '-'), 'SERIALFUNC = ' || NULLIF(CAST(a.aggserialfn AS text), '-'),
              'DESERIALFUNC = ' || NULLIF(CAST(a.aggdeserialfn AS text), '-'), 'INITCOND = ' || quote_literal(a.agginitval),
              'MSFUNC = ' || NULLIF(CAST(a.aggmtransfn AS text), '-'), 'MINVFUNC = ' || NULLIF(CAST(a.aggminvtransfn AS text), '-'),
              CASE WHEN a.aggmtranstype <> 0 THEN 'MSTYPE = ' || format_type(a.aggmtranstype, NULL) END,
              'MSSPACE = ' || NULLIF(a.aggmtransspace, 0), 'MFINALFUNC = ' || NULLIF(CAST(a.aggmfinalfn AS text), '-'),
              CASE WHEN a.aggmfinalextra THEN 'MFINALFUNC_EXTRA' END,
              /*@since 11 CASE WHEN a.aggmfinalfn <> 0 THEN 'MFINALFUNC_MODIFY = ' ||
                CASE a.aggmfinalmodify WHEN 'r' THEN 'READ_ONLY' WHEN 's' THEN 'SHAREABLE' ELSE 'READ_WRITE' END END, */
              'MINITCOND = ' || quote_literal(a.aggminitval),
              (SELECT format('SORTOP = OPERATOR(%I.%s)', n.nspname, o.oprname) FROM pg_catalog.pg_operator o
               JOIN pg_catalog.pg_namespace n ON n.oid = o.oprnamespace WHERE o.oid = a.aggsortop),
              CASE p.proparallel WHEN 's' THEN 'PARALLEL = SAFE' WHEN 'r' THEN 'PARALLEL = RESTRICTED' END,
              CASE WHEN a.aggkind = 'h' THEN 'HYPOTHETICAL' END)
            ELSE /*@before 14 p.prosrc @else*/ coalesce(pg_get_function_sqlbody(p.oid), p.prosrc) /*@end*/ END,
       CASE WHEN a.aggfnoid IS NULL AND p.procost <> CASE WHEN l.lanname IN ('c', 'internal') THEN 1 ELSE 100 END THEN p.procost END,
       CASE WHEN p.proretset AND p.prorows <> 1000 THEN p.prorows END,
       (SELECT string_agg(concat('SET ', split_part(s, '=', 1), ' TO ',
          CASE WHEN split_part(s, '=', 1) IN ('search_path', 'temp_tablespaces', 'local_preload_libraries', 'session_preload_libraries')
               THEN substr(s, strpos(s, '=') + 1) ELSE quote_literal(substr(s, strpos(s, '=') + 1)) END), ' ') FROM unnest(p.proconfig) s),
       p.probin, CASE WHEN a.aggkind <> 'n' THEN pg_get_function_arguments(p.oid) END
FROM pg_catalog.pg_proc p LEFT JOIN pg_catalog.pg_language l ON l.oid = p.prolang
LEFT JOIN pg_catalog.pg_aggregate a ON a.aggfnoid = p.oid
WHERE TRUE /*@system @else*/ AND p.oid >= 16384 AND p.oid NOT IN
      (SELECT d.objid FROM pg_catalog.pg_depend d WHERE d.classid = CAST('pg_catalog.pg_proc' AS regclass)
       AND (d.refclassid = CAST('pg_catalog.pg_extension' AS regclass) AND d.deptype = 'e' OR
            d.refclassid = CAST('pg_catalog.pg_type' AS regclass) AND d.deptype = 'i')) /*@end*/
  /*@owners AND p.pronamespace IN (SELECT n.oid FROM pg_catalog.pg_namespace n
                                   WHERE n.nspname = ANY (CAST(?array(owner) AS name[]))) */;

-- @parameters
-- row: id, position, mode{i=in,o=out,b=inout,v=variadic,t=table}, name, type, default
SELECT p.oid, a.n, coalesce(a.mode, 'i'), a.name, format_type(a.type, NULL),
       CASE WHEN p.pronargdefaults > 0 THEN pg_get_function_arg_default(p.oid, CAST(a.n AS int)) END
FROM pg_catalog.pg_proc p
CROSS JOIN LATERAL unnest(coalesce(p.proallargtypes, CAST(p.proargtypes AS oid[])), p.proargmodes, p.proargnames)
     WITH ORDINALITY AS a(type, mode, name, n)
WHERE a.type IS NOT NULL /*@system @else*/ AND p.oid >= 16384 AND p.oid NOT IN
      (SELECT d.objid FROM pg_catalog.pg_depend d WHERE d.classid = CAST('pg_catalog.pg_proc' AS regclass)
       AND (d.refclassid = CAST('pg_catalog.pg_extension' AS regclass) AND d.deptype = 'e' OR
            d.refclassid = CAST('pg_catalog.pg_type' AS regclass) AND d.deptype = 'i')) /*@end*/
  /*@owners AND p.pronamespace IN (SELECT n.oid FROM pg_catalog.pg_namespace n
                                   WHERE n.nspname = ANY (CAST(?array(owner) AS name[]))) */;

-- What the kinds have no place for.
-- @not_read
-- row: kind, schema, name, reason, failed
SELECT x.kind, x.schema, x.name, x.reason, 0 FROM (
  SELECT 'operators' AS kind, CAST(n.nspname AS text) AS schema, CAST(o.oprname AS text) AS name, 'an operator of the user is not read' AS reason,
         CAST('pg_catalog.pg_operator' AS regclass) AS class, o.oid
  FROM pg_catalog.pg_operator o JOIN pg_catalog.pg_namespace n ON n.oid = o.oprnamespace WHERE o.oid >= 16384
  UNION ALL
  SELECT 'operator classes', n.nspname, o.opcname, 'an operator class of the user is not read', CAST('pg_catalog.pg_opclass' AS regclass), o.oid
  FROM pg_catalog.pg_opclass o JOIN pg_catalog.pg_namespace n ON n.oid = o.opcnamespace WHERE o.oid >= 16384
  UNION ALL
  SELECT 'types', n.nspname, t.typname, 'a type written in C is not read', CAST('pg_catalog.pg_type' AS regclass), t.oid
  FROM pg_catalog.pg_type t JOIN pg_catalog.pg_namespace n ON n.oid = t.typnamespace
  WHERE t.oid >= 16384 AND t.typtype = 'b' AND t.typcategory <> 'A'
  UNION ALL
  SELECT 'casts', NULL, format_type(c.castsource, NULL) || ' to ' || format_type(c.casttarget, NULL), 'a cast of the user is not read',
         CAST('pg_catalog.pg_cast' AS regclass), c.oid
  FROM pg_catalog.pg_cast c WHERE c.oid >= 16384
  UNION ALL
  SELECT 'text search configurations', n.nspname, c.cfgname, 'a text search configuration is not read',
         CAST('pg_catalog.pg_ts_config' AS regclass), c.oid
  FROM pg_catalog.pg_ts_config c JOIN pg_catalog.pg_namespace n ON n.oid = c.cfgnamespace WHERE c.oid >= 16384
  UNION ALL
  SELECT 'rules', n.nspname, c.relname || '.' || r.rulename, 'a rule is not read', CAST('pg_catalog.pg_rewrite' AS regclass), r.oid
  FROM pg_catalog.pg_rewrite r JOIN pg_catalog.pg_class c ON c.oid = r.ev_class JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace
  WHERE r.oid >= 16384 AND r.rulename <> '_RETURN'
  /*@since 10 UNION ALL
  SELECT 'statistics', n.nspname, s.stxname, 'extended statistics are not read', CAST('pg_catalog.pg_statistic_ext' AS regclass), s.oid
  FROM pg_catalog.pg_statistic_ext s JOIN pg_catalog.pg_namespace n ON n.oid = s.stxnamespace WHERE s.oid >= 16384 */
  UNION ALL
  SELECT 'event triggers', NULL, e.evtname, 'an event trigger is not read', CAST('pg_catalog.pg_event_trigger' AS regclass), e.oid
  FROM pg_catalog.pg_event_trigger e) x
WHERE NOT EXISTS (SELECT 1 FROM pg_catalog.pg_depend d WHERE d.classid = x.class AND d.objid = x.oid AND d.deptype IN ('e', 'i')
                  AND d.refclassid IN (CAST('pg_catalog.pg_extension' AS regclass), CAST('pg_catalog.pg_type' AS regclass)))
  /*@owners AND x.schema = ANY (CAST(?array(owner) AS text[])) */;
