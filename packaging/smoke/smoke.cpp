// Ten functions and a table, by the header for C++.
#include <iostream>
#include <vexlor32.hpp>

int main() {
    std::cout << vexlor32::allTrim("  Hartwell & Sons  ") << '\n'
              << vexlor32::strCenter("PAID", 20, "*") << '\n'
              << vexlor32::token("Hartwell & Sons, Bristol", nullptr, 3) << '\n'
              << vexlor32::numToDollars("1,234.56", 0) << '\n'
              << vexlor32::numToRoman(1999) << '\n'
              << vexlor32::soundex("Smith", "", 4) << '\n'
              << vexlor32::crc32("123456789", 0xFFFFFFFF, 9) << '\n'
              << vexlor32::isLeap(1996) << '\n'
              << vexlor32::intToJulian(2000, 1, 1) << '\n'
              << vexlor32::strTran("Harwell & Sons, Harwell Road", "Harwell", "Hartwell", 1, -1) << '\n';

    vexlor32::Table table = vexlor32::dbfOpen("cheques", VX_OPEN_READ);
    if (!table) return 1;
    std::cout << table.lastrec() << " records\n";
    for (std::uint32_t number = 1; number <= table.lastrec(); ++number) {
        table.goto_(static_cast<std::int32_t>(number));
        std::cout << table.field("PAYEE") << '|' << table.field("AMOUNT") << '\n';
    }
}
