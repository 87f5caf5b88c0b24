import static vexlor32.Vexlor32.*;

import vexlor32.Constants;
import vexlor32.Table;

/** Ten functions and a table, by the jar. */
class Smoke {
    public static void main(String[] arguments) {
        System.out.println(allTrim("  Hartwell & Sons  "));
        System.out.println(strCenter("PAID", 20, "*"));
        System.out.println(token("Hartwell & Sons, Bristol", null, 3));
        System.out.println(numToDollars("1,234.56", 0));
        System.out.println(numToRoman(1999));
        System.out.println(soundex("Smith", "", 4));
        System.out.println(crc32("123456789".getBytes(), 0xFFFFFFFFL, 9));
        System.out.println(isLeap(1996) ? 1 : 0);
        System.out.println(intToJulian(2000, 1, 1));
        System.out.println(strTran("Harwell & Sons, Harwell Road", "Harwell", "Hartwell", 1, -1));

        try (Table table = dbfOpen("cheques", Constants.VX_OPEN_READ)) {
            System.out.println(table.lastrec() + " records");
            for (int number = 1; number <= table.lastrec(); ++number) {
                table.goto_(number);
                System.out.println(table.field("PAYEE") + "|" + table.field("AMOUNT"));
            }
        }
    }
}
