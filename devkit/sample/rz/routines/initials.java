// remark: Initials of a name
// specific: INITIALS_1
// fenced: yes
// CREATE FUNCTION sales.initials (name VARCHAR(80)) RETURNS VARCHAR(8)
// LANGUAGE Java
public class Initials {
    public static String initials(String name) {
        StringBuilder letters = new StringBuilder();
        for (String word : name.trim().split("\\s+")) {
            if (!word.isEmpty() && letters.length() < 8) {
                letters.append(Character.toUpperCase(word.charAt(0)));
            }
        }
        return letters.toString();
    }
}
