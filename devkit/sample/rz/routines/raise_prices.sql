-- remark: Raises all prices by a percentage
-- specific: RAISE_PRICES_1
CREATE PROCEDURE sales.raise_prices (IN percent DECIMAL(5,2))
LANGUAGE SQL
BEGIN
    UPDATE products SET price = price * (1 + percent / 100);
END
