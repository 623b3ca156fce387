#include "core/documents/document_layout.h"

#include <gtest/gtest.h>

#include "fakes/memory_settings_store.h"

namespace zv::documents {
namespace {

struct Spot {
    const char* control;
    int left;
    int top;
};

void expectPlaces(const Layout& layout, std::initializer_list<Spot> spots) {
    for (const Spot& spot : spots) {
        SCOPED_TRACE(spot.control);
        const FieldPlace* place = layout.find(spot.control);
        ASSERT_NE(place, nullptr);
        EXPECT_EQ(place->left, spot.left);
        EXPECT_EQ(place->top, spot.top);
    }
}

TEST(ChequeLayout, AModelNeverSavedHasItsDefaultNameAndTheDesignPositions) {
    const fakes::MemorySettingsStore store;
    for (int model : {0, 1, 8}) {
        SCOPED_TRACE(model);
        const Layout layout = loadLayout(store, DocumentKind::Cheque, model);
        EXPECT_EQ(layout.name, "Modelo " + std::to_string(model + 1));
        EXPECT_FALSE(layout.fourDigitYear);
        expectPlaces(layout, {{"txtValor", 454, 10},
                              {"txtExtenso1", 68, 38},
                              {"txtExtenso2", 8, 62},
                              {"txtFavorecido", 18, 86},
                              {"txtCidade", 262, 112},
                              {"txtDia", 444, 112},
                              {"txtMês", 480, 112},
                              {"txtAno", 580, 112}});
    }
}

TEST(ChequeLayout, ModelsLiveInTheirOwnSections) {
    const std::tuple<int, const char*> cases[] = {{0, "Cheque"}, {1, "Cheque1"}, {8, "Cheque8"}};
    for (const auto& [model, section] : cases) {
        SCOPED_TRACE(section);
        fakes::MemorySettingsStore store;
        store.write(section, "Banco", "BANCO DO POVO");
        store.write(section, "lblValorL", "400");
        store.write(section, "lblMêsL", "470");
        store.write(section, "chkAno", "1");
        const Layout layout = loadLayout(store, DocumentKind::Cheque, model);
        EXPECT_EQ(layout.name, "BANCO DO POVO");
        EXPECT_EQ(layout.find("txtValor")->left, 400);
        EXPECT_EQ(layout.find("txtMês")->left, 470);
        EXPECT_TRUE(layout.fourDigitYear);
        EXPECT_EQ(modelNames(store, DocumentKind::Cheque)[static_cast<std::size_t>(model)], "BANCO DO POVO");
    }
}

TEST(ChequeLayout, AStoredPositionThatIsNoWholeNumberLeavesTheDesignPosition) {
    const std::tuple<const char*, const char*, int> cases[] = {
        {"letters", "abc", 454},
        {"decimals", "12,5", 454},
        {"empty", "", 454},
        {"far off any paper", "99999", 454},
        {"negative, dragged past the edge", "-3", -3},
    };
    for (const auto& [label, stored, left] : cases) {
        SCOPED_TRACE(label);
        fakes::MemorySettingsStore store;
        store.write("Cheque", "lblValorL", stored);
        EXPECT_EQ(loadLayout(store, DocumentKind::Cheque, 0).find("txtValor")->left, left);
    }
}

TEST(ChequeLayout, TheDateStaysOnTheCitysLine) {
    fakes::MemorySettingsStore store;
    store.write("Cheque", "txtCidadeT", "130");
    const Layout layout = loadLayout(store, DocumentKind::Cheque, 0);
    expectPlaces(layout, {{"txtDia", 444, 130}, {"txtMês", 480, 130}, {"txtAno", 580, 130}});
}

TEST(NoteLayout, MonthAndYearShareTheDaysTopAndTheSecondCreditorLineFollowsTheFirst) {
    fakes::MemorySettingsStore store;
    store.write("Promissoria2", "txtDiaT", "30");
    store.write("Promissoria2", "txtCredorT", "114");
    store.write("Promissoria2", "txtCredor2L", "40");
    store.write("Promissoria2", "txtEndereçoL", "150");
    store.write("Promissoria2", "Modelo", "FORMULÁRIO A");
    const Layout layout = loadLayout(store, DocumentKind::Note, 2);
    const Layout design = designLayout(DocumentKind::Note, 2);
    EXPECT_EQ(layout.name, "FORMULÁRIO A");
    EXPECT_EQ(layout.find("txtMês")->top, 30);
    EXPECT_EQ(layout.find("txtAno")->top, 30);
    EXPECT_EQ(layout.find("txtCredor2")->top,
              114 + design.find("txtCredor2")->top - design.find("txtCredor")->top);
    EXPECT_EQ(layout.find("txtCredor2")->left, 40);
    EXPECT_EQ(layout.find("txtEndereço")->left, 150);
}

TEST(SaveLayout, WritesTheNameAndEveryPositionIntoTheModelsSection) {
    fakes::MemorySettingsStore store;
    Layout layout = designLayout(DocumentKind::Cheque, 3);
    layout.find("txtFavorecido")->left = 25;
    layout.find("txtFavorecido")->top = 90;
    layout.fourDigitYear = true;
    ASSERT_EQ(saveLayout(store, layout, "  banco itaú  "), SaveOutcome::Saved);
    EXPECT_EQ(layout.name, "BANCO ITAÚ");
    const Layout reloaded = loadLayout(store, DocumentKind::Cheque, 3);
    EXPECT_EQ(reloaded.name, "BANCO ITAÚ");
    EXPECT_EQ(reloaded.find("txtFavorecido")->left, 25);
    EXPECT_EQ(reloaded.find("txtFavorecido")->top, 90);
    EXPECT_TRUE(reloaded.fourDigitYear);
    EXPECT_EQ(store.values.at({"Cheque3", "lblMêsL"}), "480");
    EXPECT_FALSE(store.values.contains({"Cheque", "Banco"}));
}

TEST(SaveLayout, ANoteModelIsNamedUnderModelo) {
    fakes::MemorySettingsStore store;
    Layout layout = designLayout(DocumentKind::Note, 0);
    ASSERT_EQ(saveLayout(store, layout, "nota da papelaria"), SaveOutcome::Saved);
    EXPECT_EQ(store.values.at({"Promissoria", "Modelo"}), "NOTA DA PAPELARIA");
    EXPECT_FALSE(store.values.contains({"Promissoria", "Banco"}));
    EXPECT_TRUE(store.values.contains({"Promissoria", "txtEndereçoT"}));
}

TEST(SaveLayout, ABlankNameSavesNothing) {
    for (const char* answer : {"", "   ", "\t"}) {
        SCOPED_TRACE(answer);
        fakes::MemorySettingsStore store;
        Layout layout = designLayout(DocumentKind::Cheque, 0);
        EXPECT_EQ(saveLayout(store, layout, answer), SaveOutcome::Cancelled);
        EXPECT_TRUE(store.values.empty());
        EXPECT_EQ(layout.name, "Modelo 1");
    }
}

TEST(SaveLayout, AStoreThatCannotBeWrittenKeepsTheOldName) {
    fakes::MemorySettingsStore store;
    store.failing = true;
    Layout layout = designLayout(DocumentKind::Cheque, 0);
    EXPECT_EQ(saveLayout(store, layout, "BANCO"), SaveOutcome::StoreFailed);
    EXPECT_EQ(layout.name, "Modelo 1");
}

TEST(PositionReadout, LeftAndTopInThreeDigits) {
    EXPECT_EQ(positionReadout(5, 42), " Posição:  005 / 042");
    EXPECT_EQ(positionReadout(1454, 110), " Posição:  1454 / 110");
}

}  // namespace
}  // namespace zv::documents
