#include "cli/command.h"

namespace zv::cli {

const std::vector<Command>& commands() {
    static const std::vector<Command> table = {
        {"tape",
         {{"--format", "0|1|2"},
          {"--enter", "plus|equals"},
          {"--numlock", ""},
          {"--time", ""},
          {"--json", ""}},
         "[KEYS...]",
         "types KEYS into a fresh calculator and prints the tape; named keys:\n"
         "{ENTER} {BACK} {CE} {NEG} {UNDO} {REDO} {CLEAR}. Without KEYS the keys are read\n"
         "from standard input (from a terminal: the adding machine, kept between runs)",
         &runTape},
        {"words", {{"--no-currency", ""}}, "AMOUNT", "the amount in Portuguese words", &runWords},
        {"text", {}, "CODE [ARG1 [ARG2 [ARG3]]]", "an interface text", &runText},
        {"money", {}, "VALUE", "VALUE in the money format", &runMoney},
        {"interest",
         {{"--initial", "V"},
          {"--count", "N"},
          {"--days", "D"},
          {"--down-payment", ""},
          {"--rate", "R"},
          {"--instalment", "P"},
          {"--schedule", ""},
          {"--tape", ""}},
         "",
         "fixed instalments: the rate (from --instalment) or the instalment (from --rate),\n"
         "the total interest and the final amount; --schedule adds one line per instalment",
         &runInterest},
        {"savings",
         {{"--amount", "V"},
          {"--rate", "R"},
          {"--days", "D"},
          {"--from", "DATE"},
          {"--to", "DATE"},
          {"--tape", ""}},
         "",
         "V capitalised at R % a month over D days (1 to 1500) or between two dates",
         &runSavings},
        {"discount",
         {{"--amount", "V"},
          {"--rate", "R"},
          {"--days", "D"},
          {"--from", "DATE"},
          {"--to", "DATE"},
          {"--tape", ""}},
         "",
         "what a cheque of V due in D days (1 to 730) is worth today at R % a month",
         &runDiscount},
    };
    return table;
}

}  // namespace zv::cli
