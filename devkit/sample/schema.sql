-- The sample database: a small trading business.
CREATE TABLE customers (id INTEGER PRIMARY KEY, name TEXT NOT NULL, city TEXT, credit NUMERIC DEFAULT 0);
CREATE TABLE suppliers (id INTEGER PRIMARY KEY, name TEXT NOT NULL, country TEXT);
CREATE TABLE products (id INTEGER PRIMARY KEY, supplier INTEGER REFERENCES suppliers, name TEXT NOT NULL, price NUMERIC);
CREATE TABLE warehouses (id INTEGER PRIMARY KEY, city TEXT NOT NULL);
CREATE TABLE stock (product INTEGER REFERENCES products, warehouse INTEGER REFERENCES warehouses, quantity INTEGER, PRIMARY KEY (product, warehouse));
CREATE TABLE orders (id INTEGER PRIMARY KEY, customer INTEGER REFERENCES customers, placed TEXT, state TEXT DEFAULT 'open');
CREATE TABLE order_lines (order_id INTEGER REFERENCES orders, line INTEGER, product INTEGER REFERENCES products, quantity INTEGER, price NUMERIC, PRIMARY KEY (order_id, line));
CREATE TABLE audit (id INTEGER PRIMARY KEY, happened TEXT DEFAULT CURRENT_TIMESTAMP, what TEXT);
-- What Rozel keeps of routines that were built, and of remarks on objects.
CREATE TABLE rozel_routines (name TEXT PRIMARY KEY, source TEXT NOT NULL);
CREATE TABLE rozel_remarks (object TEXT PRIMARY KEY, remark TEXT NOT NULL);

CREATE VIEW open_orders AS SELECT o.id, c.name AS customer, o.placed FROM orders o JOIN customers c ON c.id = o.customer WHERE o.state = 'open';
CREATE VIEW order_totals AS SELECT order_id, SUM(quantity * price) AS total FROM order_lines GROUP BY order_id;
CREATE VIEW stock_by_product AS SELECT product, SUM(quantity) AS quantity FROM stock GROUP BY product;
CREATE VIEW product_list AS SELECT p.name, s.name AS supplier, p.price FROM products p JOIN suppliers s ON s.id = p.supplier;

CREATE TRIGGER orders_inserted AFTER INSERT ON orders BEGIN INSERT INTO audit (what) VALUES ('order ' || NEW.id || ' placed'); END;
CREATE TRIGGER orders_state AFTER UPDATE OF state ON orders BEGIN INSERT INTO audit (what) VALUES ('order ' || NEW.id || ' ' || NEW.state); END;
CREATE TRIGGER lines_take_stock AFTER INSERT ON order_lines BEGIN UPDATE stock SET quantity = quantity - NEW.quantity WHERE product = NEW.product AND warehouse = 1; END;
CREATE TRIGGER customers_deleted BEFORE DELETE ON customers WHEN EXISTS (SELECT 1 FROM orders WHERE customer = OLD.id) BEGIN SELECT RAISE(ABORT, 'customer has orders'); END;
CREATE TRIGGER prices_audited AFTER UPDATE OF price ON products BEGIN INSERT INTO audit (what) VALUES ('price of ' || NEW.name || ' is ' || NEW.price); END;

INSERT INTO customers (name, city, credit) VALUES ('Ashdown Books', 'Leeds', 500), ('Bellweather', 'Cardiff', 1200), ('Corner Shop', 'York', 0);
INSERT INTO suppliers (name, country) VALUES ('Northern Paper', 'NO'), ('Tintworks', 'DE');
INSERT INTO products (supplier, name, price) VALUES (1, 'Paper A4', 4.5), (1, 'Envelope', 0.1), (2, 'Blue ink', 7.25);
INSERT INTO warehouses (city) VALUES ('Hull'), ('Bristol');
INSERT INTO stock VALUES (1, 1, 900), (2, 1, 5000), (3, 1, 120), (1, 2, 300);
INSERT INTO orders (customer, placed) VALUES (1, '2003-04-01'), (2, '2003-04-03');
INSERT INTO order_lines VALUES (1, 1, 1, 10, 4.5), (1, 2, 3, 1, 7.25), (2, 1, 2, 500, 0.1);
INSERT INTO rozel_remarks VALUES ('orders', 'One row for each order'), ('customers', 'Who buys from us'), ('open_orders', 'Orders not yet shipped'), ('orders_inserted', 'Keeps the audit');
