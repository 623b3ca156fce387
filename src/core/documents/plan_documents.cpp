#include "core/documents/plan_documents.h"

namespace zv::documents {

namespace {

// A schedule's days are at most 999 + 98 × 30 from the loan: always a calendar day.
common::Date dueDay(const common::Date& loanDay, const tools::ScheduleRow& row) {
    return common::addDays(loanDay, row.dueDays).value_or(loanDay);
}

}  // namespace

std::vector<NoteEntry> planNotes(const std::vector<tools::ScheduleRow>& rows, const common::Date& loanDay,
                                 const NoteEntry& first) {
    std::vector<NoteEntry> notes;
    notes.reserve(rows.size());
    long number = first.number;
    for (const tools::ScheduleRow& row : rows) {
        NoteEntry note = first;
        note.number = number++;
        note.amount = row.instalment;
        note.due = dueDay(loanDay, row);
        notes.push_back(std::move(note));
    }
    return notes;
}

std::vector<ChequeEntry> planCheques(const std::vector<tools::ScheduleRow>& rows, const common::Date& loanDay,
                                     const ChequeEntry& first) {
    std::vector<ChequeEntry> cheques;
    cheques.reserve(rows.size());
    for (const tools::ScheduleRow& row : rows) {
        ChequeEntry cheque = first;
        cheque.amount = row.instalment;
        cheque.date = dueDay(loanDay, row);
        cheques.push_back(std::move(cheque));
    }
    return cheques;
}

std::optional<PlanPages> fillPlanDocuments(const common::SettingsStore& store, DocumentKind kind,
                                           const std::vector<tools::ScheduleRow>& rows,
                                           const common::Date& loanDay,
                                           const common::NumberSeparators& seps) {
    const Layout layout = loadLayout(store, kind, 0);
    PlanPages plan;
    const auto add = [&plan](std::optional<std::vector<FilledField>> fields) {
        if (fields) {
            plan.pages.push_back(std::move(*fields));
        }
        return fields.has_value();
    };
    bool filled = true;
    if (kind == DocumentKind::Note) {
        for (const NoteEntry& note : planNotes(rows, loanDay, lastNoteEntry(store))) {
            filled = add(fillNote(layout, note, seps)) && filled;
            plan.lastNumber = note.number;
        }
    } else {
        for (const ChequeEntry& cheque : planCheques(rows, loanDay, lastChequeEntry(store))) {
            filled = add(fillCheque(layout, cheque, seps)) && filled;
        }
    }
    if (!filled || plan.pages.empty()) {
        return std::nullopt;
    }
    return plan;
}

}  // namespace zv::documents
