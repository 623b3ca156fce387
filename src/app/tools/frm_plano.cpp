#include "app/tools/frm_plano.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPrinter>
#include <QPushButton>
#include <QStackedBarSeries>
#include <QStandardPaths>
#include <QTableWidget>
#include <QVBoxLayout>
#include <QValueAxis>
#include <filesystem>
#include <system_error>

#include "app/calc/tape_printer.h"
#include "app/common/dialogs.h"
#include "app/common/ui_text.h"
#include "app/documents/document_painter.h"
#include "app/documents/frm_impressora.h"
#include "core/common/money.h"
#include "core/common/number_format.h"
#include "core/common/settings_keys.h"
#include "core/common/text_table.h"
#include "core/documents/amount_words.h"
#include "core/documents/document_fill.h"
#include "core/documents/note_number.h"
#include "core/documents/plan_documents.h"
#include "core/documents/printer_choice.h"

namespace zv::app {

namespace {

constexpr int kColumns = 6;
// Rows of a schedule are few (at most 99): the chart names each instalment while the names fit.
constexpr int kMostNamedBars = 24;
const QColor kInterestColour(0xC0, 0x39, 0x2B);
const QColor kPrincipalColour(0x29, 0x80, 0xB9);

}  // namespace

FrmPlano::FrmPlano(const AppContext& app, const tools::LoanTerms& terms, const tools::LoanResult& result,
                   const common::Date& loanDay, QWidget* parent)
    : ToolWindow(app, "frmPlano", common::txt::kScheduleTitle, parent),
      m_terms(terms),
      m_result(result),
      m_loanDay(loanDay),
      m_rows(tools::paymentSchedule(terms, result.instalment, result.rate)) {
    setAttribute(Qt::WA_DeleteOnClose);
    auto* column = new QVBoxLayout(this);
    m_summary = new QLabel(this);
    m_summary->setObjectName(QStringLiteral("lblResumo"));
    column->addWidget(m_summary);

    auto* body = new QHBoxLayout;
    m_table = new QTableWidget(static_cast<int>(m_rows.size()), kColumns, this);
    m_table->setObjectName(QStringLiteral("grdPlano"));
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionMode(QAbstractItemView::ContiguousSelection);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->setMinimumWidth(520);
    body->addWidget(m_table, 3);

    m_chart = new QChart;
    m_chart->legend()->setAlignment(Qt::AlignBottom);
    m_chart->setAnimationOptions(QChart::NoAnimation);
    m_chart->setMargins(QMargins(2, 2, 2, 2));
    m_chartView = new QChartView(m_chart, this);
    m_chartView->setObjectName(QStringLiteral("chtPlano"));
    m_chartView->setRenderHint(QPainter::Antialiasing);
    m_chartView->setMinimumSize(300, 260);
    body->addWidget(m_chartView, 2);
    column->addLayout(body);

    m_roundingNote = new QLabel(this);
    m_roundingNote->setObjectName(QStringLiteral("lblArredonda"));
    captions().add(m_roundingNote, common::txt::kLastAbsorbsRounding);
    m_roundingNote->setVisible(!m_rows.empty() && m_rows.back().absorbsRounding);
    column->addWidget(m_roundingNote);

    auto* buttons = new QHBoxLayout;
    const auto addButton = [&](const char* name, int code, void (FrmPlano::*click)()) {
        auto* button = new QPushButton(this);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(false);
        captions().add(button, code);
        connect(button, &QPushButton::clicked, this, click);
        buttons->addWidget(button);
    };
    addButton("cmdCopiar", common::txt::kCopy, &FrmPlano::cmdCopiar_Click);
    addButton("cmdImprimir", common::txt::kPrintButtonEllipsis, &FrmPlano::cmdImprimir_Click);
    addButton("cmdPdf", common::txt::kSavePdf, &FrmPlano::cmdPdf_Click);
    addButton("cmdPromissorias", common::txt::kPlanNotes, &FrmPlano::cmdPromissorias_Click);
    addButton("cmdCheques", common::txt::kPlanCheques, &FrmPlano::cmdCheques_Click);
    buttons->addStretch();
    addButton("cmdFechar", common::txt::kClose, &FrmPlano::cmdFechar_Click);
    column->addLayout(buttons);

    fill();
    connect(&captions(), &Captions::relabelled, this, &FrmPlano::fill);
}

QStringList FrmPlano::headings() const {
    QStringList names;
    for (int i = 0; i < kColumns; ++i) {
        names << text(common::txt::kScheduleColumns + i);
    }
    return names;
}

QStringList FrmPlano::rowCells(const tools::ScheduleRow& row) const {
    const common::NumberSeparators& seps = app().regional.separators;
    const auto money = [&](double value) { return QString::fromStdString(common::FormatMoney(value, seps)); };
    const std::optional<common::Date> due = common::addDays(m_loanDay, row.dueDays);
    QString number = QString::fromStdString(tools::instalmentNumber(row.number, m_terms.count));
    if (row.absorbsRounding) {
        number += QLatin1Char('*');
    }
    return {number,
            due ? QString::fromStdString(common::formatDate(*due)) : QString(),
            money(row.instalment),
            money(row.interest),
            money(row.principal),
            money(row.balance)};
}

QString FrmPlano::summary() const {
    const common::NumberSeparators& seps = app().regional.separators;
    const QString rate = QString::fromStdString(common::formatNumber(m_result.rate, "#,##0.000000", seps));
    return QStringLiteral("$ %1  =  %2 x $ %3   (%4 % %5)")
        .arg(QString::fromStdString(common::FormatMoney(m_terms.initial, seps)))
        .arg(m_terms.count)
        .arg(QString::fromStdString(common::FormatMoney(m_result.instalment, seps)))
        .arg(rate, plainCaption(text(149)));
}

void FrmPlano::fill() {
    m_summary->setText(summary());
    m_table->setHorizontalHeaderLabels(headings());
    for (int r = 0; r < static_cast<int>(m_rows.size()); ++r) {
        const QStringList cells = rowCells(m_rows[static_cast<std::size_t>(r)]);
        for (int c = 0; c < kColumns; ++c) {
            auto* item = new QTableWidgetItem(cells[c]);
            item->setTextAlignment(c < 2 ? Qt::AlignCenter : (Qt::AlignRight | Qt::AlignVCenter));
            m_table->setItem(r, c, item);
        }
    }
    m_table->resizeColumnsToContents();

    // The chart: each instalment as a bar of its interest under its principal.
    m_chart->removeAllSeries();
    for (QAbstractAxis* axis : m_chart->axes()) {
        m_chart->removeAxis(axis);
        delete axis;
    }
    auto* interest = new QBarSet(text(common::txt::kScheduleColumns + 3));
    auto* principal = new QBarSet(text(common::txt::kScheduleColumns + 4));
    interest->setColor(kInterestColour);
    principal->setColor(kPrincipalColour);
    QStringList names;
    for (const tools::ScheduleRow& row : m_rows) {
        *interest << row.interest;
        *principal << row.principal;
        names << QString::number(row.number);
    }
    auto* series = new QStackedBarSeries;
    series->append(interest);
    series->append(principal);
    m_chart->addSeries(series);
    auto* x = new QBarCategoryAxis;
    x->append(names);
    x->setLabelsVisible(m_rows.size() <= kMostNamedBars);
    auto* y = new QValueAxis;
    y->setLabelFormat(QStringLiteral("%.0f"));
    y->setMin(0);
    m_chart->addAxis(x, Qt::AlignBottom);
    m_chart->addAxis(y, Qt::AlignLeft);
    series->attachAxis(x);
    series->attachAxis(y);
    y->applyNiceNumbers();
}

QString FrmPlano::tableText() const {
    QString text = headings().join(QLatin1Char('\t')) + QStringLiteral("\r\n");
    for (const tools::ScheduleRow& row : m_rows) {
        QStringList cells = rowCells(row);
        cells[0].remove(QLatin1Char('*'));
        text += cells.join(QLatin1Char('\t')) + QStringLiteral("\r\n");
    }
    return text;
}

void FrmPlano::cmdFechar_Click() {
    close();
}

void FrmPlano::cmdCopiar_Click() {
    QGuiApplication::clipboard()->setText(tableText());
    app().dialogs->message(this, Dialogs::Icon::Information, text(common::txt::kConverterCopied));
}

bool FrmPlano::paint(QPrinter& printer) {
    keepClearOfPaperEdges(printer);
    QPainter painter;
    if (!painter.begin(&printer)) {
        return false;
    }
    const QRect page = painter.viewport();
    QFont font = QGuiApplication::font();
    font.setPointSizeF(10);
    painter.setFont(font);
    const QFontMetrics metrics(font, &printer);
    const int line = metrics.lineSpacing();
    // Column widths from the widest text each column holds, the first two centred, the rest to the right.
    QList<QStringList> table{headings()};
    for (const tools::ScheduleRow& row : m_rows) {
        table << rowCells(row);
    }
    QList<int> widths(kColumns, 0);
    for (const QStringList& cells : table) {
        for (int c = 0; c < kColumns; ++c) {
            widths[c] = qMax(widths[c], metrics.horizontalAdvance(cells[c]) + metrics.averageCharWidth() * 2);
        }
    }

    int y = page.top();
    const auto heading = [&] {
        QFont bold = font;
        bold.setBold(true);
        painter.setFont(bold);
        painter.drawText(QRect(page.left(), y, page.width(), line), Qt::AlignLeft, windowTitle().trimmed());
        y += line;
        painter.setFont(font);
        painter.drawText(QRect(page.left(), y, page.width(), line), Qt::AlignLeft, summary());
        y += line * 3 / 2;
    };
    heading();
    // The chart under the heading, half a page wide, on the first page only.
    const QRect chartArea(page.left(), y, page.width() / 2, page.height() / 3);
    m_chartView->render(&painter, QRectF(chartArea), m_chartView->viewport()->rect());
    y = chartArea.bottom() + line;
    for (int r = 0; r < table.size(); ++r) {
        if (y + line > page.bottom()) {
            if (!printer.newPage()) {
                return false;
            }
            y = page.top();
            heading();
        }
        int x = page.left();
        for (int c = 0; c < kColumns; ++c) {
            painter.drawText(QRect(x, y, widths[c], line),
                             (c < 2 ? Qt::AlignHCenter : Qt::AlignRight) | Qt::AlignVCenter, table[r][c]);
            x += widths[c];
        }
        y += line;
        if (r == 0) {
            painter.drawLine(page.left(), y, x, y);
        }
    }
    if (m_roundingNote->isVisibleTo(this)) {
        painter.drawText(QRect(page.left(), y + line / 2, page.width(), line), Qt::AlignLeft,
                         m_roundingNote->text());
    }
    return painter.end();
}

void FrmPlano::cmdImprimir_Click() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(windowTitle().trimmed());
    if (app().dialogs->print(this, printer, [this](QPrinter& target) { return paint(target); })) {
        app().dialogs->message(this, Dialogs::Icon::Information, text(common::txt::kSentToPrinter));
    }
}

