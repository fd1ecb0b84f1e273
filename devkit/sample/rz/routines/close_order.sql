-- remark: Marks an order as shipped
-- specific: CLOSE_ORDER_1
-- package: P8812051
CREATE PROCEDURE sales.close_order (IN an_order INTEGER)
LANGUAGE SQL
BEGIN
    UPDATE orders SET state = 'shipped' WHERE id = an_order;
END
