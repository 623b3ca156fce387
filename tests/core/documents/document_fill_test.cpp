#include "core/documents/document_fill.h"

#include <gtest/gtest.h>

#include "core/documents/amount_words.h"
#include "fakes/memory_settings_store.h"

namespace zv::documents {
namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::year;

const common::NumberSeparators kBrazil;

std::string textOf(const std::vector<FilledField>& fields, std::string_view control) {
    for (const FilledField& field : fields) {
        if (field.control == control) {
            return field.text;
        }
    }
    ADD_FAILURE() << "no field " << control;
    return {};
}

TEST(FillCheque, EveryFieldAtItsPlaceWithItsText) {
    fakes::MemorySettingsStore store;
    store.write("Cheque", "txtCidadeT", "120");
    const Layout layout = loadLayout(store, DocumentKind::Cheque, 0);
    const ChequeEntry entry{1234.56, " acme ltda ", "são paulo", common::Date{year{2004}, month{3}, day{10}}};
    const auto fields = fillCheque(layout, entry, kBrazil);
    ASSERT_TRUE(fields.has_value());
    ASSERT_EQ(fields->size(), 8u);
    EXPECT_EQ(textOf(*fields, "txtValor"), "***1.234,56 ");
    EXPECT_EQ(textOf(*fields, "txtExtenso1"),
              "(UM MIL E DUZENTOS E TRINTA E QUATRO REAIS E CINQUENTA E SEIS " + std::string(kFill1));
    EXPECT_EQ(textOf(*fields, "txtExtenso2"), "CENTAVOS)" + std::string(kFill2));
    EXPECT_EQ(textOf(*fields, "txtFavorecido"), "ACME LTDA");
    EXPECT_EQ(textOf(*fields, "txtCidade"), "SÃO PAULO");
    EXPECT_EQ(textOf(*fields, "txtDia"), "10");
    EXPECT_EQ(textOf(*fields, "txtMês"), "MARÇO");
    EXPECT_EQ(textOf(*fields, "txtAno"), "04");
    const FilledField& dayField = (*fields)[5];
    EXPECT_EQ(dayField.control, "txtDia");
    EXPECT_EQ(dayField.left, 444);
    EXPECT_EQ(dayField.top, 120);
}

TEST(FillCheque, TheLayoutsYearOption) {
    Layout layout = designLayout(DocumentKind::Cheque, 0);
    layout.fourDigitYear = true;
    const auto fields =
        fillCheque(layout, {10, "", "", common::Date{year{2004}, month{3}, day{10}}}, kBrazil);
    ASSERT_TRUE(fields.has_value());
    EXPECT_EQ(textOf(*fields, "txtAno"), "2004");
}

TEST(FillCheque, AnAmountOutOfRangeFillsNothing) {
    const Layout layout = designLayout(DocumentKind::Cheque, 0);
    EXPECT_FALSE(fillCheque(layout, {0.001, "A", "B", {}}, kBrazil).has_value());
    NoteEntry note;
    note.amount = 1e12;
    EXPECT_FALSE(fillNote(designLayout(DocumentKind::Note, 0), note, kBrazil).has_value());
}

TEST(FillNote, NumberDueDateInWordsAndUpperCasedParties) {
    NoteEntry entry;
    entry.amount = 150;
    entry.due = common::Date{year{2000}, month{2}, day{1}};
    entry.number = 7;
    entry.promise = "pagarei por esta única via";
    entry.creditor = "joão";
    entry.issuer = "maria";
    entry.address = "rua da conceição, 12";
    const auto fields = fillNote(designLayout(DocumentKind::Note, 0), entry, kBrazil);
    ASSERT_TRUE(fields.has_value());
    EXPECT_EQ(fields->size(), 15u);
    EXPECT_EQ(textOf(*fields, "txtNumero"), "00007");
    EXPECT_EQ(textOf(*fields, "txtAno"), "2000");
    EXPECT_EQ(textOf(*fields, "txtAosDias"), "PRIMEIRO DIA DO MÊS DE FEVEREIRO DO ANO DE DOIS MIL ");
    EXPECT_EQ(textOf(*fields, "txtPagarei"), "pagarei por esta única via");
    EXPECT_EQ(textOf(*fields, "txtCredor"), "JOÃO");
    EXPECT_EQ(textOf(*fields, "txtEndereço"), "RUA DA CONCEIÇÃO, 12");
    EXPECT_EQ(textOf(*fields, "txtExtenso1"), "(CENTO E CINQUENTA REAIS)" + std::string(kFill1));
}

TEST(LastEntries, PrintingKeepsWhatTheNextOpeningShows) {
    fakes::MemorySettingsStore store;
    NoteEntry note = lastNoteEntry(store);
    EXPECT_EQ(note.number, 1);
    note.creditor = "joão";
    note.address = "rua a";
    ASSERT_TRUE(saveNoteEntry(store, note, false));
    const NoteEntry next = lastNoteEntry(store);
    EXPECT_EQ(next.number, 2);
    EXPECT_EQ(next.creditor, "JOÃO");
    EXPECT_EQ(store.values.at({"Promissoria", "Endereço"}), "RUA A");
    EXPECT_FALSE(savedBold(store, DocumentKind::Note));
    EXPECT_TRUE(savedBold(store, DocumentKind::Cheque));

    ASSERT_TRUE(saveChequeEntry(store, {1, "acme", "rio", {}}, true));
    EXPECT_EQ(lastChequeEntry(store).payee, "ACME");
    EXPECT_EQ(lastChequeEntry(store).city, "RIO");
    EXPECT_EQ(store.values.at({"Cheque", "Negrito"}), "1");
}

}  // namespace
}  // namespace zv::documents
