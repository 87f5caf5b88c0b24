/* The cheque run of a small business: reads payees from a CSV file, cleans and checks them, and writes a cheque for each
 * that is in order, on the screen and in a table.
 *
 *     cc cheques.c -lvexlor32 -lcsv -o cheques
 *     ./cheques PAYEES.csv CHEQUES.dbf
 */
#include <csv.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <vexlor32.h>

enum { LINE_WIDTH = 64, AMOUNT_WIDTH = 12, MEMO_WIDTH = 40, SOUND = 6, CENTS_OVER_100 = 0, MOST_COLUMNS = 32 };

static const char structure[] = "NUMBER,N,6:PAYEE,C,30:TOWN,C,20:STATE,C,2:DATED,D:AMOUNT,N,12,2:CLEARED,L:MEMO,M";

struct row {
    int count;
    char *fields[MOST_COLUMNS];
};

struct payee {
    const struct payee *before;
    const char *name, *town, *zip, *date, *memo;
    char code[21], amount[64], sound[SOUND + 1];
};

struct run {
    uint32_t table;
    int number, refused;
    struct row names, row;
    const struct payee *paid; /* the last one, and those before it */
};

static void fail(const char *what, const char *which) {
    fprintf(stderr, "%s%s\n", what, which);
    exit(1);
}

/* Is not given back: later payees are compared with all that were paid. */
static void *memory(size_t size) {
    void *made = malloc(size);
    if (!made) fail("out of memory", "");
    return made;
}

static char *field(struct run *run, const char *name) {
    for (int i = 0; i < run->names.count && i < run->row.count; ++i)
        if (strcmp(run->names.fields[i], name) == 0) return run->row.fields[i];
    fail("a payee without ", name);
    return NULL;
}

static struct payee *cleaned(struct run *run) {
    struct payee *payee = memory(sizeof *payee);
    /* Quotes, asterisks, stops and blanks around a name are how it was typed, not what it is. */
    const char *typed = field(run, "name"), *region = AllTrim(field(run, "state"), NULL);
    payee->name = ChrTrim(typed, " \t\"*.", VX_TRIM_BOTH, memory(strlen(typed) + 1));
    Soundex(payee->name, NULL, SOUND, payee->sound);
    payee->town = AllTrim(field(run, "town"), NULL);
    strlen(region) == 2 ? strcpy(payee->code, region) : StateCode(region, payee->code);
    payee->zip = AllTrim(field(run, "zip"), NULL);
    payee->date = AllTrim(field(run, "date"), NULL);
    payee->memo = field(run, "memo");
    /* 1,250 and 1250.00 are one amount; what is no number is none. */
    char *plain = AllTrim(field(run, "amount"), NULL);
    Comma(StrTran(plain, ",", "", 1, -1, plain), payee->amount);
    StrTran(payee->amount, ",", "", 1, -1, payee->amount);
    return payee;
}

static const char *objection_to(const struct payee *payee) {
    if (StrEmpty(payee->name)) return "no payee";
    if (!*payee->amount) return "the amount is no number";
    if (strlen(payee->amount) > AMOUNT_WIDTH) return "the amount is too large for a cheque";
    if (!CheckDate(payee->date)) return "there is no such date";
    if (!IsZip(payee->code, payee->zip)) return "the ZIP code is not in this state";
    return NULL;
}

/* The same sound, the same amount: perhaps the same bill, typed twice. NULL if not. */
static const struct payee *twin_of(const struct run *run, const struct payee *payee) {
    const struct payee *paid = run->paid;
    while (paid && (strcmp(paid->sound, payee->sound) != 0 || strcmp(paid->amount, payee->amount) != 0))
        paid = paid->before;
    return paid;
}

