// remark: Stock of every warehouse as a result set
// specific: STOCK_REPORT_1
// results: 1
// fenced: yes
// CREATE PROCEDURE sales.stock_report ()
// LANGUAGE Java
import java.sql.Connection;
import java.sql.DriverManager;
import java.sql.ResultSet;
import java.sql.SQLException;

public class StockReport {
    public static void stockReport(ResultSet[] report) throws SQLException {
        Connection connection = DriverManager.getConnection("jdbc:default:connection");
        report[0] = connection.createStatement().executeQuery(
            "SELECT w.city, p.name, s.quantity FROM stock s"
                + " JOIN warehouses w ON w.id = s.warehouse JOIN products p ON p.id = s.product"
                + " ORDER BY w.city, p.name");
    }
}
