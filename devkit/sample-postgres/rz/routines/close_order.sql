-- remark: Marks an order as shipped
CREATE OR REPLACE PROCEDURE sales.close_order (an_order INTEGER)
LANGUAGE SQL
AS $$ UPDATE orders SET state = 'shipped' WHERE id = an_order $$;
