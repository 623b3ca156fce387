#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/common/settings_store.h"
#include "core/documents/document_layout.h"

namespace zv::documents {

// A window's size in the store's units, the default of "Height" and "Width".
struct WindowSize {
    int width = 0;
    int height = 0;
};

// The windows' sizes at design, for a backup taken before a window was ever opened.
inline constexpr WindowSize kChequeWindowDesign{760, 400};
inline constexpr int kNoteWindowDesignHeight = 440;

// The registry path every section of the backup lives under.
inline constexpr std::string_view kRegistryRoot =
    "HKEY_CURRENT_USER\\Software\\VB and VBA Program Settings\\Quorvati\\";

// The cheque window's backup: "REGEDIT4", then for "Cheque" and "Cheque1".."Cheque8" a blank
// line, the section's registry path in brackets and its keys in a fixed order ("Height",
// "Width", "Banco", the positions, "chkAno"), each "key"="value", lines ending CR LF. A value
// missing from the store is its default; "lblDiaL" is always written as its design 444, as the
// cheque program has always written it. Quotes and backslashes in values are escaped and control
// characters become spaces, so no value can end its line or add a key.
// UTF-8 text; the file itself is written in Windows-1252, as the registry editor reads it.
std::string chequeBackupText(const common::SettingsStore& store, WindowSize chequeWindow);

// Both documents' layouts: the cheque backup followed by "Promissoria".."Promissoria8" with
// "Height", "Modelo" and the positions in their key order.
std::string layoutsBackupText(const common::SettingsStore& store, WindowSize chequeWindow,
                              int noteWindowHeight);

// One value of a backup file.
struct BackupValue {
    std::string section;  // "Cheque", "Promissoria3"...
    std::string key;
    std::string value;
};

enum class BackupProblem {
    NotABackup,      // the first line is not "REGEDIT4"
    ForeignSection,  // a section that is not one of the eighteen document sections
    BadLine,         // a line that is not "key"="text", a section, a comment or blank
    NoSection,       // a value before any section
};

struct BackupError {
    BackupProblem problem;
    int line = 0;  // 1-based
    std::string text;
};

// Reads a backup file's text (UTF-8). Only string values in the document sections are taken:
// a deletion, a number or binary value, the default value or any other section refuses the whole
// file, so a restore either takes all of it or nothing.
std::variant<std::vector<BackupValue>, BackupError> parseBackup(std::string_view text);

// Writes the values into the store; false when one could not be written.
bool restoreBackup(common::SettingsStore& store, const std::vector<BackupValue>& values);

}  // namespace zv::documents
