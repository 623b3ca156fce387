#include "app/tools/frm_data.h"

#include <QCalendarWidget>
#include <QDate>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QWidgetAction>
#include <variant>

#include "app/common/dialogs.h"
#include "core/common/date.h"
#include "core/common/settings_keys.h"
#include "core/common/settings_reader.h"
#include "core/common/text_table.h"
#include "core/tools/date_calculator.h"

namespace zv::app {

namespace {

constexpr int kTitle = 136;                            // " Calcular Data"
constexpr int kCalculate = 209;                        // "&Calcular Data Final"
constexpr int kDateCaptions[] = {129, 130};            // "Data &Inicial", "Data &Final"
constexpr int kSpanCaptions[] = {131, 132, 133, 134};  // anos, meses, semanas, dias
constexpr int kLeapDays = 135;                         // "Bissextos"
const char* const kSpanNames[] = {"txtAnos", "txtMeses", "txtSemanas", "txtDias"};

QString fromStd(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace

FrmData::FrmData(const AppContext& app, QWidget* parent) : ToolWindow(app, "frmData", kTitle, parent) {
    auto* grid = new QGridLayout(this);
    for (int i = 0; i < 2; ++i) {
        auto* label = new QLabel(this);
        captions().add(label, kDateCaptions[i]);
        txtData[i] = new QLineEdit(this);
        txtData[i]->setObjectName(QStringLiteral("txtData%1").arg(i));
        txtData[i]->setInputMask(QStringLiteral("99/99/9999;_"));
        label->setBuddy(txtData[i]);
        auto* calendar = new QToolButton(this);
        calendar->setObjectName(QStringLiteral("cmdCalendario%1").arg(i));
        calendar->setText(QStringLiteral("\u25BE"));
        calendar->setFocusPolicy(Qt::NoFocus);
        connect(calendar, &QToolButton::clicked, this, [this, i] { pickDate(i); });
        m_weekdays[i] = new QLabel(this);
        m_weekdays[i]->setObjectName(QStringLiteral("lblSemana%1").arg(i));
        connect(txtData[i], &QLineEdit::textChanged, this, [this, i] { showWeekday(i); });
        grid->addWidget(label, i, 0);
        grid->addWidget(txtData[i], i, 1);
        grid->addWidget(calendar, i, 2);
        grid->addWidget(m_weekdays[i], i, 3);
    }
    for (int i = 0; i < 4; ++i) {
        auto* label = new QLabel(this);
        captions().add(label, kSpanCaptions[i]);
        m_spanFields[i] = new QLineEdit(this);
        m_spanFields[i]->setObjectName(QLatin1String(kSpanNames[i]));
        m_spanFields[i]->setAlignment(Qt::AlignRight);
        label->setBuddy(m_spanFields[i]);
        grid->addWidget(label, 2 + i, 0);
        grid->addWidget(m_spanFields[i], 2 + i, 1);
    }
    auto* leapCaption = new QLabel(this);
    captions().add(leapCaption, kLeapDays);
    lblBissextos = new QLabel(QStringLiteral("0"), this);
    lblBissextos->setObjectName(QStringLiteral("lblBissextos"));
    grid->addWidget(leapCaption, 6, 0);
    grid->addWidget(lblBissextos, 6, 1);
    m_longDate = new QLabel(this);
    m_longDate->setObjectName(QStringLiteral("lblDataExtenso"));
    grid->addWidget(m_longDate, 7, 0, 1, 4);
    cmdCalcula = new QPushButton(this);
    cmdCalcula->setObjectName(QStringLiteral("cmdCalcula"));
    cmdCalcula->setAutoDefault(false);
    captions().add(cmdCalcula, kCalculate);
    connect(cmdCalcula, &QPushButton::clicked, this, &FrmData::cmdCalcula_Click);
    grid->addWidget(cmdCalcula, 8, 0, 1, 4);

    // Enter in a field moves to the next one; in the last it calculates.
    for (QLineEdit* field :
         {txtData[0], txtData[1], m_spanFields[0], m_spanFields[1], m_spanFields[2], m_spanFields[3]}) {
        field->installEventFilter(this);
    }
    if (app.store != nullptr && common::SettingsReader(*app.store, common::settings::kConfigura)
                                    .boolean(common::settings::kLetrona)
                                    .value_or(false)) {
        QFont large = font();
        large.setPointSizeF(large.pointSizeF() * 1.4);
        setFont(large);
    }
    // Today's date to start from.
    if (app.clock != nullptr) {
        if (const auto today = common::dateOf(app.clock->now())) {
            txtData[0]->setText(fromStd(common::formatDate(*today)));
        }
    }
    connect(&captions(), &Captions::relabelled, this, [this] {
        showWeekday(0);
        showWeekday(1);
    });
}

bool FrmData::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        // What is typed into a field reached by Enter, Tab or a click replaces what it held.
        auto* edit = static_cast<QLineEdit*>(watched);
        QTimer::singleShot(0, edit, [edit] {
            edit->setCursorPosition(0);
            edit->selectAll();
        });
    }
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            if (watched == m_spanFields[3]) {
                cmdCalcula_Click();
            } else {
                focusNextChild();
            }
            return true;
        }
    }
    return ToolWindow::eventFilter(watched, event);
}

