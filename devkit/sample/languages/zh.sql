-- Objects with Chinese names, beside those of the sample.
CREATE TABLE 客户 (编号 INTEGER PRIMARY KEY, 名称 TEXT NOT NULL, 城市 TEXT);
INSERT INTO 客户 (名称, 城市) VALUES ('王府书店', '北京'), ('长江贸易', '上海');
INSERT INTO rozel_remarks VALUES ('客户', '客户一览表');
