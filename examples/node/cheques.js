'use strict';
// The cheque run of a small business: reads payees from a CSV file, cleans and checks them, and writes a cheque for each
// that is in order, on the screen and in a table.
//
//     node cheques.js PAYEES.csv CHEQUES.dbf
const fs = require('fs');
const vx = require('vexlor32');
const { VX_JUSTIFY_RIGHT_TRIMMED, VX_TRIM_BOTH } = vx.constants;

const LINE_WIDTH = 64;
const AMOUNT_WIDTH = 12;
const MEMO_WIDTH = 40;
const STRUCTURE = 'NUMBER,N,6:PAYEE,C,30:TOWN,C,20:STATE,C,2:DATED,D:AMOUNT,N,12,2:CLEARED,L:MEMO,M';
const CENTS_OVER_100 = 0;

// The rows of a CSV file, as objects by the names of the first one.
function readCsv(path) {
  const rows = [[]];
  const fields = /(?:"((?:[^"]|"")*)"|([^,\r\n]*))(,|\r?\n|$)/g;
  for (const [, quoted, plain, end] of fs.readFileSync(path, 'latin1').matchAll(fields)) {
    rows.at(-1).push(quoted?.replaceAll('""', '"') ?? plain);
    if (end !== ',') rows.push([]);
  }
  const [names, ...others] = rows.filter((row) => row.join('') !== '');
  return others.map((row) => Object.fromEntries(names.map((name, i) => [name, row[i]])));
}

const withoutCommas = (number) => vx.strTran(number, ',', '', 1, -1);
const codeOf = (state) => (state.length === 2 ? state : vx.stateCode(state));
const rightIn = (width, text, fill) => vx.strJustify(text, width, VX_JUSTIFY_RIGHT_TRIMMED, fill);

function cleaned(row) {
  const payee = { memo: row.memo };
  // Quotes, asterisks, stops and blanks around a name are how it was typed, not what it is.
  payee.name = vx.chrTrim(row.name, ' \t"*.', VX_TRIM_BOTH);
  for (const column of ['town', 'state', 'zip', 'date', 'amount']) payee[column] = vx.allTrim(row[column]);
  // 1,250 and 1250.00 are one amount; what is no number is none.
  payee.amount = withoutCommas(vx.comma(withoutCommas(payee.amount)));
  return payee;
}

function objectionTo(payee, paid) {
  if (vx.strEmpty(payee.name)) return 'no payee';
  if (!payee.amount) return 'the amount is no number';
  if (payee.amount.length > AMOUNT_WIDTH) return 'the amount is too large for a cheque';
  if (!vx.checkDate(payee.date)) return 'there is no such date';
  if (!vx.isZip(codeOf(payee.state), payee.zip)) return 'the ZIP code is not in this state';
  // The same sound, the same amount: perhaps the same bill, typed twice.
  const bill = `${vx.soundex(payee.name, null, 6)} ${payee.amount}`;
  if (paid.has(bill)) return `sounds like ${paid.get(bill)}, with the same amount: paid twice?`;
  paid.set(bill, payee.name);
  return null;
}

function write(number, payee) {
  const date = vx.getJDatef(vx.dateToJulian(payee.date), 'MMMM DDD, YYYY');
  console.log(`No. ${number}${rightIn(LINE_WIDTH - 8, date, ' ')}`);
  // Stars in front of an amount leave no room for a digit more.
  const name = vx.unTrim(vx.capFirst(payee.name), LINE_WIDTH - 8 - 2 - AMOUNT_WIDTH, '.');
  console.log(`Pay     ${name}$ ${rightIn(AMOUNT_WIDTH, payee.amount, '*')}`);
  console.log(`        ${vx.numToDollars(payee.amount, CENTS_OVER_100)}`);
  console.log(`        ${payee.town}, ${vx.stateCode(codeOf(payee.state))} ${payee.zip}`);
  for (let line = 1; line <= vx.wrapCount(payee.memo, MEMO_WIDTH); ++line) {
    const [, text] = vx.strWrap(payee.memo, line, MEMO_WIDTH);
    console.log(`${line === 1 ? 'Memo    ' : '        '}${vx.allTrim(text)}`);
  }
  console.log(`${vx.replicate('-', LINE_WIDTH)}\n`);
}

function enter(table, number, payee) {
  const values = {
    NUMBER: String(number),
    PAYEE: payee.name,
    TOWN: payee.town,
    STATE: codeOf(payee.state),
    DATED: vx.getJDatef(vx.dateToJulian(payee.date), 'YYYYMMDD'),
    AMOUNT: payee.amount,
    CLEARED: 'F',
    MEMO: payee.memo,
  };
  const written = table.append(1) && Object.entries(values).every(([field, value]) => table.replace(field, value));
  if (!written) throw new Error('cannot write to the table');
}

function run(csv, dbf) {
  const table = vx.dbfStrCreate(dbf, STRUCTURE);
  if (table === null) throw new Error(`cannot create the table ${dbf}`);
  const paid = new Map();
  let number = 1000;
  let refused = 0;
  for (const row of readCsv(csv)) {
    const payee = cleaned(row);
    const objection = objectionTo(payee, paid);
    if (objection) {
      ++refused;
      console.log(`no cheque for [${row.name}]: ${objection}\n`);
    } else {
      write(++number, payee);
      enter(table, number, payee);
    }
  }
  // All is on the disk when this returns.
  if (table.close() !== 0) throw new Error('cannot close the table');
  console.log(`${number - 1000} cheques written, ${refused} payees to look at`);
}

if (process.argv.length !== 4) {
  console.error(`usage: ${process.argv[1]} PAYEES.csv CHEQUES.dbf`);
  process.exitCode = 2;
} else {
  try {
    run(process.argv[2], process.argv[3]);
  } catch (error) {
    console.error(error.message);
    process.exitCode = 1;
  }
}
