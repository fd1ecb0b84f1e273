-- remark: Sum of an order's lines
-- specific: ORDER_TOTAL_1
CREATE FUNCTION sales.order_total (an_order INTEGER) RETURNS DECIMAL(10,2)
LANGUAGE SQL
RETURN SELECT SUM(quantity * price) FROM order_lines WHERE order_id = order_total.an_order
