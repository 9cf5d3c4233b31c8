-- dialect: x
-- product: X
-- @tables
-- row: schema, table, kind
SELECT 1, 2, 3 WHERE 1 = 1 /*@system ; DELETE FROM sales */;
-- @columns
-- row: schema, table, position, column, type, base_type
SELECT 1,2,3,4,5,6 /*@before 99 INTO hacked */ FROM x;
