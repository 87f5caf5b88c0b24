'use strict';
// Ten functions and a table, by the package for Node.
const vexlor32 = require('vexlor32');

console.log(vexlor32.allTrim('  Hartwell & Sons  '));
console.log(vexlor32.strCenter('PAID', 20, '*'));
console.log(vexlor32.token('Hartwell & Sons, Bristol', null, 3));
console.log(vexlor32.numToDollars('1,234.56', 0));
console.log(vexlor32.numToRoman(1999));
console.log(vexlor32.soundex('Smith', '', 4));
console.log(vexlor32.crc32(Buffer.from('123456789'), 0xffffffff, 9));
console.log(Number(vexlor32.isLeap(1996)));
console.log(vexlor32.intToJulian(2000, 1, 1));
console.log(vexlor32.strTran('Harwell & Sons, Harwell Road', 'Harwell', 'Hartwell', 1, -1));

const table = vexlor32.dbfOpen('cheques', vexlor32.constants.VX_OPEN_READ);
console.log(`${table.lastrec()} records`);
for (let number = 1; number <= table.lastrec(); ++number) {
  table.goto(number);
  console.log(`${table.field('PAYEE')}|${table.field('AMOUNT')}`);
}
table.close();
