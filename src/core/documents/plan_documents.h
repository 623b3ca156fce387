#pragma once

#include <vector>

#include "core/common/date.h"
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

}  // namespace zv::documents
