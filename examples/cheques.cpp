// The cheque run of a small business: cleans a list of payees and sets it as a register.
//
//     vexlor_demo LIBRARY PAYEES
#include <cstdint>
#include <cstdio>
#include <exception>
#include <fstream>
#include <string>
#include <vector>

#include "loaded_library.h"

namespace {

constexpr int kNameWidth = 30;
constexpr int kTownWidth = 16;
constexpr int kAmountWidth = 12;
constexpr int kLineWidth = kNameWidth + kTownWidth + kAmountWidth;

// The functions that this program calls, each by its exported name.
struct Functions {
    explicit Functions(const LoadedLibrary& library)
        : allTrim(library.function<char*(const char*, char*)>("AllTrim")),
          chrTrim(library.function<char*(const char*, const char*, std::int32_t, char*)>("ChrTrim")),
          unTrim(library.function<char*(const char*, std::int32_t, const char*, char*)>("UnTrim")),
          strCenter(library.function<char*(const char*, std::int32_t, const char*, char*)>("StrCenter")),
          replicate(library.function<char*(const char*, std::int32_t, char*)>("Replicate")),
          leadChar(library.function<char*(const char*, const char*, char*)>("LeadChar")),
          rJust(library.function<char*(const char*, char*)>("RJust")),
          strEmpty(library.function<std::int32_t(const char*)>("StrEmpty")),
          isNum(library.function<std::int32_t(const char*, std::int32_t)>("IsNum")) {}

    char* (*allTrim)(const char*, char*);
    char* (*chrTrim)(const char*, const char*, std::int32_t, char*);
    char* (*unTrim)(const char*, std::int32_t, const char*, char*);
    char* (*strCenter)(const char*, std::int32_t, const char*, char*);
    char* (*replicate)(const char*, std::int32_t, char*);
    char* (*leadChar)(const char*, const char*, char*);
    char* (*rJust)(const char*, char*);
    std::int32_t (*strEmpty)(const char*);
    std::int32_t (*isNum)(const char*, std::int32_t);
};

struct Payee {
    std::string name, town, amount;
};

std::vector<Payee> readPayees(const char* path) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error(std::string("cannot read ") + path);
    std::vector<Payee> payees;
    for (std::string line; std::getline(file, line);) {
        std::size_t first = line.find('|');
        std::size_t second = line.find('|', first + 1);
        if (line.starts_with('#') || second == std::string::npos) continue;
        payees.push_back({line.substr(0, first), line.substr(first + 1, second - first - 1), line.substr(second + 1)});
    }
    return payees;
}

class Register {
 public:
    explicit Register(const Functions& call) : call_(call) {}

    void heading(const char* title) const {
        char line[kLineWidth + 1];
        std::puts(call_.strCenter(title, kLineWidth, nullptr, line));
        std::puts(call_.replicate("=", kLineWidth, line));
    }

    // False, with a remark, if no cheque can be written.
    bool print(const Payee& payee) const {
        // Quotes, asterisks, stops and blanks around a name are how it was typed, not what it is.
        std::string name = payee.name, town = payee.town, amount = payee.amount;
        call_.chrTrim(name.c_str(), " \t\"'*.", 0, nullptr);
        call_.allTrim(town.c_str(), nullptr);
        call_.allTrim(amount.c_str(), nullptr);
        if (call_.strEmpty(name.c_str())) return refuse(payee, "no payee");
        if (!call_.isNum(amount.c_str(), kAmountWidth)) return refuse(payee, "the amount is no number");

        char nameColumn[kNameWidth + 1], townColumn[kTownWidth + 1], amountColumn[kAmountWidth + 1];
        call_.unTrim(name.c_str(), kNameWidth, ".", nameColumn);
        call_.unTrim(town.c_str(), kTownWidth, nullptr, townColumn);
        call_.unTrim(amount.c_str(), kAmountWidth, nullptr, amountColumn);
        // Stars in front of an amount leave no room for a digit more.
        call_.rJust(amountColumn, nullptr);
        call_.leadChar(amountColumn, "*", nullptr);
        std::printf("%s%s%s\n", nameColumn, townColumn, amountColumn);
        return true;
    }

 private:
    bool refuse(const Payee& payee, const char* why) const {
        std::printf("  no cheque for [%s]: %s\n", payee.name.c_str(), why);
        return false;
    }

    const Functions& call_;
};

}  // namespace

int main(int argc, char** argv) try {
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s LIBRARY PAYEES\n", argv[0]);
        return 2;
    }
    LoadedLibrary library(argv[1]);
    Functions functions(library);
    Register cheques(functions);
    cheques.heading("CHEQUE REGISTER");
    int written = 0;
    int refused = 0;
    for (const Payee& payee : readPayees(argv[2])) ++(cheques.print(payee) ? written : refused);
    std::printf("\n%d cheques, %d refused\n", written, refused);
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
