#pragma once

#include <optional>
#include <vector>

#include "core/common/date.h"
#include "core/common/regional.h"
#include "core/common/settings_store.h"
#include "core/documents/document_fill.h"
#include "core/tools/interest.h"

namespace zv::documents {

// The documents that go with an instalment plan, one per instalment of its schedule, each due on
// its instalment's day (the loan's day plus the instalment's days) for its instalment's amount.

// Promissory notes numbered on from `first.number`; parties, place and promise as `first` has
// them.
std::vector<NoteEntry> planNotes(const std::vector<tools::ScheduleRow>& rows, const common::Date& loanDay,
                                 const NoteEntry& first);

// Post-dated cheques, each dated on its due day; payee and city as `first` has them.
std::vector<ChequeEntry> planCheques(const std::vector<tools::ScheduleRow>& rows, const common::Date& loanDay,
                                     const ChequeEntry& first);

// The plan's notes or cheques as printed: filled in on the first model's layout with the last
// entries the document windows kept, the notes numbered on from the next note number. Nullopt
// when an instalment is outside what a document can carry.
struct PlanPages {
    std::vector<std::vector<FilledField>> pages;
    long lastNumber = 0;  // the last note's number, to be kept once they are printed; 0 for cheques
};
std::optional<PlanPages> fillPlanDocuments(const common::SettingsStore& store, DocumentKind kind,
                                           const std::vector<tools::ScheduleRow>& rows,
                                           const common::Date& loanDay, const common::NumberSeparators& seps);

}  // namespace zv::documents
