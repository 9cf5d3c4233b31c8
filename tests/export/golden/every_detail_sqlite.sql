-- Schema of Shop (shop_eu): PostgreSQL 15, read through the exact route at 2024-02-29T12:00:00Z.
-- Incomplete: the import lost its connection or met errors before it had read everything.
-- Not read: triggers: ERROR: permission denied for table pg_trigger
-- Not read: views sales.hidden: the server shows the text to the view's owner only
-- Load it with: sqlite3 -bail DATABASE < FILE
-- It makes the schema alone: no rows, rights, owners or policies.

-- Left out: type sales.mood.
-- Left out: type sales.percent.
-- Left out: type sales.address.
-- Left out: type sales.span.

-- Left out: sequence sales.free_seq.

-- Left out: function sales.touch.

-- Left out: procedure sales.close_day.

CREATE TABLE "customer" (
  "id" INTEGER NOT NULL CONSTRAINT "customer_pkey" PRIMARY KEY AUTOINCREMENT,
  "name" VARCHAR(40) NOT NULL,
  "mood" DEFAULT 'happy',
  "shout",
  "since" TIMESTAMP NOT NULL DEFAULT CURRENT_TIMESTAMP,
  "extra",
  CONSTRAINT "customer_name_key" UNIQUE ("name", "since")
);
-- Left out: expression of shout.
-- Left out: check customer_name_check of sales.customer: ((name)::text <> ''::text).
-- Left out: foreign key order_warehouse_fkey of sales.order to stock.warehouse.

CREATE TABLE "order" (
  "region" VARCHAR(40) NOT NULL,
  "order_no" INTEGER NOT NULL,
  "customer_id" INTEGER NOT NULL,
  "total" NUMERIC(10,2),
  "warehouse" INTEGER,
  CONSTRAINT "order_pkey" PRIMARY KEY ("order_no", "region"),
  CONSTRAINT "order_customer_fkey" FOREIGN KEY ("customer_id") REFERENCES "customer" ("id") ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED,
  CONSTRAINT "order ""entry"" fkey" FOREIGN KEY ("region", "order_no") REFERENCES "Audit Log.entry" ("region", "order_no") ON UPDATE CASCADE ON DELETE SET NULL
);
-- Left out: numbers of order_no.

CREATE TABLE "order_eu" (
  "region" VARCHAR(40) NOT NULL,
  "order_no" INTEGER NOT NULL
);

CREATE TABLE "Audit Log.entry" (
  "region" VARCHAR(40) NOT NULL,
  "order_no" INTEGER NOT NULL,
  CONSTRAINT "entry_key" UNIQUE ("region", "order_no")
);
-- Left out: foreign table sales.remote_stock.
-- Left out: view sales.best customer, whose text is postgresql's.
-- Left out: view sales.order_stats, whose text is postgresql's.

-- Left out: index customer_lower_idx of sales.customer.
-- Left out: index customer_extra_idx of sales.customer.

-- Left out: trigger customer_touch of sales.customer.
-- Left out: comment on sales.customer: Who buys | "things" <here>.
-- Left out: comment on sales.customer.name: As printed on letters;␊never empty.
-- Left out: comment on sales.customer.extra: .
-- Left out: comment on sales.order.total: Without tax.
-- Left out: comment on sales.best customer: Those who spend.
-- Left out: comment on sales.best customer.id: Their number.
