#include "cli/command.h"

namespace zv::cli {

const std::vector<Command>& commands() {
    // Savings and the cheque discount read the same amount, rate and time.
    const std::vector<CommandOption> capitalisationOptions = {{"--amount", "V"}, {"--rate", "R"},
                                                              {"--days", "D"},   {"--from", "DATE"},
                                                              {"--to", "DATE"},  {"--tape", ""}};
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
        {"date",
         {{"--years", "N"}, {"--months", "N"}, {"--weeks", "N"}, {"--days", "N"}, {"--tape", ""}},
         "add DATE | span DATE1 DATE2",
         "add: the date a span later (years of 365 days and one more for each 29/02 they\n"
         "cross, months of 30 days); span: the span between two dates broken down the same way.\n"
         "Dates DD/MM/YYYY; --tape prints the block the tape receives",
         &runDate},
        {"convert",
         {},
         "SOURCE VALUE",
         "VALUE in every unit related to SOURCE\n"
         "(SOURCE: 0 to 36, or the unit's name as the converter lists it)",
         &runConvert},
        {"rule3",
         {},
         "BASE_OF_UNKNOWN ROW...",
         "the unknown's new value; BASE_OF_UNKNOWN is its base value and each ROW a known\n"
         "quantity, BASE:NEW:d when raising it raises the unknown (direct), BASE:NEW:i\n"
         "when raising it lowers the unknown (inverse)",
         &runRule3},
        {"interest",
         {{"--initial", "V"},
          {"--count", "N"},
          {"--days", "D"},
          {"--down-payment", ""},
          {"--rate", "R"},
          {"--instalment", "P"},
          {"--schedule", ""},
          {"--tape", ""},
          {"--notes", "FILE"},
          {"--cheques", "FILE"}},
         "",
         "fixed instalments: the rate (from --instalment) or the instalment (from --rate),\n"
         "the total interest and the final amount; --schedule adds one line per instalment;\n"
         "--notes or --cheques writes instead the plan's promissory notes or post-dated\n"
         "cheques to a PDF FILE, one page each, due from today (the notes numbered on from\n"
         "the next note number, which they advance)",
         &runInterest},
        {"savings", capitalisationOptions, "",
         "V capitalised at R % a month over D days (1 to 1500) or between two dates", &runSavings},
        {"discount", capitalisationOptions, "",
         "what a cheque of V due in D days (1 to 730) is worth today at R % a month", &runDiscount},
        {"cheque",
         {{"--amount", "V"},
          {"--payee", "P"},
          {"--city", "C"},
          {"--date", "DATE"},
          {"--model", "1-9"},
          {"--bold", ""},
          {"--year4", ""},
          {"--fields", ""},
          {"--pdf", "FILE"}},
         "",
         "a cheque of V filled in on the saved layout of the model (the last payee and city\n"
         "when not given, today when no DATE); --fields prints each field's control, left, top\n"
         "and text, tab-separated; --pdf writes the cheque life-size to a one-page PDF FILE\n"
         "(bold with --bold or as the window last printed)",
         &runCheque},
        {"note",
         {{"--amount", "V"},
          {"--due", "DATE"},
          {"--number", "N"},
          {"--creditor", "L1"},
          {"--creditor2", "L2"},
          {"--issuer", "L1"},
          {"--issuer2", "L2"},
          {"--address", "A"},
          {"--city", "C"},
          {"--promise", "TEXT"},
          {"--model", "1-9"},
          {"--bold", ""},
          {"--fields", ""},
          {"--pdf", "FILE"}},
         "",
         "a promissory note of V due on DATE, numbered N (the next number when not given),\n"
         "the last parties, place and promise when not given; --fields and --pdf as for\n"
         "cheque (a note written to PDF keeps its number, so the next note follows it)",
         &runNote},
        {"layouts",
         {},
         "backup FILE | restore FILE",
         "the cheque and note layouts to a registry file (REGEDIT4), or back from one\n"
         "(restore - reads standard input; it prints each value it restores)",
         &runLayouts},
    };
    return table;
}

}  // namespace zv::cli
