-- remark: Raises all prices by a percentage
CREATE OR REPLACE PROCEDURE sales.raise_prices (a_percent NUMERIC)
LANGUAGE SQL
AS $$ UPDATE products SET price = price * (1 + a_percent / 100.0) $$;
