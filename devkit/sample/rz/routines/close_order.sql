-- remark: Marks an order as shipped
-- specific: CLOSE_ORDER_1
-- package: P8812051
CREATE PROCEDURE sales.close_order (IN order_id INTEGER)
LANGUAGE SQL
BEGIN
    UPDATE orders SET state = 'shipped' WHERE id = order_id;
END
