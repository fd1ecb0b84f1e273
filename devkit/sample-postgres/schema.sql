-- The sample's trading business on PostgreSQL: fewer tables, real procedures and functions.
CREATE SCHEMA sales;
CREATE TABLE customers (id SERIAL PRIMARY KEY, name TEXT NOT NULL, city TEXT);
CREATE TABLE products (id SERIAL PRIMARY KEY, name TEXT NOT NULL, price NUMERIC);
CREATE TABLE orders (id SERIAL PRIMARY KEY, customer INTEGER REFERENCES customers, placed TEXT, state TEXT DEFAULT 'open');
CREATE TABLE order_lines (order_id INTEGER REFERENCES orders, line INTEGER, product INTEGER REFERENCES products, quantity INTEGER, price NUMERIC, PRIMARY KEY (order_id, line));
CREATE TABLE audit (id SERIAL PRIMARY KEY, what TEXT);
COMMENT ON TABLE customers IS 'Who buys from us';
CREATE VIEW open_orders AS SELECT o.id, c.name AS customer FROM orders o JOIN customers c ON c.id = o.customer WHERE o.state = 'open';
CREATE VIEW order_totals AS SELECT order_id, SUM(quantity * price) AS total FROM order_lines GROUP BY order_id;
COMMENT ON VIEW open_orders IS 'Orders not yet shipped';
CREATE FUNCTION note_order() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN INSERT INTO audit (what) VALUES ('order ' || NEW.id); RETURN NEW; END $$;
CREATE TRIGGER orders_inserted AFTER INSERT ON orders FOR EACH ROW EXECUTE FUNCTION note_order();
INSERT INTO customers (name, city) VALUES ('Ashdown Books', 'Leeds'), ('Bellweather', 'Cardiff');
INSERT INTO products (name, price) VALUES ('Paper A4', 4.5), ('Blue ink', 7.25);
INSERT INTO orders (customer, placed) VALUES (1, '2003-04-01');
INSERT INTO order_lines VALUES (1, 1, 1, 10, 4.5), (1, 2, 2, 1, 7.25);
