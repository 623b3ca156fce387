#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "app/common/tool_window.h"
#include "core/common/date.h"
#include "core/documents/document_layout.h"
#include "core/tools/interest.h"

class QLabel;
class QPainter;
class QPrinter;
class QTableWidget;

class QChart;
class QChartView;

namespace zv::app {

// The payment schedule of a fixed-instalment result: one row per instalment with its due date,
// the split of each instalment into interest and principal, a chart of that split, and the
// table to copy (tab-separated, for a spreadsheet), print with a preview or save as PDF.
class FrmPlano final : public ToolWindow {
    Q_OBJECT
public:
    // `loanDay` is the day the loan is made: the due dates count from it.
    FrmPlano(const AppContext& app, const tools::LoanTerms& terms, const tools::LoanResult& result,
             const common::Date& loanDay, QWidget* parent);

    const std::vector<tools::ScheduleRow>& rows() const { return m_rows; }

    // The table with its heading row, tab-separated, CR LF, amounts in the user's format.
    QString tableText() const;
    void cmdCopiar_Click();
    void cmdImprimir_Click();
    void cmdPdf_Click();
    void cmdFechar_Click();
    // The plan's promissory notes (numbered on from the next note number) or post-dated cheques,
    // one per instalment, filled as the document windows last left them: one preview, one job.
    void cmdPromissorias_Click();
    void cmdCheques_Click();

private:
    void fill();
    QStringList rowCells(const tools::ScheduleRow& row) const;
    QStringList headings() const;
    QString summary() const;
    // Draws every page of the schedule on `printer`; false when it cannot be painted on.
    bool paint(QPrinter& printer);
    void printPlanDocuments(documents::DocumentKind kind);

    tools::LoanTerms m_terms;
    tools::LoanResult m_result;
    common::Date m_loanDay;
    std::vector<tools::ScheduleRow> m_rows;
    QLabel* m_summary = nullptr;
    QTableWidget* m_table = nullptr;
    QLabel* m_roundingNote = nullptr;
    QChart* m_chart = nullptr;
    QChartView* m_chartView = nullptr;
};

}  // namespace zv::app
