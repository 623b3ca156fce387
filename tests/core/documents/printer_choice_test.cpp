#include "core/documents/printer_choice.h"

#include <gtest/gtest.h>

#include "fakes/memory_settings_store.h"

namespace zv::documents {
namespace {

const std::vector<PrinterInfo> kPrinters = {
    {"Laser do escritório", "usb://laser"},
    {"Matricial cheques", "lpt1"},
    {"Matricial cheques", "lpt2"},
};

TEST(DocumentPrinter, TheStoredNameWhenInstalledOtherwiseTheDefault) {
    const std::tuple<const char*, const char*, std::optional<std::size_t>> cases[] = {
        {"empty: the default printer", "", std::nullopt},
        {"installed", "Laser do escritório", 0},
        {"removed since: the default printer", "Jato de tinta", std::nullopt},
        {"two of the same name: the first listed", "Matricial cheques", 1},
        {"the name must match exactly", "laser do escritório", std::nullopt},
    };
    for (const auto& [label, stored, index] : cases) {
        SCOPED_TRACE(label);
        EXPECT_EQ(documentPrinter(stored, kPrinters), index);
    }
}

TEST(DocumentPrinter, NoPrinterInstalledMeansTheDefault) {
    EXPECT_EQ(documentPrinter("Matricial cheques", {}), std::nullopt);
}

TEST(PrinterChoice, OpeningShowsTheStoredNameEvenWhenStale) {
    const PrinterChoice stale = openPrinterChoice("Jato de tinta", kPrinters);
    EXPECT_EQ(stale.chosen, "Jato de tinta");
    EXPECT_EQ(stale.port, "");
    EXPECT_FALSE(stale.useDefault);

    const PrinterChoice installed = openPrinterChoice("Matricial cheques", kPrinters);
    EXPECT_EQ(installed.port, "lpt1");
    EXPECT_FALSE(installed.useDefault);

    const PrinterChoice none = openPrinterChoice("", kPrinters);
    EXPECT_TRUE(none.useDefault);
}

TEST(PrinterChoice, ChoosingAPrinterUnticksTheDefault) {
    PrinterChoice choice = openPrinterChoice("", kPrinters);
    choosePrinter(choice, "Laser do escritório", kPrinters);
    EXPECT_FALSE(choice.useDefault);
    EXPECT_EQ(choice.port, "usb://laser");
}

TEST(PrinterChoice, ChoosingAPrinterThenTheDefaultSavesAnEmptyName) {
    fakes::MemorySettingsStore store;
    store.write("Configura", "ImpDispo", "Laser do escritório");
    PrinterChoice choice = openPrinterChoice("Laser do escritório", kPrinters);
    choosePrinter(choice, "Matricial cheques", kPrinters);
    setUseDefault(choice, true);
    EXPECT_EQ(choice.chosen, "");
    EXPECT_EQ(choice.port, "");
    ASSERT_EQ(confirmPrinterChoice(choice, store), ConfirmOutcome::Saved);
    EXPECT_EQ(store.values.at({"Configura", "ImpDispo"}), "");
}

TEST(PrinterChoice, ConfirmingNeitherAPrinterNorTheDefaultSavesNothing) {
    fakes::MemorySettingsStore store;
    PrinterChoice choice = openPrinterChoice("", {});
    setUseDefault(choice, false);
    EXPECT_EQ(confirmPrinterChoice(choice, store), ConfirmOutcome::NothingChosen);
    EXPECT_TRUE(store.values.empty());
    setUseDefault(choice, true);
    EXPECT_EQ(confirmPrinterChoice(choice, store), ConfirmOutcome::Saved);
}

TEST(PrinterChoice, ConfirmingAPrinterSavesItsName) {
    fakes::MemorySettingsStore store;
    PrinterChoice choice = openPrinterChoice("", kPrinters);
    choosePrinter(choice, "Matricial cheques", kPrinters);
    ASSERT_EQ(confirmPrinterChoice(choice, store), ConfirmOutcome::Saved);
    EXPECT_EQ(store.values.at({"Configura", "ImpDispo"}), "Matricial cheques");
    store.failing = true;
    EXPECT_EQ(confirmPrinterChoice(choice, store), ConfirmOutcome::StoreFailed);
}

}  // namespace
}  // namespace zv::documents
