-- A schema to change; then one statement after the other, each with the one change that it makes.
CREATE TABLE customer (
  id int NOT NULL AUTO_INCREMENT PRIMARY KEY, name varchar(40) NOT NULL, mail varchar(60), score decimal(8,2), born date,
  flags int NOT NULL DEFAULT 0, feeling enum('glad','sad'), initials varchar(2) AS (left(name, 2)) VIRTUAL, phone varchar(20), note text);
CREATE TABLE orders (
  id bigint NOT NULL, customer_id int, total decimal(10,2), placed datetime, code char(4) NOT NULL, state varchar(10) NOT NULL,
  CONSTRAINT orders_total CHECK (total < 100000), KEY orders_customer_ix (customer_id),
  CONSTRAINT orders_customer FOREIGN KEY (customer_id) REFERENCES customer (id), KEY orders_placed (placed));
CREATE VIEW open_orders AS SELECT id, total FROM orders WHERE placed IS NULL;
CREATE FUNCTION twice(a int) RETURNS int DETERMINISTIC RETURN 2 * a;
CREATE SEQUENCE ticket;
-- one at a time
CREATE TABLE stock (place varchar(20), amount int, counted date);
--> added table shop.stock
RENAME TABLE stock TO store;
--> renamed table shop.stock -> shop.store (guess)
DROP TABLE store;
--> removed table shop.store
ALTER TABLE orders COMMENT = 'Bought';
--> changed table shop.orders comment: none -> Bought
ALTER TABLE orders ROW_FORMAT = COMPRESSED;
--> changed table shop.orders option create options: none -> row_format=COMPRESSED
ALTER TABLE orders DROP FOREIGN KEY orders_customer;
--> removed foreign-key shop.orders.orders_customer
ALTER TABLE orders ENGINE = MyISAM;
--> changed table shop.orders option engine: InnoDB -> MyISAM
ALTER TABLE customer ADD COLUMN nickname varchar(23);
--> added column shop.customer.nickname
ALTER TABLE customer RENAME COLUMN nickname TO nick;
--> renamed column shop.customer.nickname -> shop.customer.nick (guess)
ALTER TABLE customer MODIFY nick varchar(23) FIRST;
--> changed column shop.customer.nick place: after note -> first
ALTER TABLE customer DROP COLUMN nick;
--> removed column shop.customer.nick
ALTER TABLE customer MODIFY phone varchar(30);
--> changed column shop.customer.phone data-type: varchar(20) -> varchar(30)
ALTER TABLE customer MODIFY score decimal(12,2);
--> changed column shop.customer.score data-type: decimal(8,2) -> decimal(12,2)
ALTER TABLE customer MODIFY score decimal(12,2) unsigned;
--> changed column shop.customer.score data-type: decimal(12,2) -> decimal(12,2) unsigned
ALTER TABLE customer MODIFY feeling enum('glad','sad','bored');
--> changed column shop.customer.feeling data-type: enum('glad','sad') -> enum('glad','sad','bored')
ALTER TABLE customer MODIFY born date NOT NULL;
--> changed column shop.customer.born nullable: null -> not null
ALTER TABLE customer MODIFY born date;
--> changed column shop.customer.born nullable: not null -> null
ALTER TABLE customer ALTER flags SET DEFAULT 7;
--> changed column shop.customer.flags default: 0 -> 7
ALTER TABLE customer ALTER flags DROP DEFAULT;
--> changed column shop.customer.flags default: 7 -> none
ALTER TABLE customer MODIFY mail varchar(60) COLLATE utf8mb4_bin;
--> changed column shop.customer.mail collation: none -> utf8mb4_bin
ALTER TABLE customer MODIFY mail varchar(60) COLLATE utf8mb4_bin COMMENT 'Checked';
--> changed column shop.customer.mail comment: none -> Checked
ALTER TABLE customer MODIFY initials varchar(2) AS (left(name, 1)) VIRTUAL;
--> changed column shop.customer.initials expression: left(`name`,2) -> left(`name`,1)
ALTER TABLE customer DROP COLUMN initials;
--> removed column shop.customer.initials
ALTER TABLE customer MODIFY note text INVISIBLE;
--> changed column shop.customer.note option invisible: none -> 1
ALTER TABLE customer MODIFY id int NOT NULL;
--> changed column shop.customer.id identity: auto increment -> none
ALTER TABLE orders ADD PRIMARY KEY (id);
--> added primary-key shop.orders.PRIMARY
ALTER TABLE orders DROP PRIMARY KEY;
--> removed primary-key shop.orders.PRIMARY
ALTER TABLE orders ADD CONSTRAINT orders_code UNIQUE (code);
--> added unique-key shop.orders.orders_code
ALTER TABLE orders DROP INDEX orders_code;
--> removed unique-key shop.orders.orders_code
ALTER TABLE orders ENGINE = InnoDB;
--> changed table shop.orders option engine: MyISAM -> InnoDB
ALTER TABLE orders ADD FOREIGN KEY (customer_id) REFERENCES customer (id);
--> added foreign-key shop.orders.orders_ibfk_1
ALTER TABLE orders DROP FOREIGN KEY orders_ibfk_1;
--> removed foreign-key shop.orders.orders_ibfk_1
ALTER TABLE orders ADD CONSTRAINT orders_buyer FOREIGN KEY (customer_id) REFERENCES customer (id) ON DELETE CASCADE;
--> added foreign-key shop.orders.orders_buyer
ALTER TABLE orders ADD CONSTRAINT orders_state CHECK (state <> '');
--> added check shop.orders.orders_state
ALTER TABLE orders DROP CONSTRAINT orders_total;
--> removed check shop.orders.orders_total
CREATE INDEX orders_state_ix ON orders (state(3), code);
--> added index shop.orders.orders_state_ix
ALTER TABLE orders RENAME INDEX orders_state_ix TO orders_by_state;
--> renamed index shop.orders.orders_state_ix -> shop.orders.orders_by_state
DROP INDEX orders_placed ON orders;
--> removed index shop.orders.orders_placed
CREATE TRIGGER orders_touch BEFORE UPDATE ON orders FOR EACH ROW SET NEW.state = 'new';
--> added trigger shop.orders.orders_touch
DROP TRIGGER orders_touch;
--> removed trigger shop.orders.orders_touch
CREATE OR REPLACE VIEW open_orders AS SELECT id, total FROM orders WHERE placed IS NULL AND total > 0;
--> changed view shop.open_orders text
DROP VIEW open_orders;
--> removed view shop.open_orders
CREATE VIEW totals AS SELECT customer_id, sum(total) AS total FROM orders GROUP BY 1;
--> added view shop.totals
CREATE PROCEDURE tidy(IN days int) DELETE FROM orders WHERE id < days;
--> added routine shop.tidy(int(11))
DROP PROCEDURE tidy;
--> removed routine shop.tidy(int(11))
CREATE OR REPLACE FUNCTION twice(a int) RETURNS int DETERMINISTIC RETURN a + a;
--> changed routine shop.twice(int(11)) text
ALTER SEQUENCE ticket INCREMENT BY 10;
--> changed sequence shop.ticket increment: 1 -> 10
DROP SEQUENCE ticket;
--> removed sequence shop.ticket
ALTER DATABASE shop COMMENT = 'What we sell';
--> changed owner shop comment: none -> What we sell