void FrmData::showWeekday(int field) {
    const std::optional<std::string> weekday =
        tools::weekdayOf(txtData[field]->text().toStdString(), captions().language());
    m_weekdays[field]->setText(weekday ? fromStd(*weekday) : QString());
}

void FrmData::pickDate(int field) {
    QMenu popup(this);
    auto* calendar = new QCalendarWidget(&popup);
    calendar->setObjectName(QStringLiteral("calendario"));
    const QDate shown = QDate::fromString(txtData[field]->text(), QStringLiteral("dd/MM/yyyy"));
    if (shown.isValid()) {
        calendar->setSelectedDate(shown);
    }
    auto* holder = new QWidgetAction(&popup);
    holder->setDefaultWidget(calendar);
    popup.addAction(holder);
    connect(calendar, &QCalendarWidget::activated, &popup, [&](QDate date) {
        txtData[field]->setText(date.toString(QStringLiteral("dd/MM/yyyy")));
        popup.close();
    });
    connect(calendar, &QCalendarWidget::clicked, &popup, [&](QDate date) {
        txtData[field]->setText(date.toString(QStringLiteral("dd/MM/yyyy")));
        popup.close();
    });
    popup.exec(txtData[field]->mapToGlobal(QPoint(0, txtData[field]->height())));
}

void FrmData::cmdCalcula_Click() {
    const QString finalText = txtData[1]->text();
    bool spanTyped = false;
    std::array<std::string, 4> span;
    for (int i = 0; i < 4; ++i) {
        span[i] = m_spanFields[i]->text().trimmed().toStdString();
        spanTyped = spanTyped || !span[i].empty();
    }
    // A final date and no span: the span between the two dates; otherwise the final date.
    const bool breakDown = !spanTyped && finalText != QStringLiteral("//");
    const std::variant<tools::DateResult, tools::DateRefusal> outcome =
        breakDown ? tools::calculateSpan(txtData[0]->text().toStdString(), finalText.toStdString())
                  : tools::calculateFinalDate(txtData[0]->text().toStdString(),
                                              tools::SpanFields{span[0], span[1], span[2], span[3]});
    if (const auto* refusal = std::get_if<tools::DateRefusal>(&outcome)) {
        app().dialogs->message(this, Dialogs::Icon::Warning, text(tools::messageCode(refusal->problem)));
        const int field = static_cast<int>(refusal->field);
        QLineEdit* wrong = field < 2 ? txtData[field] : m_spanFields[field - 2];
        wrong->setFocus();
        wrong->selectAll();
        return;
    }
    const tools::DateResult& result = std::get<tools::DateResult>(outcome);
    const common::Language language = captions().language();
    txtData[1]->setText(fromStd(common::formatDate(result.final)));
    const long long parts[] = {result.span.years, result.span.months, result.span.weeks, result.span.days};
    for (int i = 0; i < 4; ++i) {
        m_spanFields[i]->setText(QString::number(parts[i]));
    }
    lblBissextos->setText(QString::number(result.leapDays));
    m_longDate->setText(fromStd(common::longDate(result.final, language)));
    if (app().appendToTape) {
        app().appendToTape(tools::tapeBlock(result, language));
    }
}

}  // namespace zv::app
