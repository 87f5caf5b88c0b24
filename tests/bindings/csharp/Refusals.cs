// What never reaches the library: each is refused by an exception, and nothing is written.
using System;
using System.Linq;
using System.Text;
using Vexlor32;

static class Refusals
{
    static int failures;

    static void Refused<Error>(string what, Action call) where Error : Exception
    {
        try
        {
            call();
            Console.WriteLine(what + ": was not refused");
        }
        catch (Error)
        {
            return;
        }
        catch (Exception error)
        {
            Console.WriteLine(what + ": " + error);
        }
        ++failures;
    }

    static void Same(string what, object wanted, object got)
    {
        if (Equals(wanted, got)) return;
        Console.WriteLine(what + ": wanted " + wanted + ", got " + got);
        ++failures;
    }

    internal static int Run()
    {
        byte[] dest = Enumerable.Repeat((byte)'~', 8).ToArray();
        byte[] block = dest.ToArray();
        Refused<ArgumentException>("a text without its NUL", () => Exact.AllTrim(Encoding.ASCII.GetBytes("abc"), dest));
        Refused<ArgumentException>("an empty array for a number", () => Exact.DosGetDate(new int[0], null, null));
        Refused<ArgumentException>("a NUL in a text", () => Functions.AllTrim("a\0b"));
        Refused<EncoderFallbackException>("a character that the code page does not have", () => Functions.AllTrim("\u4e00"));
        Refused<EncoderFallbackException>("such a character by itself", () => Functions.StrnSet('\u4e00', 3));
        Refused<ArgumentException>("a block that ends too early", () => Functions.Int2blob(block, 6, 7));
        Refused<ArgumentException>("a count beyond the block", () => Functions.MemCopy(block, new byte[9], 9));
        Refused<ArgumentException>("a code page of several bytes", () => Texts.Encoding = Encoding.UTF8);
        Refused<ArgumentException>("a room beyond all memory", () => Functions.Replicate("aaaaaaaa", int.MaxValue));
        Same("the destination", "~~~~~~~~", Encoding.ASCII.GetString(dest));
        Same("the block", "~~~~~~~~", Encoding.ASCII.GetString(block));

        string name = System.IO.Path.GetTempFileName();
        VexlorFile file = Functions.FOpen(name, Constants.VX_OPEN_READWRITE);
        using (file) Same("what was written, and its NUL", 4, file.Writes("abc"));
        Refused<ObjectDisposedException>("a closed file", () => file.Len());
        file.Dispose();
        System.IO.File.Delete(name);
        Same("a file that is not there", null, Functions.FOpen(name, Constants.VX_OPEN_READ));
        Same("a table that is not there", null, Functions.DbfOpen(name, Constants.VX_OPEN_READ));

        Same("a character of Latin-1", "\u00e9\u00e9\u00e9", Functions.StrnSet('\u00e9', 3).Text);
        Texts.Encoding = Encoding.ASCII;
        Refused<EncoderFallbackException>("that character in ASCII", () => Functions.StrnSet('\u00e9', 3));
        return failures;
    }
}
