/* Ten functions and a table, by header and import library or stub. */
#include <stdio.h>
#include <vexlor32.h>

int main(void) {
    static char text[512], field[65537];
    uint32_t table, number;
    puts(AllTrim("  Hartwell & Sons  ", text));
    puts(StrCenter("PAID", 20, "*", text));
    puts(Token("Hartwell & Sons, Bristol", NULL, 3, text));
    puts(NumToDollars("1,234.56", 0, text));
    puts(NumToRoman(1999, text));
    puts(Soundex("Smith", "", 4, text));
    printf("%u\n", (unsigned)Crc32("123456789", 0xFFFFFFFFu, 9));
    printf("%d\n", (int)IsLeap(1996));
    printf("%d\n", (int)IntToJulian(2000, 1, 1));
    puts(StrTran("Harwell & Sons, Harwell Road", "Harwell", "Hartwell", 1, -1, text));

    table = DbfOpen("cheques", VX_OPEN_READ);
    if (!table) return 1;
    printf("%u records\n", (unsigned)DbfLastrec(table));
    for (number = 1; number <= DbfLastrec(table); ++number) {
        DbfGoto(table, (int32_t)number);
        printf("%s|", DbfField(table, "PAYEE", field));
        puts(DbfField(table, "AMOUNT", field));
    }
    return DbfClose(table);
}
