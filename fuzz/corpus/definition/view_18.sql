CREATE VIEW "as" (m, "as") as -- the query
  select a as m, 'b' from p