-- A schema to change; then one statement after the other, each with the one change that it makes.
CREATE TABLE customer (
  id INTEGER PRIMARY KEY AUTOINCREMENT, name VARCHAR(40) NOT NULL, mail TEXT, score NUMERIC(8,2), born DATE, flags INTEGER NOT NULL DEFAULT 0,
  initials TEXT AS (substr(name, 1, 2)) VIRTUAL, phone TEXT);
CREATE TABLE orders (
  id INTEGER NOT NULL, customer_id INTEGER CONSTRAINT orders_customer REFERENCES customer (id), total NUMERIC(10,2), placed DATETIME,
  code CHAR(4) NOT NULL UNIQUE, state TEXT, CONSTRAINT orders_total CHECK (total < 100000));
CREATE TABLE tag (word TEXT, weight INT);
CREATE INDEX orders_placed ON orders (placed);
CREATE VIEW open_orders AS SELECT id, total FROM orders WHERE placed IS NULL;
-- one at a time
CREATE TABLE stock (place TEXT, amount INT, counted DATE);
--> added table stock
ALTER TABLE stock RENAME TO store;
--> renamed table stock -> store (guess)
ALTER TABLE store RENAME COLUMN amount TO amounts;
--> renamed column store.amount -> store.amounts (guess)
ALTER TABLE store ADD COLUMN shelf TEXT;
--> added column store.shelf
ALTER TABLE store ADD COLUMN price NUMERIC(8,2) NOT NULL DEFAULT 1;
--> added column store.price
ALTER TABLE store ADD COLUMN tax NUMERIC AS (price * 2) VIRTUAL;
--> added column store.tax
ALTER TABLE store ADD COLUMN owner INTEGER;
--> added column store.owner
ALTER TABLE store DROP COLUMN tax;
--> removed column store.tax
ALTER TABLE store DROP COLUMN shelf;
--> removed column store.shelf
DROP TABLE store;
--> removed table store
DROP TABLE tag; CREATE TABLE tag (word TEXT, weight BIGINT);
--> changed column tag.weight data-type: INT -> BIGINT
DROP TABLE tag; CREATE TABLE tag (word VARCHAR(10), weight BIGINT);
--> changed column tag.word data-type: TEXT -> VARCHAR(10)
DROP TABLE tag; CREATE TABLE tag (word VARCHAR(20), weight BIGINT);
--> changed column tag.word data-type: VARCHAR(10) -> VARCHAR(20)
DROP TABLE tag; CREATE TABLE tag (word VARCHAR(20) NOT NULL, weight BIGINT);
--> changed column tag.word nullable: null -> not null
DROP TABLE tag; CREATE TABLE tag (word VARCHAR(20) NOT NULL, weight BIGINT DEFAULT 3);
--> changed column tag.weight default: none -> 3
DROP TABLE tag; CREATE TABLE tag (word VARCHAR(20) NOT NULL, weight BIGINT DEFAULT (3 + 4));
--> changed column tag.weight default: 3 -> 3 + 4
DROP TABLE tag; CREATE TABLE tag (word VARCHAR(20) NOT NULL, weight BIGINT);
--> changed column tag.weight default: 3 + 4 -> none
DROP TABLE tag; CREATE TABLE tag (word VARCHAR(20) NOT NULL COLLATE NOCASE, weight BIGINT);
--> changed column tag.word collation: none -> NOCASE
DROP TABLE tag; CREATE TABLE tag (weight BIGINT, word VARCHAR(20) NOT NULL COLLATE NOCASE);
--> changed column tag.weight place: after word -> first
DROP TABLE tag; CREATE TABLE tag (weight BIGINT, word VARCHAR(20) NOT NULL COLLATE NOCASE PRIMARY KEY);
--> added primary-key tag
DROP TABLE tag; CREATE TABLE tag (weight BIGINT, word VARCHAR(20) NOT NULL COLLATE NOCASE PRIMARY KEY) WITHOUT ROWID;
--> changed table tag option without rowid: none -> 1
DROP TABLE tag; CREATE TABLE tag (weight BIGINT, word VARCHAR(20) NOT NULL COLLATE NOCASE, CONSTRAINT tag_word PRIMARY KEY (word)) WITHOUT ROWID;
--> renamed primary-key tag -> tag.tag_word
DROP TABLE tag; CREATE TABLE tag (weight BIGINT CHECK (weight > 0), word VARCHAR(20) NOT NULL COLLATE NOCASE, CONSTRAINT tag_word PRIMARY KEY (word)) WITHOUT ROWID;
--> added check tag
DROP TABLE tag; CREATE TABLE tag (weight BIGINT CONSTRAINT tag_weight CHECK (weight > 0), word VARCHAR(20) NOT NULL COLLATE NOCASE, CONSTRAINT tag_word PRIMARY KEY (word)) WITHOUT ROWID;
--> renamed check tag -> tag.tag_weight
DROP TABLE tag; CREATE TABLE tag (weight BIGINT, word VARCHAR(20) NOT NULL COLLATE NOCASE, CONSTRAINT tag_word PRIMARY KEY (word)) WITHOUT ROWID;
--> removed check tag.tag_weight
DROP TABLE tag; CREATE TABLE tag (weight BIGINT, word VARCHAR(20) NOT NULL COLLATE NOCASE, CONSTRAINT tag_word PRIMARY KEY (word), UNIQUE (weight)) WITHOUT ROWID;
--> added unique-key tag
DROP TABLE tag; CREATE TABLE tag (weight BIGINT REFERENCES customer, word VARCHAR(20) NOT NULL COLLATE NOCASE, CONSTRAINT tag_word PRIMARY KEY (word), UNIQUE (weight)) WITHOUT ROWID;
--> added foreign-key tag
DROP TABLE tag; CREATE TABLE tag (weight BIGINT REFERENCES customer ON DELETE CASCADE, word VARCHAR(20) NOT NULL COLLATE NOCASE, CONSTRAINT tag_word PRIMARY KEY (word), UNIQUE (weight)) WITHOUT ROWID;
--> changed foreign-key tag on-delete: no action -> cascade
DROP TABLE tag; CREATE TABLE tag (weight BIGINT, word VARCHAR(20) NOT NULL COLLATE NOCASE, CONSTRAINT tag_word PRIMARY KEY (word), UNIQUE (weight)) WITHOUT ROWID;
--> removed foreign-key tag
CREATE INDEX orders_code ON orders (code DESC);
--> added index orders.orders_code
DROP INDEX orders_code; CREATE INDEX orders_code ON orders (code DESC) WHERE total > 0;
--> changed index orders.orders_code predicate: none -> total > 0
DROP INDEX orders_code; CREATE UNIQUE INDEX orders_code ON orders (code DESC) WHERE total > 0;
--> changed index orders.orders_code unique: no -> yes
DROP INDEX orders_code; CREATE UNIQUE INDEX orders_by_code ON orders (code DESC) WHERE total > 0;
--> renamed index orders.orders_code -> orders.orders_by_code
DROP INDEX orders_by_code;
--> removed index orders.orders_by_code
CREATE INDEX orders_lower ON orders (lower(state));
--> added index orders.orders_lower
CREATE TRIGGER orders_touch AFTER UPDATE ON orders BEGIN SELECT 1; END;
--> added trigger orders.orders_touch
DROP TRIGGER orders_touch;
--> removed trigger orders.orders_touch
DROP VIEW open_orders; CREATE VIEW open_orders AS SELECT id, total FROM orders WHERE placed IS NULL AND total > 0;
--> changed view open_orders text
DROP VIEW open_orders;
--> removed view open_orders
CREATE VIEW totals AS SELECT customer_id, sum(total) AS total FROM orders GROUP BY 1;
--> added view totals
