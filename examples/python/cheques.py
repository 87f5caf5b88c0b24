"""The cheque run of a small business: reads payees from a CSV file, cleans and checks them, and writes a cheque for each
that is in order, on the screen and in a table.

    PYTHONPATH=$VEXLOR/python python3 cheques.py PAYEES.csv CHEQUES.dbf
"""
import csv
import itertools
import sys

import vexlor32 as vx
from vexlor32.constants import VX_JUSTIFY_RIGHT_TRIMMED, VX_TRIM_BOTH

LINE_WIDTH, AMOUNT_WIDTH, MEMO_WIDTH = 64, 12, 40
STRUCTURE = "NUMBER,N,6:PAYEE,C,30:TOWN,C,20:STATE,C,2:DATED,D:AMOUNT,N,12,2:CLEARED,L:MEMO,M"
CENTS_OVER_100 = 0


def without_commas(number):
    return vx.str_tran(number, ",", "", 1, -1)


def code_of(state):
    return state if len(state) == 2 else vx.state_code(state)


def cleaned(row):
    payee = {column: vx.all_trim(row[column]) for column in ("town", "state", "zip", "date", "amount")}
    # Quotes, asterisks, stops and blanks around a name are how it was typed, not what it is.
    payee["name"] = vx.chr_trim(row["name"], " \t\"*.", VX_TRIM_BOTH)
    # 1,250 and 1250.00 are one amount; what is no number is none.
    payee["amount"] = without_commas(vx.comma(without_commas(payee["amount"])))
    payee["memo"] = row["memo"]
    return payee


def objection_to(payee, paid):
    if vx.str_empty(payee["name"]):
        return "no payee"
    if not payee["amount"]:
        return "the amount is no number"
    if len(payee["amount"]) > AMOUNT_WIDTH:
        return "the amount is too large for a cheque"
    if not vx.check_date(payee["date"]):
        return "there is no such date"
    if not vx.is_zip(code_of(payee["state"]), payee["zip"]):
        return "the ZIP code is not in this state"
    # The same sound, the same amount: perhaps the same bill, typed twice.
    first = paid.setdefault((vx.soundex(payee["name"], None, 6), payee["amount"]), payee)
    return None if first is payee else f"sounds like {first['name']}, with the same amount: paid twice?"


def write(number, payee):
    date = vx.get_j_datef(vx.date_to_julian(payee["date"]), "MMMM DDD, YYYY")
    print(f"No. {number}" + vx.str_justify(date, LINE_WIDTH - 8, VX_JUSTIFY_RIGHT_TRIMMED, " "))
    # Stars in front of an amount leave no room for a digit more.
    amount = vx.str_justify(payee["amount"], AMOUNT_WIDTH, VX_JUSTIFY_RIGHT_TRIMMED, "*")
    print("Pay     " + vx.un_trim(vx.cap_first(payee["name"]), LINE_WIDTH - 8 - 2 - AMOUNT_WIDTH, ".") + "$ " + amount)
    print("        " + vx.num_to_dollars(payee["amount"], CENTS_OVER_100))
    print(f"        {payee['town']}, {vx.state_code(code_of(payee['state']))} {payee['zip']}")
    for line in range(1, vx.wrap_count(payee["memo"], MEMO_WIDTH) + 1):
        _, text = vx.str_wrap(payee["memo"], line, MEMO_WIDTH)
        print(("Memo    " if line == 1 else "        ") + vx.all_trim(text))
    print(vx.replicate("-", LINE_WIDTH) + "\n")


def enter(table, number, payee):
    values = {
        "NUMBER": str(number),
        "PAYEE": payee["name"],
        "TOWN": payee["town"],
        "STATE": code_of(payee["state"]),
        "DATED": vx.get_j_datef(vx.date_to_julian(payee["date"]), "YYYYMMDD"),
        "AMOUNT": payee["amount"],
        "CLEARED": "F",
        "MEMO": payee["memo"],
    }
    if not table.append(1) or not all(table.replace(field, value) for field, value in values.items()):
        sys.exit("cannot write to the table")


def main():
    if len(sys.argv) != 3:
        print(f"usage: {sys.argv[0]} PAYEES.csv CHEQUES.dbf", file=sys.stderr)
        return 2
    table = vx.dbf_str_create(sys.argv[2], STRUCTURE)
    if table is None:
        sys.exit(f"cannot create the table {sys.argv[2]}")
    paid, numbers, refused = {}, itertools.count(1001), 0
    with table, open(sys.argv[1], encoding="latin-1", newline="") as file:
        for row in csv.DictReader(file):
            payee = cleaned(row)
            objection = objection_to(payee, paid)
            if objection:
                refused += 1
                print(f"no cheque for [{row['name']}]: {objection}\n")
            else:
                number = next(numbers)
                write(number, payee)
                enter(table, number, payee)
        # All is on the disk when this returns.
        if table.close() != 0:
            sys.exit("cannot close the table")
    print(f"{next(numbers) - 1001} cheques written, {refused} payees to look at")
    return 0


sys.exit(main())
