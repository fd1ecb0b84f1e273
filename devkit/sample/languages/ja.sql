-- Objects with Japanese names, beside those of the sample.
CREATE TABLE 顧客 (番号 INTEGER PRIMARY KEY, 名前 TEXT NOT NULL, 都市 TEXT);
INSERT INTO 顧客 (名前, 都市) VALUES ('山田商店', '東京'), ('ﾎﾟﾌﾟﾗ書房', '大阪');
INSERT INTO rozel_remarks VALUES ('顧客', '得意先の一覧表');
