// The cheque run of a small business: reads payees from a CSV file, cleans and checks them, and writes a cheque for each
// that is in order, on the screen and in a table.
//
//     mcs -langversion:7 Cheques.cs $VEXLOR/csharp/*.cs
//     mono Cheques.exe PAYEES.csv CHEQUES.dbf
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Text;
using System.Text.RegularExpressions;
using Vexlor32;
using static Vexlor32.Constants;
using static Vexlor32.Functions;

static class Cheques
{
    const int LineWidth = 64, AmountWidth = 12, MemoWidth = 40;
    const string Structure = "NUMBER,N,6:PAYEE,C,30:TOWN,C,20:STATE,C,2:DATED,D:AMOUNT,N,12,2:CLEARED,L:MEMO,M";
    const int CentsOver100 = 0;

    static readonly Dictionary<string, string> paid = new Dictionary<string, string>();

    // The rows of a CSV file, by the names of the first one.
    static IEnumerable<Dictionary<string, string>> ReadCsv(string path)
    {
        string text = File.ReadAllText(path, Encoding.GetEncoding("ISO-8859-1"));
        List<string> names = null, row = new List<string>();
        foreach (Match field in Regex.Matches(text, "(?:\"((?:[^\"]|\"\")*)\"|([^,\r\n]*))(,|\r?\n|$)"))
        {
            row.Add(field.Groups[1].Success ? field.Groups[1].Value.Replace("\"\"", "\"") : field.Groups[2].Value);
            if (field.Groups[3].Value == ",") continue;
            if (names == null) names = row;
            else if (string.Concat(row) != "")
                yield return names.Zip(row, Tuple.Create).ToDictionary(pair => pair.Item1, pair => pair.Item2);
            row = new List<string>();
        }
    }

    static string WithoutCommas(string number) => StrTran(number, ",", "", 1, -1);

    static Dictionary<string, string> Cleaned(Dictionary<string, string> row)
    {
        var payee = row.ToDictionary(field => field.Key, field => AllTrim(field.Value));
        payee["memo"] = row["memo"];
        // Quotes, asterisks, stops and blanks around a name are how it was typed, not what it is.
        payee["name"] = ChrTrim(row["name"], " \t\"*.", VX_TRIM_BOTH);
        if (payee["state"].Length != 2) payee["state"] = StateCode(payee["state"]);
        // 1,250 and 1250.00 are one amount; what is no number is none.
        payee["amount"] = WithoutCommas(Comma(WithoutCommas(payee["amount"])));
        return payee;
    }

    static string ObjectionTo(Dictionary<string, string> payee)
    {
        if (StrEmpty(payee["name"])) return "no payee";
        if (payee["amount"] == "") return "the amount is no number";
        if (payee["amount"].Length > AmountWidth) return "the amount is too large for a cheque";
        if (!CheckDate(payee["date"])) return "there is no such date";
        if (!IsZip(payee["state"], payee["zip"])) return "the ZIP code is not in this state";
        // The same sound, the same amount: perhaps the same bill, typed twice.
        string bill = Soundex(payee["name"], null, 6) + " " + payee["amount"];
        if (paid.TryGetValue(bill, out string first)) return $"sounds like {first}, with the same amount: paid twice?";
        paid.Add(bill, payee["name"]);
        return null;
    }

    static void Write(int number, Dictionary<string, string> payee)
    {
        string date = GetJDatef(DateToJulian(payee["date"]), "MMMM DDD, YYYY");
        Console.WriteLine($"No. {number}" + StrJustify(date, LineWidth - 8, VX_JUSTIFY_RIGHT_TRIMMED, " "));
        // Stars in front of an amount leave no room for a digit more.
        string amount = StrJustify(payee["amount"], AmountWidth, VX_JUSTIFY_RIGHT_TRIMMED, "*");
        Console.WriteLine($"Pay     {UnTrim(CapFirst(payee["name"]), LineWidth - 8 - 2 - AmountWidth, ".")}$ {amount}");
        Console.WriteLine("        " + NumToDollars(payee["amount"], CentsOver100));
        Console.WriteLine($"        {payee["town"]}, {StateCode(payee["state"])} {payee["zip"]}");
        for (int line = 1; line <= WrapCount(payee["memo"], MemoWidth); ++line)
        {
            string text = StrWrap(payee["memo"], line, MemoWidth).Dest;
            Console.WriteLine((line == 1 ? "Memo    " : "        ") + AllTrim(text));
        }
        Console.WriteLine(Replicate("-", LineWidth) + "\n");
    }

    static void Enter(Table table, int number, Dictionary<string, string> payee)
    {
        bool written = table.Append(1) != 0 && table.Replace("NUMBER", number.ToString()) &&
            table.Replace("PAYEE", payee["name"]) && table.Replace("TOWN", payee["town"]) && table.Replace("STATE", payee["state"]) &&
            table.Replace("DATED", GetJDatef(DateToJulian(payee["date"]), "YYYYMMDD")) &&
            table.Replace("AMOUNT", payee["amount"]) && table.Replace("CLEARED", "F") && table.Replace("MEMO", payee["memo"]);
        if (!written) throw new IOException("cannot write to the table");
    }

    static void Run(string csv, string dbf)
    {
        int number = 1000, refused = 0;
        using (Table table = DbfStrCreate(dbf, Structure))
        {
            if (table == null) throw new IOException("cannot create the table " + dbf);
            foreach (var row in ReadCsv(csv))
            {
                var payee = Cleaned(row);
                string objection = ObjectionTo(payee);
                if (objection == null)
                {
                    Write(++number, payee);
                    Enter(table, number, payee);
                    continue;
                }
                ++refused;
                Console.WriteLine($"no cheque for [{row["name"]}]: {objection}\n");
            }
            // All is on the disk when this returns.
            if (table.Close() != 0) throw new IOException("cannot close the table");
        }
        Console.WriteLine($"{number - 1000} cheques written, {refused} payees to look at");
    }

    static int Main(string[] args)
    {
        if (args.Length != 2)
        {
            Console.Error.WriteLine("usage: Cheques PAYEES.csv CHEQUES.dbf");
            return 2;
        }
        try
        {
            Run(args[0], args[1]);
            return 0;
        }
        catch (Exception error)
        {
            Console.Error.WriteLine(error.Message);
            return 1;
        }
    }
}
