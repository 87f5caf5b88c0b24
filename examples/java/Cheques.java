// The cheque run of a small business: reads payees from a CSV file, cleans and checks them, and writes a cheque for each
// that is in order, on the screen and in a table.
//
//     javac -d . -cp /usr/share/java/jna.jar -sourcepath $VEXLOR/java/src Cheques.java
//     java -cp .:/usr/share/java/jna.jar Cheques PAYEES.csv CHEQUES.dbf
import static vexlor32.Constants.VX_JUSTIFY_RIGHT_TRIMMED;
import static vexlor32.Constants.VX_TRIM_BOTH;
import static vexlor32.Vexlor32.*;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import vexlor32.Table;

public final class Cheques {
    private static final int LINE_WIDTH = 64, AMOUNT_WIDTH = 12, MEMO_WIDTH = 40, CENTS_OVER_100 = 0;
    private static final String STRUCTURE =
            "NUMBER,N,6:PAYEE,C,30:TOWN,C,20:STATE,C,2:DATED,D:AMOUNT,N,12,2:CLEARED,L:MEMO,M";
    private static final Pattern CSV_FIELD = Pattern.compile("(?:\"((?:[^\"]|\"\")*+)\"|([^,\r\n]*))(,|\r?\n|$)");

    private record Payee(String name, String town, String state, String zip, String date, String amount, String memo) {}

    private final Map<String, String> paid = new HashMap<>();
    private int number = 1000;
    private int refused = 0;

    // The rows of a CSV file, by the names of the first one.
    private static List<Map<String, String>> readCsv(Path path) throws IOException {
        List<Map<String, String>> rows = new ArrayList<>();
        List<String> names = null, row = new ArrayList<>();
        Matcher field = CSV_FIELD.matcher(Files.readString(path, StandardCharsets.ISO_8859_1));
        while (field.find()) {
            row.add(field.group(1) != null ? field.group(1).replace("\"\"", "\"") : field.group(2));
            if (field.group(3).equals(",")) continue;
            if (names == null) names = row;
            else if (!String.join("", row).isEmpty()) {
                Map<String, String> values = new HashMap<>();
                for (int i = 0; i < names.size() && i < row.size(); ++i) values.put(names.get(i), row.get(i));
                rows.add(values);
            }
            row = new ArrayList<>();
        }
        return rows;
    }

    private static String withoutCommas(String number) {
        return strTran(number, ",", "", 1, -1);
    }

    private static Payee cleaned(Map<String, String> row) {
        // Quotes, asterisks, stops and blanks around a name are how it was typed, not what it is.
        String name = chrTrim(row.get("name"), " \t\"*.", VX_TRIM_BOTH), state = allTrim(row.get("state"));
        // 1,250 and 1250.00 are one amount; what is no number is none.
        String amount = withoutCommas(comma(withoutCommas(allTrim(row.get("amount")))));
        return new Payee(name, allTrim(row.get("town")), state.length() == 2 ? state : stateCode(state),
                allTrim(row.get("zip")), allTrim(row.get("date")), amount, row.get("memo"));
    }

    private String objectionTo(Payee payee) {
        if (strEmpty(payee.name)) return "no payee";
        if (payee.amount.isEmpty()) return "the amount is no number";
        if (payee.amount.length() > AMOUNT_WIDTH) return "the amount is too large for a cheque";
        if (!checkDate(payee.date)) return "there is no such date";
        if (!isZip(payee.state, payee.zip)) return "the ZIP code is not in this state";
        // The same sound, the same amount: perhaps the same bill, typed twice.
        String first = paid.putIfAbsent(soundex(payee.name, null, 6) + " " + payee.amount, payee.name);
        return first == null ? null : "sounds like " + first + ", with the same amount: paid twice?";
    }

    private void write(Payee payee) {
        String date = getJDatef(dateToJulian(payee.date), "MMMM DDD, YYYY");
        System.out.println("No. " + number + strJustify(date, LINE_WIDTH - 8, VX_JUSTIFY_RIGHT_TRIMMED, " "));
        // Stars in front of an amount leave no room for a digit more.
        System.out.println("Pay     " + unTrim(capFirst(payee.name), LINE_WIDTH - 8 - 2 - AMOUNT_WIDTH, ".") + "$ "
                + strJustify(payee.amount, AMOUNT_WIDTH, VX_JUSTIFY_RIGHT_TRIMMED, "*"));
        System.out.println("        " + numToDollars(payee.amount, CENTS_OVER_100));
        System.out.println("        " + payee.town + ", " + stateCode(payee.state) + " " + payee.zip);
        for (int line = 1; line <= wrapCount(payee.memo, MEMO_WIDTH); ++line) {
            String text = strWrap(payee.memo, line, MEMO_WIDTH).dest();
            System.out.println((line == 1 ? "Memo    " : "        ") + allTrim(text));
        }
        System.out.println(replicate("-", LINE_WIDTH) + "\n");
    }

    private void enter(Table table, Payee payee) throws IOException {
        String date = getJDatef(dateToJulian(payee.date), "YYYYMMDD");
        boolean written = table.append(1) != 0 && table.replace("NUMBER", Integer.toString(number))
                && table.replace("PAYEE", payee.name) && table.replace("TOWN", payee.town)
                && table.replace("STATE", payee.state) && table.replace("DATED", date)
                && table.replace("AMOUNT", payee.amount) && table.replace("CLEARED", "F") && table.replace("MEMO", payee.memo);
        if (!written) throw new IOException("cannot write to the table");
    }

    private void run(String csv, String dbf) throws IOException {
        try (Table table = dbfStrCreate(dbf, STRUCTURE)) {
            if (table == null) throw new IOException("cannot create the table " + dbf);
            for (Map<String, String> row : readCsv(Path.of(csv))) {
                Payee payee = cleaned(row);
                String objection = objectionTo(payee);
                if (objection == null) {
                    ++number;
                    write(payee);
                    enter(table, payee);
                } else {
                    ++refused;
                    System.out.println("no cheque for [" + row.get("name") + "]: " + objection + "\n");
                }
            }
            // All is on the disk when this returns.
            if (table.tryClose() != 0) throw new IOException("cannot close the table");
        }
        System.out.println((number - 1000) + " cheques written, " + refused + " payees to look at");
    }

    public static void main(String[] args) {
        if (args.length != 2) {
            System.err.println("usage: Cheques PAYEES.csv CHEQUES.dbf");
            System.exit(2);
        }
        try {
            new Cheques().run(args[0], args[1]);
        } catch (IOException error) {
            System.err.println(error.getMessage());
            System.exit(1);
        }
    }
}
