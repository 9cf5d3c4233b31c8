-- Schema of Shop (shop_eu): PostgreSQL 15, read through the exact route at 2024-02-29T12:00:00Z.
-- Incomplete: the import lost its connection or met errors before it had read everything.
-- Not read: triggers: ERROR: permission denied for table pg_trigger
-- Not read: views sales.hidden: the server shows the text to the view's owner only
-- Load it with: mariadb DATABASE < FILE
-- It makes the schema alone: no rows, rights, owners or policies.

SET NAMES utf8mb4;
SET sql_mode = 'STRICT_TRANS_TABLES,NO_ENGINE_SUBSTITUTION';
SET innodb_strict_mode = OFF;

CREATE SCHEMA IF NOT EXISTS `Audit Log`;

-- Left out: type sales.mood.
-- Left out: type sales.percent.
-- Left out: type sales.address.
-- Left out: type sales.span.

CREATE SEQUENCE `free_seq` START WITH -5 INCREMENT BY -1 MINVALUE -9223372036854775808 MAXVALUE -1 CACHE 20 CYCLE;

-- Left out: function sales.touch.

-- Left out: procedure sales.close_day.

CREATE TABLE `customer` (
  `id` int NOT NULL AUTO_INCREMENT,
  `name` varchar(40) NOT NULL COMMENT 'As printed on letters;
never empty',
  `mood` longtext NULL,
  `shout` longtext,
  `since` datetime(6) NOT NULL DEFAULT CURRENT_TIMESTAMP,
  `extra` varchar(190) NULL COMMENT '',
  PRIMARY KEY (`id`),
  CONSTRAINT `customer_name_key` UNIQUE (`name`, `since`)
) COMMENT='Who buys | "things" <here>';
-- Left out: type of mood, which has no counterpart.
-- Left out: default 'happy'::sales.mood of mood.
-- Left out: type of shout, which has no counterpart.
-- Left out: expression of shout.
-- Left out: the full length of extra, which is part of a key.
-- Left out: check customer_name_check of sales.customer: ((name)::text <> ''::text).

CREATE TABLE `order` (
  `region` varchar(40) NOT NULL,
  `order_no` int NOT NULL AUTO_INCREMENT,
  `customer_id` int NOT NULL,
  `total` decimal(10,2) NULL COMMENT 'Without tax',
  `warehouse` int NULL,
  PRIMARY KEY (`order_no`, `region`)
);

CREATE TABLE `order_eu` (
  `region` varchar(40) NOT NULL,
  `order_no` int NOT NULL
);

CREATE TABLE `Audit Log`.`entry` (
  `region` varchar(40) NOT NULL,
  `order_no` int NOT NULL,
  CONSTRAINT `entry_key` UNIQUE (`region`, `order_no`)
);
-- Left out: foreign table sales.remote_stock.
-- Left out: view sales.best customer, whose text is postgresql's.
-- Left out: view sales.order_stats, whose text is postgresql's.

-- Left out: index customer_lower_idx of sales.customer.
-- Left out: index customer_extra_idx of sales.customer.
-- Left out: foreign key order_warehouse_fkey of sales.order to stock.warehouse.

ALTER TABLE `order` ADD CONSTRAINT `order_customer_fkey` FOREIGN KEY (`customer_id`) REFERENCES `customer` (`id`) ON UPDATE NO ACTION ON DELETE CASCADE;
-- Left out: ON DELETE set null of the foreign key (region, order_no) of sales.order.
ALTER TABLE `order` ADD CONSTRAINT `order "entry" fkey` FOREIGN KEY (`region`, `order_no`) REFERENCES `Audit Log`.`entry` (`region`, `order_no`) ON UPDATE CASCADE;

-- Left out: trigger customer_touch of sales.customer.
