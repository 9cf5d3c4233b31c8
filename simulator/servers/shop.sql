-- A small shop in general terms, with what a catalog can know of a schema: raw material for the scripts whose row says `.shop =
-- true`, which turn it into rows of their own catalog. Names and texts are the same everywhere, so that every server can be asked for the same facts.
-- Types are those of the standard, CLOB and BLOB besides. Two schemas; keys in an order that is neither the columns' nor the alphabet's.
CREATE TEMP TABLE shop_schema(number INTEGER PRIMARY KEY, name TEXT, comment TEXT);
INSERT INTO shop_schema VALUES (1, 'sales', 'Who buys'), (2, 'stock', NULL);

CREATE TEMP TABLE shop_table(number INTEGER PRIMARY KEY, schema_number INTEGER, name TEXT, kind TEXT, comment TEXT, text TEXT);
INSERT INTO shop_table VALUES
  (1, 1, 'customer', 'table', 'Who bought; with ''quotes'' and "more"', NULL),
  (2, 1, 'orders', 'table', NULL, NULL),
  (3, 1, 'order_line', 'table', NULL, NULL),
  (4, 2, 'product', 'table', 'What is sold: ä€', NULL),
  (5, 2, 'bin', 'table', NULL, NULL),
  (6, 2, 'bin_part', 'table', NULL, NULL),
  (7, 2, 'odd |name %', 'table', NULL, NULL),
  (8, 1, 'big_customer', 'view', 'Worth a call', 'SELECT id, name FROM sales.customer WHERE credit > 1000');

CREATE TEMP TABLE shop_type(number INTEGER PRIMARY KEY, schema_number INTEGER, name TEXT, type TEXT, size INTEGER, digits INTEGER);
INSERT INTO shop_type VALUES (1, 1, 'email', 'VARCHAR', 120, NULL);

-- identity: always, or by default. expression: of a column that is computed, stored or not.
CREATE TEMP TABLE shop_column(
  table_number INTEGER, position INTEGER, name TEXT, type TEXT, size INTEGER, digits INTEGER, nullable INTEGER, default_text TEXT,
  identity TEXT, generated TEXT, expression TEXT, type_number INTEGER, comment TEXT, PRIMARY KEY (table_number, position));
