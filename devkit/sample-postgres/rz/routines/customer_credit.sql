-- remark: What a customer may still order
CREATE OR REPLACE FUNCTION sales.customer_credit (a_customer INTEGER) RETURNS NUMERIC
LANGUAGE SQL
AS $$ SELECT credit FROM customers WHERE id = a_customer $$;
