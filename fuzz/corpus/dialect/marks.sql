-- dialect: x
-- product: X*, *
-- quote: []
-- statements: SHOW
-- begin: BEGIN; SAVEPOINT a
-- end: COMMIT
-- @tables since 1.2 before 3 fallback
-- row: schema|kind{a=table,b=}, table, option:x y, -
SELECT 1, 2, 3, 4 WHERE 1 = 1 /*@owners AND a IN (?list(owner)) @else*/ AND 1 = 2 /*@end*/ /*@tables x = ?json(table) */;
-- @columns for each view
-- row: schema, table, position, column, type, base_type
SHOW COLUMNS /*@each ?name(schema).?name(table) */;
