-- remark: What a customer may still order
-- specific: CUSTOMER_CREDIT_1
CREATE FUNCTION sales.customer_credit (a_customer INTEGER) RETURNS DECIMAL(10,2)
LANGUAGE SQL
RETURN SELECT credit FROM customers WHERE id = a_customer
