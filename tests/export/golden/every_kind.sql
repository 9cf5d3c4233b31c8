-- Schema of Handmade Server 3, read through the odbc route.

CREATE SCHEMA "sales";
CREATE SCHEMA "audit";
CREATE SCHEMA "we""ird";

CREATE TABLE "sales"."order_line" (
  "region" INTEGER NOT NULL,
  "order_no" INTEGER NOT NULL,
  "line_no" INTEGER NOT NULL,
  "price" DECIMAL(12,2),
  PRIMARY KEY ("region", "order_no", "line_no"),
  FOREIGN KEY ("region", "order_no") REFERENCES "sales"."order" ("region", "order_no")
);

CREATE TABLE "sales"."order" (
  "region" INTEGER NOT NULL,
  "order_no" INTEGER NOT NULL,
  "customer_id" INTEGER,
  PRIMARY KEY ("region", "order_no"),
  FOREIGN KEY ("customer_id") REFERENCES "sales"."customer" ("id")
);
-- The server generates order_no.

CREATE TABLE "sales"."customer" (
  "id" INTEGER NOT NULL,
  "name" VARCHAR(40) NOT NULL,
  "parent_id" INTEGER,
  PRIMARY KEY ("id"),
  FOREIGN KEY ("parent_id") REFERENCES "sales"."customer" ("id")
);

CREATE TABLE "audit"."customer" (
  "id" INTEGER NOT NULL,
  "active" interval day to hour,
  "home" address_t,
  "photo" BLOB,
  PRIMARY KEY ("id"),
  FOREIGN KEY ("id") REFERENCES "sales"."customer" ("id")
);

CREATE TABLE "we""ird"."näme <&> |`'\ {x} [y]	z" (
  "a ""b"" | <c> & {d}\n`" VARCHAR,
  "日本 😀 �!" INTEGER,
  FOREIGN KEY ("日本 😀 �!") REFERENCES "sales"."customer" ("id")
);

-- View sales.order_sum, whose text is not part of a workbook:
--   region INTEGER
--   total DECIMAL

-- Synonym audit.clients of sales.customer@far@node2:
--   id INTEGER NOT NULL

-- Table no columns has no columns.
