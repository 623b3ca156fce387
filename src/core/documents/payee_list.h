#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zv::documents {

// "favorecidos.txt" in the data folder: one payee a line, upper case, in the order they were
// first printed. Written UTF-8 with CR LF; a file from the older Windows program (Windows-1252)
// is read as such and grows in its own code page.
inline constexpr std::string_view kPayeeFileName = "favorecidos.txt";

std::filesystem::path payeeFile(const std::filesystem::path& dataFolder);

// The payees listed, blank lines left out; none when the file is missing or unreadable.
std::vector<std::string> readPayees(const std::filesystem::path& file);

enum class PayeeOutcome { Added, AlreadyListed, Blank, WriteFailed };

// Upper-cases the payee (blanks around dropped) and appends it unless a line already equals it
// exactly; the file is created when missing.
PayeeOutcome addPayee(const std::filesystem::path& file, std::string_view payee);

// Takes out every line equal to the payee; false when it was not listed or the file could not
// be written (then it is left as it was).
bool removePayee(const std::filesystem::path& file, std::string_view payee);

}  // namespace zv::documents
