-- remark: Raises all prices by a percentage
-- specific: RAISE_PRICES_1
CREATE PROCEDURE sales.raise_prices (IN a_percent DECIMAL(5,2))
LANGUAGE SQL
BEGIN
    UPDATE products SET price = price * (1 + a_percent / 100.0);
END
