"""Ten functions and a table, by the package for Python."""
import vexlor32

print(vexlor32.all_trim("  Hartwell & Sons  "))
print(vexlor32.str_center("PAID", 20, "*"))
print(vexlor32.token("Hartwell & Sons, Bristol", None, 3))
print(vexlor32.num_to_dollars("1,234.56", 0))
print(vexlor32.num_to_roman(1999))
print(vexlor32.soundex("Smith", "", 4))
print(vexlor32.crc32(b"123456789", 0xFFFFFFFF, 9))
print(int(vexlor32.is_leap(1996)))
print(vexlor32.int_to_julian(2000, 1, 1))
print(vexlor32.str_tran("Harwell & Sons, Harwell Road", "Harwell", "Hartwell", 1, -1))

with vexlor32.dbf_open("cheques", vexlor32.constants.VX_OPEN_READ) as table:
    print(table.lastrec(), "records")
    for number in range(1, table.lastrec() + 1):
        table.goto(number)
        print(table.field("PAYEE"), table.field("AMOUNT"), sep="|")
