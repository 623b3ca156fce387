#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "cli/command.h"
#include "core/common/date.h"
#include "core/documents/document_fill.h"

namespace zv::cli {

// What the cheque and note commands read alike. Each returns the usage error or rejection, or
// nothing once `target` holds the value.

// Exactly one of --fields and --pdf FILE.
std::optional<Outcome> readOutputChoice(const Invocation& call, std::string_view command);
// --amount, required, within the documents' range (text 900 otherwise).
std::optional<Outcome> readDocumentAmount(const Invocation& call, std::string_view command, double& target);
// --model 1-9, model 0-8 in the store; 0 when not given.
std::optional<Outcome> readModel(const Invocation& call, int& target);
// A date option DD/MM/YYYY.
std::optional<Outcome> readDateOption(const Invocation& call, std::string_view option, common::Date& target);

// One line per field: control, left, top and text, tab-separated.
void printFields(const Invocation& call, const std::vector<documents::FilledField>& fields);

// The pages into the PDF file `path` through the program's painter, titled with text `titleCode`.
// Nothing on success; refused (exit 1) in a build that cannot paint, and text 369 with the path
// when the file could not be written.
Outcome writePdf(const Invocation& call, const std::string& path, const std::vector<PdfPage>& pages,
                 int titleCode);

}  // namespace zv::cli
