-- remark: Places an order for a customer
-- specific: PLACE_ORDER_1
-- package: P8812044
CREATE PROCEDURE sales.place_order (IN a_customer INTEGER, IN a_date VARCHAR(10))
LANGUAGE SQL
BEGIN
    INSERT INTO orders (customer, placed) VALUES (a_customer, a_date);
END
