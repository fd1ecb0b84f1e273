-- The sample's trading business on PostgreSQL, with real procedures and functions.
CREATE SCHEMA sales;
CREATE TABLE customers (id SERIAL PRIMARY KEY, name TEXT NOT NULL, city TEXT, credit NUMERIC DEFAULT 0);
CREATE TABLE suppliers (id SERIAL PRIMARY KEY, name TEXT NOT NULL, country TEXT);
CREATE TABLE products (id SERIAL PRIMARY KEY, supplier INTEGER REFERENCES suppliers, name TEXT NOT NULL, price NUMERIC);
CREATE TABLE warehouses (id SERIAL PRIMARY KEY, city TEXT NOT NULL);
CREATE TABLE stock (product INTEGER REFERENCES products, warehouse INTEGER REFERENCES warehouses, quantity INTEGER, PRIMARY KEY (product, warehouse));
CREATE TABLE orders (id SERIAL PRIMARY KEY, customer INTEGER REFERENCES customers, placed TEXT, state TEXT DEFAULT 'open');
CREATE TABLE order_lines (order_id INTEGER REFERENCES orders, line INTEGER, product INTEGER REFERENCES products, quantity INTEGER, price NUMERIC, PRIMARY KEY (order_id, line));
CREATE TABLE audit (id SERIAL PRIMARY KEY, happened TIMESTAMP DEFAULT now(), what TEXT);
COMMENT ON TABLE customers IS 'Who buys from us';
COMMENT ON TABLE orders IS 'One row for each order';

CREATE VIEW open_orders AS SELECT o.id, c.name AS customer, o.placed FROM orders o JOIN customers c ON c.id = o.customer WHERE o.state = 'open';
CREATE VIEW order_totals AS SELECT order_id, SUM(quantity * price) AS total FROM order_lines GROUP BY order_id;
CREATE VIEW stock_by_product AS SELECT product, SUM(quantity) AS quantity FROM stock GROUP BY product;
CREATE VIEW product_list AS SELECT p.name, s.name AS supplier, p.price FROM products p JOIN suppliers s ON s.id = p.supplier;
COMMENT ON VIEW open_orders IS 'Orders not yet shipped';

CREATE FUNCTION note_order() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN INSERT INTO audit (what) VALUES ('order ' || NEW.id || ' ' || NEW.state); RETURN NEW; END $$;
CREATE FUNCTION take_stock() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN UPDATE stock SET quantity = quantity - NEW.quantity WHERE product = NEW.product AND warehouse = 1; RETURN NEW; END $$;
CREATE FUNCTION keep_customer() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN IF EXISTS (SELECT 1 FROM orders WHERE customer = OLD.id) THEN RAISE EXCEPTION 'customer has orders'; END IF; RETURN OLD; END $$;
CREATE FUNCTION note_price() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN INSERT INTO audit (what) VALUES ('price of ' || NEW.name || ' is ' || NEW.price); RETURN NEW; END $$;
CREATE TRIGGER orders_inserted AFTER INSERT ON orders FOR EACH ROW EXECUTE FUNCTION note_order();
CREATE TRIGGER orders_state AFTER UPDATE OF state ON orders FOR EACH ROW EXECUTE FUNCTION note_order();
CREATE TRIGGER lines_take_stock AFTER INSERT ON order_lines FOR EACH ROW EXECUTE FUNCTION take_stock();
CREATE TRIGGER customers_deleted BEFORE DELETE ON customers FOR EACH ROW EXECUTE FUNCTION keep_customer();
CREATE TRIGGER prices_audited AFTER UPDATE OF price ON products FOR EACH ROW EXECUTE FUNCTION note_price();
COMMENT ON TRIGGER orders_inserted ON orders IS 'Keeps the audit';

INSERT INTO customers (name, city, credit) VALUES ('Ashdown Books', 'Leeds', 500), ('Bellweather', 'Cardiff', 1200), ('Corner Shop', 'York', 0);
INSERT INTO suppliers (name, country) VALUES ('Northern Paper', 'NO'), ('Tintworks', 'DE');
INSERT INTO products (supplier, name, price) VALUES (1, 'Paper A4', 4.5), (1, 'Envelope', 0.1), (2, 'Blue ink', 7.25);
INSERT INTO warehouses (city) VALUES ('Hull'), ('Bristol');
INSERT INTO stock VALUES (1, 1, 900), (2, 1, 5000), (3, 1, 120), (1, 2, 300);
INSERT INTO orders (customer, placed) VALUES (1, '2003-04-01'), (2, '2003-04-03');
INSERT INTO order_lines VALUES (1, 1, 1, 10, 4.5), (1, 2, 3, 1, 7.25), (2, 1, 2, 500, 0.1);