void FrmPlano::cmdPdf_Click() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (folder.isEmpty() || !QFileInfo(folder).isDir()) {
        folder = QDir::homePath();
    }
    const QString name = plainCaption(windowTitle()).replace(QLatin1Char(' '), QLatin1Char('-'));
    const QString path = app().dialogs->saveFileName(this, QStringLiteral("PDF (*.pdf)"),
                                                     QDir(folder).filePath(name + QStringLiteral(".pdf")));
    if (path.isEmpty()) {
        return;
    }
    // Written beside the file and renamed over it once whole, so a crash never leaves half a PDF
    // under the name the user chose (nor spoils the one that was there).
    const QString partial = path + QStringLiteral(".part");
    bool written = false;
    {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(partial);
        printer.setDocName(windowTitle().trimmed());
        // QPrinter reports a file it cannot open only through the painter, and leaves no file.
        written = paint(printer) && QFileInfo::exists(partial);
    }
    std::error_code error;
    if (written) {
        std::filesystem::rename(std::filesystem::path(partial.toStdU16String()),
                                std::filesystem::path(path.toStdU16String()), error);
    }
    if (!written || error) {
        QFile::remove(partial);
        app().dialogs->message(this, Dialogs::Icon::Critical, text(common::txt::kFileNotWritten, path));
    }
}

