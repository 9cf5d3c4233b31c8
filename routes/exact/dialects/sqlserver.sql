-- Microsoft SQL Server 2012 and later: the catalog views of the schema sys, by numbers; the client joins. Facts that are numbers or
-- single letters are packed into the first cell. Comments are the extended properties MS_Description.
--
-- Columns used (https://learn.microsoft.com/en-us/sql/relational-databases/system-catalog-views/), all of SQL Server 2005 but for:
-- sys.columns.is_sparse, sys.indexes.filter_definition, sys.table_types 2008; sys.sequences 2012; sys.tables.is_memory_optimized 2014; sys.tables.temporal_type and history_table_id,
-- sys.columns.generated_always_type and is_hidden 2016. CONCAT, which takes NULL for an empty text, is of 2012.
-- Objects that the user has no right on are not in these views; where the user cannot see all definitions, that is said.
-- A statement may have 2,100 parameters, and two lists. Not read: what is in partitions, statistics, rights.
--
-- dialect: sqlserver
-- product: Microsoft SQL Server
-- version: 11
-- quote: []
-- list limit: 1000
-- type: BIT = bit
-- type: TINYINT = tinyint
-- type: SMALLINT = smallint
-- type: INTEGER = int
-- type: BIGINT = bigint
-- type: REAL = real
-- type: FLOAT = float
-- type: DECIMAL = decimal, money, smallmoney
-- type: NUMERIC = numeric
-- type: CHAR = char, nchar
-- type: VARCHAR = varchar, nvarchar, sysname
-- type: LONGVARCHAR = text, ntext, varchar(max), nvarchar(max)
-- type: BINARY = binary, timestamp
-- type: VARBINARY = varbinary
-- type: LONGVARBINARY = image, varbinary(max)
-- type: DATE = date
-- type: TIME = time
-- type: TIMESTAMP = datetime, datetime2, smalldatetime, datetimeoffset

-- Azure SQL Database (5) and Managed Instance (8) call themselves version 12, and have what the newest has.
-- @server
-- row: catalog, schema, version, sample, in_transaction
SELECT DB_NAME(), SCHEMA_NAME(),
       CASE WHEN SERVERPROPERTY('EngineEdition') IN (5, 8) THEN '16' ELSE CAST(SERVERPROPERTY('ProductVersion') AS nvarchar(128)) END, 'ä€', 0;

-- @probe
-- row: -
SELECT COUNT(s.start_value) FROM sys.sequences s WHERE s.object_id = 0;

-- @not_read
-- row: kind, reason, failed
SELECT 'tables', 'the server shows objects only to users with a right on them, and this one may not view every definition', 0
WHERE HAS_PERMS_BY_NAME(DB_NAME(), 'DATABASE', 'VIEW DEFINITION') = 0;

-- @schemas
-- row: schema_id|is_default, schema
SELECT CONCAT(s.schema_id, '|', CASE WHEN s.name = SCHEMA_NAME() THEN 1 ELSE 0 END), s.name
FROM sys.schemas s
WHERE (s.schema_id < 16384 AND s.name NOT IN ('sys', 'INFORMATION_SCHEMA')
       AND (s.name <> 'guest' OR EXISTS (SELECT 1 FROM sys.objects o WHERE o.schema_id = s.schema_id))
       /*@system OR 1 = 1 */);

-- A comment of an index has the number that `indexes` makes for it.
-- @comments
-- row: of{U=relation,V=relation,SN=relation,SO=relation,P=routine,PC=routine,FN=routine,IF=routine,TF=routine,FS=routine,FT=routine,AF=routine,TR=trigger,TA=trigger,PK=constraint,UQ=constraint,F=constraint,C=constraint,D=constraint},
-- row: id, position, comment
SELECT RTRIM(o.type), p.major_id, p.minor_id, CAST(p.value AS nvarchar(4000))
FROM sys.extended_properties p JOIN sys.objects o ON o.object_id = p.major_id
WHERE p.class = 1 AND p.name = 'MS_Description'
UNION ALL
SELECT CASE p.class WHEN 3 THEN 'schema' WHEN 6 THEN 'type' ELSE 'relation' END,
       CASE p.class WHEN 7 THEN CAST(p.major_id AS bigint) * 1048576 + p.minor_id ELSE p.major_id END, 0, CAST(p.value AS nvarchar(4000))
FROM sys.extended_properties p
WHERE p.class IN (3, 6, 7) AND p.name = 'MS_Description';

-- @tables
-- row: table_id|schema_id|kind{U=table,V=view,SN=synonym,S=system table}|
-- row: option:temporal{0=,1=history table,2=system versioned}|option:memory optimized{0=},
-- row: table, target_server, target_database, target_schema, target_table
SELECT CONCAT(o.object_id, '|', o.schema_id, '|', RTRIM(o.type), '|', /*@since 13 t.temporal_type @else*/ 0 /*@end*/, '|',
              /*@since 12 t.is_memory_optimized @else*/ 0 /*@end*/),
       o.name, PARSENAME(n.base_object_name, 4), PARSENAME(n.base_object_name, 3), PARSENAME(n.base_object_name, 2),
       PARSENAME(n.base_object_name, 1)
FROM sys.objects o
LEFT JOIN sys.tables t ON t.object_id = o.object_id
LEFT JOIN sys.synonyms n ON n.object_id = o.object_id
WHERE o.type IN ('U', 'V', 'SN') AND (o.is_ms_shipped = 0 /*@system OR 1 = 1 */)
  /*@owners AND o.schema_id IN (SELECT s.schema_id FROM sys.schemas s WHERE s.name IN (?list(owner))) */
  /*@tables AND o.name IN (?list(table)) */
  /*@ids AND o.object_id IN (?list(table_id)) */;

-- A type's sizes are its modifier: bytes, digits and digits behind the point in one number, which `column_types` takes apart. A collation is told where it
-- is not the database's; no name of one has a bar.
-- @columns
-- row: table_id|position|type_id|type_modifier|nullable|identity{1=always,0=}|generated{0=,1=virtual,2=stored}|
-- row: option:sparse{0=}|option:row guid{0=}|option:generated always{0=,1=row start,2=row end,5=transaction start,6=transaction end,7=sequence start,8=sequence end}|option:hidden{0=}|collation,
-- row: column
SELECT CONCAT(c.object_id, '|', c.column_id, '|', c.user_type_id, '|', (c.max_length + 1) * 65536 + c.precision * 256 + c.scale, '|',
              CAST(c.is_nullable AS int), '|', CAST(c.is_identity AS int), '|',
              CASE WHEN c.is_computed = 0 THEN 0 ELSE 1 + CAST(k.is_persisted AS int) END, '|', CAST(c.is_sparse AS int), '|',
              CAST(c.is_rowguidcol AS int), '|', /*@since 13 c.generated_always_type @else*/ 0 /*@end*/, '|',
              /*@since 13 CAST(c.is_hidden AS int) @else*/ 0 /*@end*/, '|',
              NULLIF(c.collation_name, CAST(DATABASEPROPERTYEX(DB_NAME(), 'Collation') AS nvarchar(128)))),
       c.name
FROM sys.columns c
LEFT JOIN sys.computed_columns k ON k.object_id = c.object_id AND k.column_id = c.column_id
WHERE 1 = 1 /*@ids AND c.object_id IN (?list(table_id)) */;

-- An alias type is a domain; what it is made of has the same modifier. A clr type has no type below it.
-- @column_types
-- row: type_id, type_modifier, type, base_type, type_schema, length, precision, scale, category, base_type_id, base_type_modifier
SELECT u.id, u.modifier,
       CASE WHEN t.is_user_defined = 1 THEN CONCAT(s.name, '.', t.name)
            WHEN t.name IN ('varchar', 'nvarchar', 'varbinary') AND u.max_length = -1 THEN CONCAT(t.name, '(max)')
            WHEN t.name IN ('char', 'varchar', 'binary', 'varbinary') THEN CONCAT(t.name, '(', u.max_length, ')')
            WHEN t.name IN ('nchar', 'nvarchar') THEN CONCAT(t.name, '(', u.max_length / 2, ')')
            WHEN t.name IN ('decimal', 'numeric') THEN CONCAT(t.name, '(', u.precision, ',', u.scale, ')')
            WHEN t.name IN ('time', 'datetime2', 'datetimeoffset') THEN CONCAT(t.name, '(', u.scale, ')')
            ELSE t.name END,
       CASE WHEN u.max_length = -1 AND t.name IN ('varchar', 'nvarchar', 'varbinary') THEN CONCAT(t.name, '(max)') ELSE t.name END,
       CASE WHEN t.is_user_defined = 1 THEN s.name END,
       CASE WHEN u.max_length = -1 THEN NULL
            WHEN t.name IN ('char', 'varchar', 'binary', 'varbinary') THEN u.max_length
            WHEN t.name IN ('nchar', 'nvarchar', 'sysname') THEN u.max_length / 2 END,
       CASE WHEN t.name IN ('decimal', 'numeric', 'float', 'money', 'smallmoney') THEN u.precision
            WHEN t.name IN ('time', 'datetime2', 'datetimeoffset') THEN u.scale END,
       CASE WHEN t.name IN ('decimal', 'numeric', 'money', 'smallmoney') THEN u.scale END,
       CASE WHEN t.is_user_defined = 1 AND t.is_assembly_type = 0 AND t.is_table_type = 0 THEN 'domain' END,
       CASE WHEN t.is_user_defined = 1 AND t.is_assembly_type = 0 AND t.is_table_type = 0 THEN t.system_type_id END, u.modifier
FROM (SELECT c.user_type_id AS id, (c.max_length + 1) * 65536 + c.precision * 256 + c.scale AS modifier, c.max_length, c.precision, c.scale
      FROM sys.columns c
      WHERE 1 = 1 /*@ids AND c.object_id IN (?list(table_id)) */
      UNION
      SELECT c.system_type_id, (c.max_length + 1) * 65536 + c.precision * 256 + c.scale, c.max_length, c.precision, c.scale
      FROM sys.columns c
      WHERE c.user_type_id <> c.system_type_id /*@ids AND c.object_id IN (?list(table_id)) */) u
JOIN sys.types t ON t.user_type_id = u.id
JOIN sys.schemas s ON s.schema_id = t.schema_id;

-- @column_defaults
-- row: table_id|position, default
SELECT CONCAT(d.parent_object_id, '|', d.parent_column_id), d.definition
FROM sys.default_constraints d
WHERE 1 = 1 /*@ids AND d.parent_object_id IN (?list(table_id)) */
UNION ALL
SELECT CONCAT(k.object_id, '|', k.column_id), k.definition
FROM sys.computed_columns k
WHERE 1 = 1 /*@ids AND k.object_id IN (?list(table_id)) */;

-- One column of a table at most numbers itself. Where it began is an sql_variant, which has to be cast.
-- @table_options
-- row: table_id, option:identity start{1=}, option:identity increment{1=}, option:history table
SELECT i.object_id, CAST(i.seed_value AS nvarchar(40)), CAST(i.increment_value AS nvarchar(40)), NULL
FROM sys.identity_columns i
WHERE 1 = 1 /*@ids AND i.object_id IN (?list(table_id)) */
/*@since 13 UNION ALL
SELECT t.object_id, NULL, NULL, CONCAT(s.name, '.', h.name)
FROM sys.tables t
JOIN sys.tables h ON h.object_id = t.history_table_id
JOIN sys.schemas s ON s.schema_id = h.schema_id */;

-- @view_texts
-- row: table_id, definition, reason
SELECT o.object_id, m.definition,
       CASE WHEN m.definition IS NULL THEN 'the server keeps the text of this view: it is encrypted, or its definition may not be viewed' END
FROM sys.objects o LEFT JOIN sys.sql_modules m ON m.object_id = o.object_id
WHERE o.type = 'V' AND (o.is_ms_shipped = 0 /*@system OR 1 = 1 */) /*@ids AND o.object_id IN (?list(table_id)) */;

-- @keys
-- row: constraint_id|table_id|kind{PK=primary,UQ=unique}|position, name, column
SELECT CONCAT(k.object_id, '|', k.parent_object_id, '|', RTRIM(k.type), '|', i.key_ordinal), k.name, c.name
FROM sys.key_constraints k
JOIN sys.index_columns i ON i.object_id = k.parent_object_id AND i.index_id = k.unique_index_id
JOIN sys.columns c ON c.object_id = i.object_id AND c.column_id = i.column_id
WHERE i.key_ordinal > 0 /*@ids AND k.parent_object_id IN (?list(table_id)) */;

-- @foreign_keys
-- row: constraint_id|table_id|position|enforced|option:trusted{1=no,0=}|
-- row: on_delete{0=no action,1=cascade,2=set null,3=set default}|on_update{0=no action,1=cascade,2=set null,3=set default},
-- row: name, column, target_schema, target_table, target_column
SELECT CONCAT(f.object_id, '|', f.parent_object_id, '|', k.constraint_column_id, '|', CASE f.is_disabled WHEN 1 THEN 0 ELSE 1 END, '|',
              CAST(f.is_not_trusted AS int), '|', f.delete_referential_action, '|', f.update_referential_action),
       f.name, c.name, s.name, t.name, r.name
FROM sys.foreign_keys f
JOIN sys.foreign_key_columns k ON k.constraint_object_id = f.object_id
JOIN sys.columns c ON c.object_id = k.parent_object_id AND c.column_id = k.parent_column_id
JOIN sys.columns r ON r.object_id = k.referenced_object_id AND r.column_id = k.referenced_column_id
JOIN sys.objects t ON t.object_id = f.referenced_object_id
JOIN sys.schemas s ON s.schema_id = t.schema_id
WHERE 1 = 1 /*@ids AND f.parent_object_id IN (?list(table_id)) */;

-- @checks
-- row: constraint_id|table_id|enforced|option:trusted{1=no,0=}, name, expression
SELECT CONCAT(k.object_id, '|', k.parent_object_id, '|', CASE k.is_disabled WHEN 1 THEN 0 ELSE 1 END, '|', CAST(k.is_not_trusted AS int)),
       k.name, k.definition
FROM sys.check_constraints k
WHERE 1 = 1 /*@ids AND k.parent_object_id IN (?list(table_id)) */;

-- Included columns have no place in the order; they follow. Nor have those of an index for XML (3), places (4) and JSON (9), which are its only ones.
-- @indexes
-- row: index_id|table_id|unique|position|descending|included|option:disabled{0=}, name, method{NONCLUSTERED=}, column, predicate
SELECT CONCAT(CAST(i.object_id AS bigint) * 1048576 + i.index_id, '|', i.object_id, '|', CAST(i.is_unique AS int), '|',
              CASE WHEN k.is_included_column = 1 THEN 1000 + k.index_column_id WHEN i.type IN (3, 4, 9) THEN k.index_column_id ELSE k.key_ordinal END, '|',
              CAST(k.is_descending_key AS int), '|', CAST(k.is_included_column AS int), '|', CAST(i.is_disabled AS int)),
       i.name, i.type_desc, c.name, i.filter_definition
FROM sys.indexes i
JOIN sys.objects o ON o.object_id = i.object_id
JOIN sys.index_columns k ON k.object_id = i.object_id AND k.index_id = i.index_id
JOIN sys.columns c ON c.object_id = k.object_id AND c.column_id = k.column_id
WHERE i.type > 0 AND i.is_hypothetical = 0 AND o.type IN ('U', 'V') AND (k.key_ordinal > 0 OR k.is_included_column = 1 OR i.type IN (3, 4, 9))
  AND (o.is_ms_shipped = 0 /*@system OR 1 = 1 */)
  /*@ids AND i.object_id IN (?list(table_id)) */;

-- @triggers
-- row: table_id|trigger_id|timing{0=after,1=instead of}|option:disabled{0=}|events{1=insert,2=update,4=delete,3=insert or update,5=insert or delete,6=update or delete,7=insert or update or delete},
-- row: name, text
SELECT CONCAT(g.parent_id, '|', g.object_id, '|', CAST(g.is_instead_of_trigger AS int), '|', CAST(g.is_disabled AS int), '|',
              (SELECT SUM(CASE e.type WHEN 1 THEN 1 WHEN 2 THEN 2 WHEN 3 THEN 4 ELSE 0 END) FROM sys.trigger_events e
               WHERE e.object_id = g.object_id)),
       g.name, m.definition
FROM sys.triggers g LEFT JOIN sys.sql_modules m ON m.object_id = g.object_id
WHERE g.parent_class = 1 AND (g.is_ms_shipped = 0 /*@system OR 1 = 1 */) /*@ids AND g.parent_id IN (?list(table_id)) */;

-- An alias type has one row, a type of rows one for each column.
-- @types
-- row: type_id|schema_id|kind{0=domain,1=composite}|nullable|position, name, base_type, attribute, attribute_type
SELECT CONCAT(t.user_type_id, '|', t.schema_id, '|', CAST(t.is_table_type AS int), '|', CAST(t.is_nullable AS int), '|', c.column_id),
       t.name,
       CASE WHEN b.name IN ('char', 'varchar', 'binary', 'varbinary') AND t.max_length > 0 THEN CONCAT(b.name, '(', t.max_length, ')')
            WHEN b.name IN ('nchar', 'nvarchar') AND t.max_length > 0 THEN CONCAT(b.name, '(', t.max_length / 2, ')')
            WHEN b.name IN ('varchar', 'nvarchar', 'varbinary') THEN CONCAT(b.name, '(max)')
            WHEN b.name IN ('decimal', 'numeric') THEN CONCAT(b.name, '(', t.precision, ',', t.scale, ')')
            WHEN b.name IN ('time', 'datetime2', 'datetimeoffset') THEN CONCAT(b.name, '(', t.scale, ')')
            ELSE b.name END,
       c.name,
       CASE WHEN a.name IN ('char', 'varchar', 'binary', 'varbinary') AND c.max_length > 0 THEN CONCAT(a.name, '(', c.max_length, ')')
            WHEN a.name IN ('nchar', 'nvarchar') AND c.max_length > 0 THEN CONCAT(a.name, '(', c.max_length / 2, ')')
            WHEN a.name IN ('varchar', 'nvarchar', 'varbinary') THEN CONCAT(a.name, '(max)')
            WHEN a.name IN ('decimal', 'numeric') THEN CONCAT(a.name, '(', c.precision, ',', c.scale, ')')
            WHEN a.name IN ('time', 'datetime2', 'datetimeoffset') THEN CONCAT(a.name, '(', c.scale, ')')
            ELSE a.name END
FROM sys.types t
LEFT JOIN sys.types b ON b.user_type_id = t.system_type_id AND t.is_table_type = 0
LEFT JOIN sys.table_types r ON r.user_type_id = t.user_type_id
LEFT JOIN sys.columns c ON c.object_id = r.type_table_object_id
LEFT JOIN sys.types a ON a.user_type_id = c.user_type_id
WHERE t.is_user_defined = 1 AND t.is_assembly_type = 0;

-- @sequences
-- row: sequence_id|schema_id|cycle, name, type, start, increment, minimum, maximum, cache
SELECT CONCAT(q.object_id, '|', q.schema_id, '|', CAST(q.is_cycling AS int)), q.name, t.name, CAST(q.start_value AS nvarchar(40)),
       CAST(q.increment AS nvarchar(40)), CAST(q.minimum_value AS nvarchar(40)), CAST(q.maximum_value AS nvarchar(40)), q.cache_size
FROM sys.sequences q JOIN sys.types t ON t.user_type_id = q.user_type_id;

-- @routines
-- row: id|schema_id|kind{P=procedure,PC=procedure,X=procedure,FN=function,IF=function,TF=function,FS=function,FT=function,AF=aggregate}|language{P=SQL,FN=SQL,IF=SQL,TF=SQL,PC=CLR,FS=CLR,FT=CLR,AF=CLR,X=extended},
-- row: name, result, text, reason
SELECT CONCAT(o.object_id, '|', o.schema_id, '|', RTRIM(o.type), '|', RTRIM(o.type)), o.name,
       CASE WHEN o.type IN ('IF', 'TF', 'FT') THEN 'table'
            WHEN t.name IN ('char', 'varchar', 'binary', 'varbinary') AND p.max_length > 0 THEN CONCAT(t.name, '(', p.max_length, ')')
            WHEN t.name IN ('nchar', 'nvarchar') AND p.max_length > 0 THEN CONCAT(t.name, '(', p.max_length / 2, ')')
            WHEN t.name IN ('varchar', 'nvarchar', 'varbinary') THEN CONCAT(t.name, '(max)')
            WHEN t.name IN ('decimal', 'numeric') THEN CONCAT(t.name, '(', p.precision, ',', p.scale, ')')
            WHEN t.name IN ('time', 'datetime2', 'datetimeoffset') THEN CONCAT(t.name, '(', p.scale, ')')
            ELSE t.name END,
       m.definition,
       CASE WHEN m.definition IS NULL AND o.type IN ('P', 'FN', 'IF', 'TF')
            THEN 'the server keeps the text of this routine: it is encrypted, or its definition may not be viewed' END
FROM sys.objects o
LEFT JOIN sys.sql_modules m ON m.object_id = o.object_id
LEFT JOIN sys.parameters p ON p.object_id = o.object_id AND p.parameter_id = 0
LEFT JOIN sys.types t ON t.user_type_id = p.user_type_id
WHERE o.type IN ('P', 'PC', 'X', 'FN', 'IF', 'TF', 'FS', 'FT', 'AF') AND (o.is_ms_shipped = 0 /*@system OR 1 = 1 */)
  /*@owners AND o.schema_id IN (SELECT s.schema_id FROM sys.schemas s WHERE s.name IN (?list(owner))) */;

-- OUTPUT takes a value and gives one.
-- @parameters
-- row: id|position|mode{0=in,1=inout}, name, type
SELECT CONCAT(p.object_id, '|', p.parameter_id, '|', CAST(p.is_output AS int)), p.name,
       CASE WHEN t.name IN ('char', 'varchar', 'binary', 'varbinary') AND p.max_length > 0 THEN CONCAT(t.name, '(', p.max_length, ')')
            WHEN t.name IN ('nchar', 'nvarchar') AND p.max_length > 0 THEN CONCAT(t.name, '(', p.max_length / 2, ')')
            WHEN t.name IN ('varchar', 'nvarchar', 'varbinary') THEN CONCAT(t.name, '(max)')
            WHEN t.name IN ('decimal', 'numeric') THEN CONCAT(t.name, '(', p.precision, ',', p.scale, ')')
            WHEN t.name IN ('time', 'datetime2', 'datetimeoffset') THEN CONCAT(t.name, '(', p.scale, ')')
            ELSE t.name END
FROM sys.parameters p JOIN sys.types t ON t.user_type_id = p.user_type_id
WHERE p.parameter_id > 0;
