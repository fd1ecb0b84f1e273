-- remark: Places an order for a customer
CREATE OR REPLACE PROCEDURE sales.place_order (a_customer INTEGER, a_date TEXT)
LANGUAGE SQL
AS $$ INSERT INTO orders (customer, placed) VALUES (a_customer, a_date) $$;