void FrmPlano::cmdPromissorias_Click() {
    printPlanDocuments(documents::DocumentKind::Note);
}

void FrmPlano::cmdCheques_Click() {
    printPlanDocuments(documents::DocumentKind::Cheque);
}

void FrmPlano::printPlanDocuments(documents::DocumentKind kind) {
    if (app().store == nullptr) {
        return;
    }
    common::SettingsStore& store = *app().store;
    const common::NumberSeparators& seps = app().regional.separators;
    const std::optional<documents::PlanPages> plan =
        documents::fillPlanDocuments(store, kind, m_rows, m_loanDay, seps);
    if (!plan) {
        // An instalment outside what a document can carry.
        app().dialogs->message(
            this, Dialogs::Icon::Warning,
            QString::fromStdString(documents::amountRangeMessage(captions().language(), seps)));
        return;
    }
    const bool bold = documents::savedBold(store, kind);
    std::vector<PrintedDocument> pages;
    for (const std::vector<documents::FilledField>& fields : plan->pages) {
        pages.push_back({fields, bold});
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(windowTitle().trimmed());
    const std::vector<documents::PrinterInfo> installed = installedPrinters();
    if (const auto chosen = documents::documentPrinter(
            common::GetSetting(store, common::settings::kConfigura, common::settings::kImpDispo, ""),
            installed)) {
        printer.setPrinterName(QString::fromStdString(installed[*chosen].name));
    }
    bool failed = false;
    const bool printed = app().dialogs->print(this, printer, [&pages, &failed](QPrinter& target) {
        const bool painted = printDocuments(target, pages);
        failed = failed || !painted;
        return painted;
    });
    if (!printed) {
        if (failed) {
            app().dialogs->message(this, Dialogs::Icon::Critical, text(common::txt::kPrinterFailed));
        }
        return;
    }
    // The next note goes on from the last one printed.
    if (kind == documents::DocumentKind::Note) {
        documents::saveNoteNumber(store, plan->lastNumber);
    }
    app().dialogs->message(this, Dialogs::Icon::Information, text(common::txt::kSentToPrinter));
}

}  // namespace zv::app
