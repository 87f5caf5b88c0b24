// The cheque run of a small business: reads payees from a CSV file, cleans and checks them, and writes a cheque for
// each that is in order, on the screen and in a table. All work on texts, numbers, dates and tables is done by the
// library, which is loaded by name.
//
//     vexlor_demo LIBRARY PAYEES.csv CHEQUES.dbf
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <map>
#include <string>

#include "cheque_register.h"
#include "csv_file.h"
#include "functions.h"

namespace {

constexpr std::int32_t kLineWidth = 64;
constexpr std::int32_t kAmountWidth = 12;
constexpr std::int32_t kMemoWidth = 40;
constexpr std::int32_t kDigitsOver100 = 0;
constexpr std::int32_t kRightWithBlanksDropped = 0;
constexpr std::int32_t kFromFirst = 1;
constexpr std::int32_t kAllOccurrences = -2;

struct Payee {
    std::string name, town, state, zip, date, amount, memo;
};

class ChequeRun {
 public:
    ChequeRun(const Functions& call, ChequeRegister& cheques) : call_(call), register_(cheques) {}

    // Writes a cheque, or says why there is none.
    bool pay(const CsvFile::Row& row) {
        Payee payee = cleaned(row);
        std::string objection = objectionTo(payee);
        if (!objection.empty()) {
            std::printf("no cheque for [%s]: %s\n\n", row.at("name").c_str(), objection.c_str());
            return false;
        }
        ++number_;
        write(payee);
        enter(payee);
        return true;
    }

 private:
    // A text that was worked on in place ends at its new terminator.
    static void fit(std::string& text) { text.resize(std::strlen(text.c_str())); }

    Payee cleaned(const CsvFile::Row& row) const {
        Payee payee{row.at("name"), row.at("town"),   row.at("state"), row.at("zip"),
                    row.at("date"), row.at("amount"), row.at("memo")};
        // Quotes, asterisks, stops and blanks around a name are how it was typed, not what it is.
        call_.chrTrim(payee.name.c_str(), " \t\"*.", 0, nullptr);
        fit(payee.name);
        for (std::string* text : {&payee.town, &payee.state, &payee.zip, &payee.date, &payee.amount}) {
            call_.allTrim(text->c_str(), nullptr);
            fit(*text);
        }
        payee.amount = withCents(payee.amount);
        return payee;
    }

    // 1,250 and 1250.00 are one amount; what is no number is none.
    std::string withCents(const std::string& typed) const {
        std::string plain = typed;
        char amount[64];
        call_.comma(call_.strTran(typed.c_str(), ",", "", kFromFirst, kAllOccurrences, plain.data()), amount);
        return call_.strTran(amount, ",", "", kFromFirst, kAllOccurrences, amount);
    }

    std::string objectionTo(const Payee& payee) {
        if (call_.strEmpty(payee.name.c_str())) return "no payee";
        if (payee.amount.empty()) return "the amount is no number";
        if (payee.amount.size() > kAmountWidth) return "the amount is too large for a cheque";
        if (!call_.checkDate(payee.date.c_str())) return "there is no such date";
        if (!call_.isZip(codeOf(payee.state).c_str(), payee.zip.c_str())) return "the ZIP code is not in this state";
        // The same sound, the same amount: perhaps the same bill, typed twice.
        char sound[16];
        std::string key = std::string(call_.soundex(payee.name.c_str(), nullptr, 6, sound)) + " " + payee.amount;
        auto [first, isNew] = paid_.emplace(key, payee.name);
        return isNew ? "" : "sounds like " + first->second + ", with the same amount: paid twice?";
    }

    std::string codeOf(const std::string& state) const {
        char code[64];
        return state.size() == 2 ? state : call_.stateCode(state.c_str(), code);
    }

    void write(const Payee& payee) {
        char line[kLineWidth + 1], date[160], state[64], amount[kAmountWidth + 1], words[512], memo[kMemoWidth + 1];
        call_.getJDatef(call_.dateToJulian(payee.date.c_str()), "MMMM DDD, YYYY", date);
        std::printf("No. %d%s\n", number_, call_.strJustify(date, kLineWidth - 8, kRightWithBlanksDropped, " ", line));

        // Stars in front of an amount leave no room for a digit more.
        call_.strJustify(payee.amount.c_str(), kAmountWidth, kRightWithBlanksDropped, "*", amount);
        std::string name = payee.name;
        call_.capFirst(name.c_str(), nullptr);
        std::printf("Pay     %s$ %s\n", call_.unTrim(name.c_str(), kLineWidth - 8 - 2 - kAmountWidth, ".", line),
                    amount);
        std::printf("        %s\n", call_.numToDollars(payee.amount.c_str(), kDigitsOver100, words));
        std::printf("        %s, %s %s\n", payee.town.c_str(), call_.stateCode(codeOf(payee.state).c_str(), state),
                    payee.zip.c_str());
        for (std::int32_t i = 1; i <= call_.wrapCount(payee.memo.c_str(), kMemoWidth); ++i) {
            std::printf("%-8s%s\n", i == 1 ? "Memo" : "",
                        call_.allTrim(call_.strWrap(payee.memo.c_str(), i, kMemoWidth, memo), nullptr));
        }
        std::printf("%s\n\n", call_.replicate("-", kLineWidth, line));
    }

    void enter(const Payee& payee) {
        char date[96];
        register_.append();
        register_.put("NUMBER", std::to_string(number_));
        register_.put("PAYEE", payee.name);
        register_.put("TOWN", payee.town);
        register_.put("STATE", codeOf(payee.state));
        register_.put("DATED", call_.getJDatef(call_.dateToJulian(payee.date.c_str()), "YYYYMMDD", date));
        register_.put("AMOUNT", payee.amount);
        register_.put("CLEARED", "F");
        register_.put("MEMO", payee.memo);
    }

    const Functions& call_;
    ChequeRegister& register_;
    std::map<std::string, std::string> paid_;
    int number_ = 1000;
};

}  // namespace

int main(int argc, char** argv) try {
    if (argc != 4) {
        std::fprintf(stderr, "usage: %s LIBRARY PAYEES.csv CHEQUES.dbf\n", argv[0]);
        return 2;
    }
    LoadedLibrary library(argv[1]);
    Functions functions(library);
    ChequeRegister cheques(functions, argv[3]);
    ChequeRun run(functions, cheques);
    int written = 0;
    int refused = 0;
    CsvFile payees(argv[2]);
    for (const CsvFile::Row& row : payees.rows()) ++(run.pay(row) ? written : refused);
    cheques.close();
    std::printf("%d cheques written, %d payees to look at\n", written, refused);
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
