#include "app/documents/frm_promissoria.h"

#include <QCalendarWidget>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QShowEvent>
#include <QToolButton>
#include <QWidgetAction>
#include <chrono>

#include "app/common/dialogs.h"
#include "core/common/settings_keys.h"
#include "core/common/settings_reader.h"
#include "core/common/text_encoding.h"
#include "core/common/text_table.h"
#include "core/documents/date_words.h"
#include "core/documents/note_number.h"

namespace zv::app {

namespace txt = common::txt;
namespace keys = common::settings;

namespace {

constexpr QSize kNote(760, 320);  // about 20 x 8.5 cm
// Narrower screens cannot show the whole note (12000 twips).
constexpr int kNarrowestScreen = 800;
const QString kDatePattern = QStringLiteral("dd/MM/yyyy");

QDate qDate(const common::Date& date) {
    return QDate(static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
                 static_cast<int>(static_cast<unsigned>(date.day())));
}

common::Date coreDate(const QDate& date) {
    return common::Date{std::chrono::year(date.year()),
                        std::chrono::month(static_cast<unsigned>(date.month())),
                        std::chrono::day(static_cast<unsigned>(date.day()))};
}

}  // namespace

FrmPromissoria::FrmPromissoria(const AppContext& app, double amount, QWidget* parent)
    : FrmDocumento(app, documents::DocumentKind::Note,
                   {"frmPromissoria", txt::kNoteTitle, txt::kMoveNoteFields, txt::kNoteModelPrompt, kNote},
                   parent) {
    auto* dueLabel = new QLabel(this);
    captions().add(dueLabel, txt::kDueDatePrompt);
    txtVencimento = new QLineEdit(this);
    txtVencimento->setObjectName(QStringLiteral("txtVencimento"));
    txtVencimento->setInputMask(QStringLiteral("99/99/9999;_"));
    txtVencimento->setMaximumWidth(110);
    dueLabel->setBuddy(txtVencimento);
    auto* calendar = new QToolButton(this);
    calendar->setObjectName(QStringLiteral("cmdCalendario"));
    calendar->setText(QStringLiteral("\u25BE"));
    calendar->setFocusPolicy(Qt::NoFocus);
    auto* dueRow = new QHBoxLayout;
    dueRow->addWidget(dueLabel);
    dueRow->addWidget(txtVencimento);
    dueRow->addWidget(calendar);
    dueRow->addStretch();
    controlsGrid()->addLayout(dueRow, 2, 1);
    captions().add(field("txtAosDias"), txt::kFieldTips + 8, Captions::Part::ToolTip);
    // The due date's fields follow the date typed below the note.
    for (const char* control : {"txtDia", "txtMês", "txtAno", "txtAosDias"}) {
        field(control)->setReadOnly(true);
    }

    documents::NoteEntry entry = documents::lastNoteEntry(*app.store);
    entry.amount = amount;
    entry.due = today();
    m_number = entry.number;
    if (const auto filled = documents::fillNote(layout(), entry, app.regional.separators)) {
        setTexts(*filled);
    }
    // The parties and the place as they were typed on the last note.
    const std::pair<const char*, const std::string*> kept[] = {
        {"txtCredor", &entry.creditor}, {"txtCredor2", &entry.creditor2}, {"txtCidade", &entry.city},
        {"txtEmitente", &entry.issuer}, {"txtEmitente2", &entry.issuer2}, {"txtEndereço", &entry.address}};
    for (const auto& [control, value] : kept) {
        field(control)->setText(QString::fromStdString(*value));
    }
    txtVencimento->setText(qDate(entry.due).toString(kDatePattern));

    if (const std::optional<int> height =
            common::SettingsReader(*app.store, keys::kPromissoria).whole(keys::kHeight, 1, kLargestWindow)) {
        resize(width(), *height);
    }
    connect(txtVencimento, &QLineEdit::textChanged, this, &FrmPromissoria::txtVencimento_Change);
    connect(calendar, &QToolButton::clicked, this, &FrmPromissoria::pickDueDate);
}

void FrmPromissoria::showDueDate(const common::Date& due) {
    const documents::DateFields date = documents::dateFields(due, true);
    field("txtDia")->setText(QString::fromStdString(date.day));
    field("txtMês")->setText(QString::fromStdString(date.month));
    field("txtAno")->setText(QString::fromStdString(date.year));
    field("txtAosDias")->setText(QString::fromStdString(documents::dueDateWords(due)));
    field("txtAosDias")->setCursorPosition(0);
}

void FrmPromissoria::txtVencimento_Change(const QString& typed) {
    const QDate due = QDate::fromString(typed, kDatePattern);
    // Half a date leaves the note as it was until the date is whole.
    if (due.isValid()) {
        showDueDate(coreDate(due));
    }
}

void FrmPromissoria::pickDueDate() {
    QMenu popup(this);
    auto* calendar = new QCalendarWidget(&popup);
    calendar->setObjectName(QStringLiteral("calendario"));
    const QDate shown = QDate::fromString(txtVencimento->text(), kDatePattern);
    if (shown.isValid()) {
        calendar->setSelectedDate(shown);
    }
    auto* holder = new QWidgetAction(&popup);
    holder->setDefaultWidget(calendar);
    popup.addAction(holder);
    const auto take = [&](QDate date) {
        txtVencimento->setText(date.toString(kDatePattern));
        popup.close();
    };
    connect(calendar, &QCalendarWidget::activated, &popup, take);
    connect(calendar, &QCalendarWidget::clicked, &popup, take);
    popup.exec(txtVencimento->mapToGlobal(QPoint(0, txtVencimento->height())));
}

void FrmPromissoria::prepareToPrint() {
    for (const char* control :
         {"txtCredor", "txtCredor2", "txtCidade", "txtEmitente", "txtEmitente2", "txtEndereço"}) {
        QLineEdit* box = field(control);
        box->setText(QString::fromStdString(common::utf8ToUpper(box->text().trimmed().toStdString())));
    }
}

bool FrmPromissoria::keepPrinted() {
    documents::NoteEntry entry;
    bool whole = false;
    const long number = field("txtNumero")->text().trimmed().toLong(&whole);
    // A number typed over keeps counting from there; anything else keeps the proposed one.
    entry.number = whole && number >= 0 ? number : m_number;
    entry.promise = field("txtPagarei")->text().toStdString();
    entry.creditor = field("txtCredor")->text().toStdString();
    entry.creditor2 = field("txtCredor2")->text().toStdString();
    entry.city = field("txtCidade")->text().toStdString();
    entry.issuer = field("txtEmitente")->text().toStdString();
    entry.issuer2 = field("txtEmitente2")->text().toStdString();
    entry.address = field("txtEndereço")->text().toStdString();
    if (!documents::saveNoteEntry(*app().store, entry, bold())) {
        app().dialogs->message(this, Dialogs::Icon::Critical, text(txt::kSettingsNotWritten));
        return false;
    }
    return true;
}

void FrmPromissoria::keepSize() {
    common::SaveSetting(*app().store, keys::kPromissoria, keys::kHeight, std::to_string(height()));
}

void FrmPromissoria::showEvent(QShowEvent* event) {
    FrmDocumento::showEvent(event);
    if (!m_warned && screen() != nullptr && screen()->geometry().width() < kNarrowestScreen) {
        m_warned = true;
        app().dialogs->message(this, Dialogs::Icon::Information, text(txt::kScreenTooSmall));
    }
}

}  // namespace zv::app
