-- remark: Sum of an order's lines
CREATE OR REPLACE FUNCTION sales.order_total (an_order INTEGER) RETURNS NUMERIC
LANGUAGE SQL
AS $$ SELECT SUM(quantity * price) FROM order_lines WHERE order_id = an_order $$;
