// Ten functions and a table, by the sources for C#.
using System;
using System.Text;
using Vexlor32;

static class Smoke
{
    static void Main()
    {
        Console.WriteLine(Functions.AllTrim("  Hartwell & Sons  "));
        Console.WriteLine(Functions.StrCenter("PAID", 20, "*"));
        Console.WriteLine(Functions.Token("Hartwell & Sons, Bristol", null, 3));
        Console.WriteLine(Functions.NumToDollars("1,234.56", 0));
        Console.WriteLine(Functions.NumToRoman(1999));
        Console.WriteLine(Functions.Soundex("Smith", "", 4));
        Console.WriteLine(Functions.Crc32(Encoding.ASCII.GetBytes("123456789"), 0xFFFFFFFF, 9));
        Console.WriteLine(Functions.IsLeap(1996) ? 1 : 0);
        Console.WriteLine(Functions.IntToJulian(2000, 1, 1));
        Console.WriteLine(Functions.StrTran("Harwell & Sons, Harwell Road", "Harwell", "Hartwell", 1, -1));

        using (Table table = Functions.DbfOpen("cheques", Constants.VX_OPEN_READ))
        {
            Console.WriteLine(table.Lastrec() + " records");
            for (int number = 1; number <= table.Lastrec(); ++number)
            {
                table.Goto(number);
                Console.WriteLine(table.Field("PAYEE") + "|" + table.Field("AMOUNT"));
            }
        }
    }
}