INSERT INTO shop_column VALUES
  (1, 1, 'id', 'INTEGER', NULL, NULL, 0, NULL, 'always', NULL, NULL, NULL, NULL),
  (1, 2, 'code', 'CHAR', 8, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (1, 3, 'name', 'VARCHAR', 60, NULL, 0, NULL, NULL, NULL, NULL, NULL, 'Family name first'),
  (1, 4, 'credit', 'DECIMAL', 12, 2, 0, '0', NULL, NULL, NULL, NULL, NULL),
  (1, 5, 'born', 'DATE', NULL, NULL, 1, NULL, NULL, NULL, NULL, NULL, NULL),
  (1, 6, 'parent', 'INTEGER', NULL, NULL, 1, NULL, NULL, NULL, NULL, NULL, NULL),
  (1, 7, 'note', 'CLOB', NULL, NULL, 1, NULL, NULL, NULL, NULL, NULL, NULL),
  (1, 8, 'photo', 'BLOB', NULL, NULL, 1, NULL, NULL, NULL, NULL, NULL, NULL),
  (1, 9, 'email', 'VARCHAR', 120, NULL, 1, NULL, NULL, NULL, NULL, 1, NULL),
  (2, 1, 'id', 'BIGINT', NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (2, 2, 'customer_id', 'INTEGER', NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (2, 3, 'state', 'CHAR', 1, NULL, 0, '''N''', NULL, NULL, NULL, NULL, NULL),
  (2, 4, 'made_at', 'TIMESTAMP', NULL, NULL, 1, NULL, NULL, NULL, NULL, NULL, NULL),
  (3, 1, 'line', 'SMALLINT', NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (3, 2, 'order_id', 'BIGINT', NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (3, 3, 'product_code', 'CHAR', 8, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (3, 4, 'a_maker', 'INTEGER', NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (3, 5, 'pieces', 'INTEGER', NULL, NULL, 0, '1', NULL, NULL, NULL, NULL, NULL),
  (4, 1, 'code', 'CHAR', 8, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (4, 2, 'maker', 'INTEGER', NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (4, 3, 'name', 'VARCHAR', 80, NULL, 0, '''it''''s new''', NULL, NULL, NULL, NULL, NULL),
  (4, 4, 'price', 'DECIMAL', 10, 2, 1, NULL, NULL, NULL, NULL, NULL, NULL),
  (4, 5, 'factor', 'DOUBLE', NULL, NULL, 1, NULL, NULL, NULL, NULL, NULL, NULL),
  (4, 6, 'gross', 'DECIMAL', 14, 4, 1, NULL, NULL, 'virtual', 'price * 1.2', NULL, NULL),
  (5, 1, 'a', 'INTEGER', NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (5, 2, 'b', 'INTEGER', NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (5, 3, 'c', 'INTEGER', NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (6, 1, 'z', 'INTEGER', NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (6, 2, 'y', 'INTEGER', NULL, NULL, 1, NULL, NULL, NULL, NULL, NULL, NULL),
  (6, 3, 'x', 'INTEGER', NULL, NULL, 1, NULL, NULL, NULL, NULL, NULL, NULL),
  (7, 1, 'it''s |', 'INTEGER', NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL, 'a | b'),
  (7, 2, 'a_name_of_more_than_twenty_characters', 'INTEGER', NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (8, 1, 'id', 'INTEGER', NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL),
  (8, 2, 'name', 'VARCHAR', 60, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL);

-- kind: P, U, F, C. A foreign key says which key it refers to.
CREATE TEMP TABLE shop_key(number INTEGER PRIMARY KEY, table_number INTEGER, name TEXT, kind TEXT, target_number INTEGER, on_delete TEXT, expression TEXT);
INSERT INTO shop_key VALUES
  (1, 1, 'customer_pk', 'P', NULL, NULL, NULL),
  (2, 1, 'customer_code', 'U', NULL, NULL, NULL),
  (3, 1, 'customer_parent', 'F', 1, 'set null', NULL),
  (4, 1, 'credit_is_positive', 'C', NULL, NULL, 'credit >= 0'),
  (5, 2, 'orders_pk', 'P', NULL, NULL, NULL),
  (6, 2, 'orders_customer', 'F', 1, 'cascade', NULL),
  (7, 3, 'order_line_pk', 'P', NULL, NULL, NULL),
  (8, 3, 'order_line_order', 'F', 5, 'cascade', NULL),
  (9, 3, 'order_line_product', 'F', 10, 'no action', NULL),
  (10, 4, 'product_pk', 'P', NULL, NULL, NULL),
  (11, 4, 'product_name', 'U', NULL, NULL, NULL),
  (12, 5, 'bin_pk', 'P', NULL, NULL, NULL),
  (13, 6, 'bin_part_pk', 'P', NULL, NULL, NULL),
  (14, 6, 'bin_part_bin', 'F', 12, 'no action', NULL),
  (15, 7, 'odd pk', 'P', NULL, NULL, NULL),
  (16, 6, 'bin_part_y', 'C', NULL, NULL, 'y <> 7');

CREATE TEMP TABLE shop_key_column(key_number INTEGER, position INTEGER, column_number INTEGER, target_column INTEGER, PRIMARY KEY (key_number, position));
INSERT INTO shop_key_column VALUES
  (1, 1, 1, NULL), (2, 1, 2, NULL), (3, 1, 6, 1), (5, 1, 1, NULL), (6, 1, 2, 1),
  (7, 1, 2, NULL), (7, 2, 1, NULL), (8, 1, 2, 1), (9, 1, 4, 2), (9, 2, 3, 1),
  (10, 1, 2, NULL), (10, 2, 1, NULL), (11, 1, 3, NULL), (11, 2, 2, NULL),
  (12, 1, 3, NULL), (12, 2, 1, NULL), (12, 3, 2, NULL), (13, 1, 1, NULL),
  (14, 1, 3, 3), (14, 2, 1, 1), (14, 3, 2, 2),
  (15, 1, 2, NULL), (15, 2, 1, NULL);

-- Indexes besides those of the keys.
CREATE TEMP TABLE shop_index(number INTEGER PRIMARY KEY, table_number INTEGER, name TEXT, is_unique INTEGER);
INSERT INTO shop_index VALUES (1, 1, 'customer_by_name', 0), (2, 2, 'orders_by_state', 1);
CREATE TEMP TABLE shop_index_column(index_number INTEGER, position INTEGER, column_number INTEGER, descending INTEGER, PRIMARY KEY (index_number, position));
INSERT INTO shop_index_column VALUES (1, 1, 3, 1), (1, 2, 2, 0), (2, 1, 3, 0), (2, 2, 1, 0);

CREATE TEMP TABLE shop_trigger(table_number INTEGER, name TEXT, event TEXT, text TEXT);
INSERT INTO shop_trigger VALUES (2, 'orders_log', 'insert', 'INSERT INTO log VALUES (1)');
CREATE TEMP TABLE shop_sequence(schema_number INTEGER, name TEXT, start INTEGER, increment INTEGER, minimum INTEGER, maximum INTEGER, cycle INTEGER, cache INTEGER);
INSERT INTO shop_sequence VALUES (1, 'order_number', 1000, 5, 1000, 999995, 1, 20);
-- Of a table here, or of one in another database.
CREATE TEMP TABLE shop_synonym(schema_number INTEGER, name TEXT, server TEXT, database TEXT, target_schema TEXT, target TEXT);
INSERT INTO shop_synonym VALUES (1, 'item', NULL, NULL, 'stock', 'product'), (1, 'far_item', 'hq', 'depot', 'stock', 'product');

CREATE TEMP TABLE shop_routine(number INTEGER PRIMARY KEY, schema_number INTEGER, name TEXT, kind TEXT, text TEXT, result TEXT, size INTEGER, digits INTEGER);
INSERT INTO shop_routine VALUES
  (1, 1, 'total_of', 'function', 'RETURN 1', 'DECIMAL', 12, 2),
  (2, 1, 'close_order', 'procedure', 'DELETE FROM orders', NULL, NULL, NULL);
CREATE TEMP TABLE shop_parameter(routine_number INTEGER, position INTEGER, name TEXT, mode TEXT, type TEXT, size INTEGER, digits INTEGER);
INSERT INTO shop_parameter VALUES
  (1, 1, 'customer', 'in', 'INTEGER', NULL, NULL), (1, 2, 'since', 'in', 'DATE', NULL, NULL),
  (2, 1, 'order_id', 'in', 'BIGINT', NULL, NULL), (2, 2, 'lines', 'out', 'INTEGER', NULL, NULL);