static void write_cheque(int number, const struct payee *payee) {
    char line[LINE_WIDTH + 1], memo[MEMO_WIDTH + 1], amount[AMOUNT_WIDTH + 1];
    char date[14 * 11 + 1], words[512], state_name[21]; /* the rooms that the header states */
    GetJDatef(DateToJulian(payee->date), "MMMM DDD, YYYY", date);
    printf("No. %d%s\n", number, StrJustify(date, LINE_WIDTH - 8, VX_JUSTIFY_RIGHT_TRIMMED, " ", line));
    /* Stars in front of an amount leave no room for a digit more. */
    StrJustify(payee->amount, AMOUNT_WIDTH, VX_JUSTIFY_RIGHT_TRIMMED, "*", amount);
    CapFirst(UnTrim(payee->name, LINE_WIDTH - 8 - 2 - AMOUNT_WIDTH, ".", line), NULL);
    printf("Pay     %s$ %s\n", line, amount);
    printf("        %s\n", NumToDollars(payee->amount, CENTS_OVER_100, words));
    printf("        %s, %s %s\n", payee->town, StateCode(payee->code, state_name), payee->zip);
    for (int i = 1; i <= WrapCount(payee->memo, MEMO_WIDTH); ++i) {
        StrWrap(payee->memo, i, MEMO_WIDTH, memo);
        printf("%s%s\n", i == 1 ? "Memo    " : "        ", AllTrim(memo, NULL));
    }
    printf("%s\n\n", Replicate("-", LINE_WIDTH, line));
}

static void enter(uint32_t table, int number, const struct payee *payee) {
    char digits[12], date[8 * 11 + 1];
    snprintf(digits, sizeof digits, "%d", number);
    GetJDatef(DateToJulian(payee->date), "YYYYMMDD", date);
    if (!DbfAppend(table, 1) || !DbfReplace(table, "NUMBER", digits) || !DbfReplace(table, "PAYEE", payee->name) ||
        !DbfReplace(table, "TOWN", payee->town) || !DbfReplace(table, "STATE", payee->code) ||
        !DbfReplace(table, "DATED", date) || !DbfReplace(table, "AMOUNT", payee->amount) ||
        !DbfReplace(table, "CLEARED", "F") || !DbfReplace(table, "MEMO", payee->memo))
        fail("cannot write to the table", "");
}

static void pay(struct run *run) {
    struct payee *payee = cleaned(run);
    const char *objection = objection_to(payee);
    const struct payee *twin = objection ? NULL : twin_of(run, payee);
    if (objection) {
        printf("no cheque for [%s]: %s\n\n", field(run, "name"), objection);
    } else if (twin) {
        printf("no cheque for [%s]: sounds like %s, with the same amount: paid twice?\n\n", field(run, "name"),
               twin->name);
    } else {
        write_cheque(++run->number, payee);
        enter(run->table, run->number, payee);
        payee->before = run->paid;
        run->paid = payee;
    }
    run->refused += objection || twin;
}

static void on_field(void *text, size_t size, void *context) {
    struct row *row = &((struct run *)context)->row;
    if (row->count == MOST_COLUMNS) fail("too many columns", "");
    row->fields[row->count++] = memcpy(memory(size + 1), text, size + 1);
}

static void on_row(int end, void *context) {
    struct run *run = context;
    (void)end;
    if (run->names.count == 0) run->names = run->row;
    else pay(run);
    run->row.count = 0;
}

int main(int argc, char **argv) {
    static struct run run = {.number = 1000};
    struct csv_parser parser;
    char bytes[4096];
    if (argc != 3) return fprintf(stderr, "usage: %s PAYEES.csv CHEQUES.dbf\n", argv[0]), 2;
    run.table = DbfStrCreate(argv[2], structure);
    if (!run.table) fail("cannot create the table ", argv[2]);
    FILE *file = fopen(argv[1], "rb");
    if (!file) fail("cannot read ", argv[1]);
    csv_init(&parser, CSV_APPEND_NULL);
    for (size_t size; (size = fread(bytes, 1, sizeof bytes, file)) > 0;)
        if (csv_parse(&parser, bytes, size, on_field, on_row, &run) != size) fail("no CSV file: ", argv[1]);
    csv_fini(&parser, on_field, on_row, &run);
    csv_free(&parser);
    fclose(file);
    /* All is on the disk when this returns. */
    if (DbfClose(run.table) != 0) fail("cannot close the table", "");
    printf("%d cheques written, %d payees to look at\n", run.number - 1000, run.refused);
    return 0;
}
