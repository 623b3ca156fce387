#include "core/documents/plan_documents.h"

#include <gtest/gtest.h>

#include "core/documents/document_layout.h"

namespace zv::documents {
namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::year;

const common::Date kLoanDay{year{2026}, month{11}, day{21}};

std::string fieldText(const std::vector<FilledField>& fields, std::string_view control) {
    for (const FilledField& field : fields) {
        if (field.control == control) {
            return field.text;
        }
    }
    ADD_FAILURE() << "no field " << control;
    return {};
}

// 750,00 in 10 instalments of 86,00 from 30 days: the last one absorbs the rounding.
std::vector<tools::ScheduleRow> plan() {
    const tools::LoanTerms terms{750.0, 10, 30, false};
    return tools::paymentSchedule(terms, 86.0, 2.569025);
}

TEST(PlanNotes, OneNotePerInstalmentNumberedOnAndDueOnItsDay) {
    NoteEntry first;
    first.number = 7;
    first.creditor = "Loja Central";
    first.city = "Campinas";
    const std::vector<tools::ScheduleRow> rows = plan();
    const std::vector<NoteEntry> notes = planNotes(rows, kLoanDay, first);
    ASSERT_EQ(notes.size(), 10u);
    // 30 days after 21/11/2026, then every 30 days.
    EXPECT_EQ(notes[0].due, (common::Date{year{2026}, month{12}, day{21}}));
    EXPECT_EQ(notes[1].due, (common::Date{year{2027}, month{1}, day{20}}));
    EXPECT_EQ(notes[9].due, (common::Date{year{2027}, month{9}, day{17}}));
    EXPECT_EQ(notes[0].number, 7);
    EXPECT_EQ(notes[9].number, 16);
    EXPECT_EQ(notes[0].amount, 86.0);
    EXPECT_EQ(notes[9].amount, rows[9].instalment);
    EXPECT_EQ(notes[9].creditor, "Loja Central");

    // The second note as printed: its number, its amount in words and its due day in words.
    const auto fields = fillNote(designLayout(DocumentKind::Note, 0), notes[1], {});
    ASSERT_TRUE(fields.has_value());
    EXPECT_EQ(fieldText(*fields, "txtNumero"), "00008");
    EXPECT_EQ(fieldText(*fields, "txtAosDias"),
              "VINTE DIAS DO MÊS DE JANEIRO DO ANO DE DOIS MIL E VINTE E SETE ");
    EXPECT_EQ(fieldText(*fields, "txtExtenso1").substr(0, 21), "(OITENTA E SEIS REAIS");
}

TEST(PlanCheques, OneChequePerInstalmentDatedOnItsDueDay) {
    const ChequeEntry first{0, "Loja Central", "Campinas", kLoanDay};
    const tools::LoanTerms paidAtOnce{1000.0, 3, 0, true};
    const std::vector<tools::ScheduleRow> rows = tools::paymentSchedule(paidAtOnce, 340.0, 1.0);
    const std::vector<ChequeEntry> cheques = planCheques(rows, kLoanDay, first);
    ASSERT_EQ(cheques.size(), 3u);
    // The first is paid on the day of the loan, the others a month apart.
    EXPECT_EQ(cheques[0].date, kLoanDay);
    EXPECT_EQ(cheques[2].date, (common::Date{year{2027}, month{1}, day{20}}));
    EXPECT_EQ(cheques[1].payee, "Loja Central");
    EXPECT_EQ(cheques[1].amount, rows[1].instalment);
}

}  // namespace
}  // namespace zv::documents
