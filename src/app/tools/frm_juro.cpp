#include "app/tools/frm_juro.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QTimer>
#include <QVBoxLayout>
#include <variant>

#include "app/common/dialogs.h"
#include "app/tools/frm_plano.h"
#include "core/common/money.h"
#include "core/common/number_format.h"
#include "core/common/text_table.h"
#include "core/tools/interest_tape.h"
#include "core/tools/step_search.h"

namespace zv::app {

namespace {

namespace it = tools::interest_text;

constexpr int kTitle = 140;          // " Calcular Juro Capitalizado"
constexpr int kMotto = 137;          // "Tenha empatia e amor ao próximo.|Se for emprestar, não explore!"
constexpr int kCapitalFrame = 138;   // "Capitalização|(clique no botão e informe os dados)"
constexpr int kFixedFrame = 139;     // "Parcelas Fixas"
constexpr int kInitial = 141;        // "&Valor Inicial $"
constexpr int kInstalment = 142;     // "&Prestação Fixa $"
constexpr int kCount = 143;          // "&Qtd. Parcelas x"
constexpr int kFirstWith = 144;      // "1ª Parcela com"
constexpr int kDaysOr = 145;         // "DIAS ou"
constexpr int kRate = 146;           // "&Juro %"
constexpr int kTotalInterest = 147;  // "Juro Total $"
constexpr int kFinal = 148;          // "Valor Final $"
constexpr int kPerMonth = 149;       // "a.m."
constexpr int kCalculate = 151;      // "&Calcular"
constexpr int kDiscount = 152;       // "&Descontar Cheque"
constexpr int kSavings = 153;        // "P&oupança"

}  // namespace

// The search under way: what is being found, and where its trials are shown.
struct FrmJuro::Running {
    tools::LoanRequest request;
    tools::StepSearch search;
    QLineEdit* shownIn;
};

FrmJuro::FrmJuro(const AppContext& app, QWidget* parent) : ToolWindow(app, "frmJuro", kTitle, parent) {
    auto* column = new QVBoxLayout(this);
    auto* motto = new QLabel(this);
    motto->setObjectName(QStringLiteral("lblLema"));
    motto->setAlignment(Qt::AlignCenter);
    captions().add(motto, kMotto);
    column->addWidget(motto);

    auto* fixed = new QGroupBox(this);
    fixed->setObjectName(QStringLiteral("fraParcelas"));
    captions().add(fixed, kFixedFrame);
    auto* grid = new QGridLayout(fixed);
    const auto addRow = [&](int row, int code, QWidget* field) {
        auto* label = new QLabel(fixed);
        captions().add(label, code);
        label->setBuddy(field);
        grid->addWidget(label, row, 0);
        grid->addWidget(field, row, 1);
    };
    txtValVista = addMoneyField("txtValVista");
    addRow(0, kInitial, txtValVista);
    txtValPrest = addMoneyField("txtValPrest");
    addRow(1, kInstalment, txtValPrest);

    // The count holds two digits: 1 to 99 instalments.
    txtParcelas = new QLineEdit(this);
    txtParcelas->setObjectName(QStringLiteral("txtParcelas"));
    txtParcelas->setMaxLength(2);
    txtParcelas->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\d{0,2}")), this));
    txtParcelas->setAlignment(Qt::AlignRight);
    addRow(2, kCount, txtParcelas);

    // "1ª Parcela com [30] DIAS ou [ ] à vista"
    auto* firstLabel = new QLabel(fixed);
    captions().add(firstLabel, kFirstWith);
    txtDias = new QLineEdit(QStringLiteral("30"), this);
    txtDias->setObjectName(QStringLiteral("txtDias"));
    txtDias->setMaxLength(3);
    txtDias->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\d{0,3}")), this));
    txtDias->setAlignment(Qt::AlignRight);
    firstLabel->setBuddy(txtDias);
    auto* daysOr = new QLabel(fixed);
    captions().add(daysOr, kDaysOr);
    chkVista = new QCheckBox(fixed);
    chkVista->setObjectName(QStringLiteral("chkVista"));
    captions().add(chkVista, it::kDownPayment);
    connect(chkVista, &QCheckBox::clicked, this, &FrmJuro::chkVista_Click);
    auto* firstRow = new QHBoxLayout;
    firstRow->addWidget(txtDias);
    firstRow->addWidget(daysOr);
    firstRow->addWidget(chkVista);
    firstRow->addStretch();
    grid->addWidget(firstLabel, 3, 0);
    grid->addLayout(firstRow, 3, 1);

    txtJuroAp = new QLineEdit(this);
    txtJuroAp->setObjectName(QStringLiteral("txtJuroAp"));
    txtJuroAp->setAlignment(Qt::AlignRight);
    auto* rateRow = new QHBoxLayout;
    rateRow->addWidget(txtJuroAp);
    auto* perMonth = new QLabel(fixed);
    captions().add(perMonth, kPerMonth);
    rateRow->addWidget(perMonth);
    auto* rateLabel = new QLabel(fixed);
    captions().add(rateLabel, kRate);
    rateLabel->setBuddy(txtJuroAp);
    grid->addWidget(rateLabel, 4, 0);
    grid->addLayout(rateRow, 4, 1);

    lblJuroTotal = new QLabel(fixed);
    lblJuroTotal->setObjectName(QStringLiteral("lblJuroTotal"));
    lblJuroTotal->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblJuroTotal->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* totalLabel = new QLabel(fixed);
    captions().add(totalLabel, kTotalInterest);
    grid->addWidget(totalLabel, 5, 0);
    grid->addWidget(lblJuroTotal, 5, 1);

    txtValFinal = new QLineEdit(this);
    txtValFinal->setObjectName(QStringLiteral("txtValFinal"));
    txtValFinal->setReadOnly(true);
    txtValFinal->setFocusPolicy(Qt::ClickFocus);
    txtValFinal->setAlignment(Qt::AlignRight);
    addRow(6, kFinal, txtValFinal);

    auto* buttons = new QHBoxLayout;
    cmdCalcular = new QPushButton(fixed);
    cmdCalcular->setObjectName(QStringLiteral("cmdCalcular"));
    captions().add(cmdCalcular, kCalculate);
    connect(cmdCalcular, &QPushButton::clicked, this, &FrmJuro::cmdCalcular_Click);
    cmdPlano = new QPushButton(fixed);
    cmdPlano->setObjectName(QStringLiteral("cmdPlano"));
    captions().add(cmdPlano, common::txt::kScheduleButton);
    cmdPlano->setEnabled(false);
    connect(cmdPlano, &QPushButton::clicked, this, &FrmJuro::cmdPlano_Click);
    auto* help = new QPushButton(QStringLiteral("?"), fixed);
    help->setObjectName(QStringLiteral("cmdAjuda"));
    help->setFixedWidth(help->sizeHint().height() * 3 / 2);
    connect(help, &QPushButton::clicked, this, &FrmJuro::cmdAjuda_Click);
    for (QPushButton* button : {cmdCalcular, cmdPlano, help}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    grid->addLayout(buttons, 7, 0, 1, 2);
    column->addWidget(fixed);

    auto* capital = new QGroupBox(this);
    capital->setObjectName(QStringLiteral("fraCapital"));
    auto* capitalColumn = new QVBoxLayout(capital);
    auto* capitalCaption = new QLabel(capital);
    captions().add(capitalCaption, kCapitalFrame);
    capitalColumn->addWidget(capitalCaption);
    auto* capitalButtons = new QHBoxLayout;
    const auto addCapitalButton = [&](const char* name, int code, void (FrmJuro::*click)()) {
        auto* button = new QPushButton(capital);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(false);
        captions().add(button, code);
        connect(button, &QPushButton::clicked, this, click);
        capitalButtons->addWidget(button);
    };
    addCapitalButton("cmdDescontar", kDiscount, &FrmJuro::cmdDescontar_Click);
    addCapitalButton("cmdCapitalizar", kSavings, &FrmJuro::cmdCapitalizar_Click);
    capitalColumn->addLayout(capitalButtons);
    column->addWidget(capital);

    m_trials = new QTimer(this);
    m_trials->setInterval(kTrialIntervalMs);
    connect(m_trials, &QTimer::timeout, this, &FrmJuro::nextTrial);

    // Enter in a field moves to the next one; in the rate it calculates.
    for (QLineEdit* field : {txtValVista, txtValPrest, txtParcelas, txtDias, txtJuroAp}) {
        field->installEventFilter(this);
    }
    txtValVista->setFocus();
}

FrmJuro::~FrmJuro() = default;

QLineEdit* FrmJuro::addMoneyField(const char* name) {
    auto* field = new QLineEdit(this);
    field->setObjectName(QLatin1String(name));
    field->setAlignment(Qt::AlignRight);
    field->setMaxLength(22);
    // Shown as money once the user leaves it, when it reads as an amount; left as typed otherwise,
    // for the check to name.
    connect(field, &QLineEdit::editingFinished, this, [this, field] {
        const auto value = common::parseNumber(field->text().toStdString(), app().regional.separators);
        if (value && !searching()) {
            field->setText(money(*value));
        }
    });
    return field;
}

QString FrmJuro::money(double value) const {
    return QString::fromStdString(common::FormatMoney(value, app().regional.separators));
}

QString FrmJuro::rateText(double ratePercent) const {
    return QString::fromStdString(
        common::formatNumber(ratePercent, "#,##0.000000", app().regional.separators));
}

bool FrmJuro::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        // What is typed into a field reached by Enter, Tab or a click replaces what it held.
        auto* edit = static_cast<QLineEdit*>(watched);
        QTimer::singleShot(0, edit, [edit] { edit->selectAll(); });
    }
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            // The fields in their order, past the days while the first instalment is paid at once.
            if (watched == txtJuroAp) {
                cmdCalcular_Click();
            } else if (watched == txtValVista) {
                txtValPrest->setFocus(Qt::TabFocusReason);
            } else if (watched == txtValPrest) {
                txtParcelas->setFocus(Qt::TabFocusReason);
            } else if (watched == txtParcelas && txtDias->isEnabled()) {
                txtDias->setFocus(Qt::TabFocusReason);
            } else {
                txtJuroAp->setFocus(Qt::TabFocusReason);
            }
            return true;
        }
    }
    return ToolWindow::eventFilter(watched, event);
}

void FrmJuro::hideEvent(QHideEvent* event) {
    // Closing the window gives up a search under way; the form stays as it was typed.
    stopSearch();
    ToolWindow::hideEvent(event);
}

void FrmJuro::chkVista_Click() {
    if (chkVista->isChecked()) {
        // Paid on the day: no days until the first instalment.
        if (txtDias->text() != QLatin1String("0")) {
            m_daysBeforeVista = txtDias->text();
        }
        txtDias->setText(QStringLiteral("0"));
    } else if (txtDias->text() == QLatin1String("0")) {
        txtDias->setText(m_daysBeforeVista.isEmpty() ? QStringLiteral("30") : m_daysBeforeVista);
    }
    txtDias->setEnabled(!chkVista->isChecked());
}

bool FrmJuro::searching() const {
    return m_running != nullptr;
}

void FrmJuro::setFormEditable(bool editable) {
    for (QLineEdit* field : {txtValVista, txtValPrest, txtParcelas, txtDias, txtJuroAp}) {
        field->setReadOnly(!editable);
    }
    chkVista->setEnabled(editable);
    cmdCalcular->setEnabled(editable);
}

void FrmJuro::refuse(tools::LoanError error) {
    app().dialogs->message(this, Dialogs::Icon::Warning, text(tools::textCode(error)));
    QLineEdit* field = nullptr;
    switch (error) {
        case tools::LoanError::NoInitial:
            field = txtValVista;
            break;
        case tools::LoanError::NoCount:
            field = txtParcelas;
            break;
        case tools::LoanError::NoDays:
            field = txtDias;
            break;
        case tools::LoanError::NothingToFind:
        case tools::LoanError::InstalmentTooLarge:
        case tools::LoanError::CalculationFailed:
            field = txtValPrest;
            break;
        case tools::LoanError::NoRate:
            field = txtJuroAp;
            break;
    }
    field->setFocus();
    field->selectAll();
}

void FrmJuro::cmdCalcular_Click() {
    if (searching()) {
        return;
    }
    const tools::LoanForm form{txtValVista->text().toStdString(), txtValPrest->text().toStdString(),
                               txtParcelas->text().toStdString(), txtDias->text().toStdString(),
                               txtJuroAp->text().toStdString(),   chkVista->isChecked()};
    const auto checked = tools::validateLoan(form, app().regional.separators);
    if (const auto* error = std::get_if<tools::LoanError>(&checked)) {
        refuse(*error);
        return;
    }
    const tools::LoanRequest& request = std::get<tools::LoanRequest>(checked);
    // The instalment given: its rate is found; otherwise the instalment for the rate.
    tools::StepSearch search = request.instalment ? tools::rateSearch(request.terms, *request.instalment)
                                                  : tools::instalmentSearch(request.terms, request.rate);
    m_running.reset(new Running{request, std::move(search), request.instalment ? txtJuroAp : txtValPrest});
    lblJuroTotal->clear();
    txtValFinal->clear();
    cmdPlano->setEnabled(false);
    setFormEditable(false);
    m_trials->start();
}

void FrmJuro::nextTrial() {
    if (!m_running) {
        m_trials->stop();
        return;
    }
    tools::StepSearch& search = m_running->search;
    const bool more = search.step();
    const double value = search.value();
    m_running->shownIn->setText(m_running->request.instalment ? rateText(value) : money(value));
    if (!more) {
        finishSearch();
    }
}

void FrmJuro::stopSearch() {
    m_trials->stop();
    if (m_running) {
        m_running.reset();
        setFormEditable(true);
    }
}

void FrmJuro::finishSearch() {
    const std::unique_ptr<Running> done = std::move(m_running);
    m_trials->stop();
    setFormEditable(true);
    if (done->search.failed()) {
        refuse(tools::LoanError::CalculationFailed);
        return;
    }
    const tools::LoanTerms& terms = done->request.terms;
    const double instalment = done->request.instalment ? *done->request.instalment : done->search.value();
    const double rate = done->request.instalment ? done->search.value() : done->request.rate;
    const tools::LoanResult result = tools::loanResult(terms, instalment, rate);
    showResult(result);
    m_lastTerms = terms;
    m_lastResult = result;
    cmdPlano->setEnabled(true);
    if (app().appendToTape) {
        app().appendToTape(tools::loanBlock(terms, result, captions().language(), app().regional.separators));
    }
    // A schedule already open follows the new result.
    if (m_plano) {
        m_plano->close();
        cmdPlano_Click();
    }
}

void FrmJuro::showResult(const tools::LoanResult& result) {
    txtJuroAp->setText(rateText(result.rate));
    txtValPrest->setText(money(result.instalment));
    lblJuroTotal->setText(money(result.totalInterest));
    txtValFinal->setText(money(result.finalAmount));
}

void FrmJuro::cmdPlano_Click() {
    if (!m_lastTerms || !m_lastResult) {
        return;
    }
    common::Date today{};
    if (app().clock != nullptr) {
        if (const auto day = common::dateOf(app().clock->now())) {
            today = *day;
        }
    }
    if (m_plano) {
        m_plano->close();
    }
    m_plano = new FrmPlano(app(), *m_lastTerms, *m_lastResult, today, this);
    m_plano->show();
    m_plano->raise();
    m_plano->activateWindow();
}

void FrmJuro::cmdAjuda_Click() {
    app().dialogs->message(this, Dialogs::Icon::Information, text(it::kHelp));
}

std::optional<tools::Capitalisation> FrmJuro::askCapitalisation(int titleCode, int amountPrompt,
                                                                long long maxDays) {
    const QString title = text(titleCode);
    const common::NumberSeparators& seps = app().regional.separators;
    QString today;
    if (app().clock != nullptr) {
        if (const auto day = common::dateOf(app().clock->now())) {
            today = QString::fromStdString(common::formatDate(*day));
        }
    }
    const auto refused = [this] {
        app().dialogs->message(this, Dialogs::Icon::Critical, text(it::kInvalidAnswer));
        return std::nullopt;
    };
    // Each answer is checked as it is given, with the answers still to come standing in as the
    // smallest valid ones, so the user is not asked on after a wrong answer.
    tools::CapitalisationForm form{"", "", std::nullopt, "1"};
    const std::optional<QString> amount = app().dialogs->ask(this, title, text(amountPrompt), money(0));
    if (!amount) {
        return std::nullopt;
    }
    form.amount = amount->toStdString();
    form.rate = "1";
    if (!tools::readCapitalisation(form, maxDays, seps)) {
        return refused();
    }
    const std::optional<QString> rate = app().dialogs->ask(this, title, text(it::kRatePrompt), QString());
    if (!rate) {
        return std::nullopt;
    }
    form.rate = rate->toStdString();
    if (!tools::readCapitalisation(form, maxDays, seps)) {
        return refused();
    }
    const std::optional<QString> start = app().dialogs->ask(this, title, text(it::kStartDatePrompt), today);
    if (!start) {
        return std::nullopt;
    }
    form.startDate = start->toStdString();
    if (!tools::readCapitalisation(form, maxDays, seps)) {
        return refused();
    }
    const std::optional<QString> end =
        app().dialogs->ask(this, title, text(it::kEndPrompt, QString::number(maxDays)), QString());
    if (!end) {
        return std::nullopt;
    }
    form.endDateOrDays = end->toStdString();
    const std::optional<tools::Capitalisation> answers = tools::readCapitalisation(form, maxDays, seps);
    if (!answers) {
        return refused();
    }
    return answers;
}

void FrmJuro::cmdCapitalizar_Click() {
    const std::optional<tools::Capitalisation> c =
        askCapitalisation(it::kSavingsTitle, it::kAmountPrompt, tools::kSavingsMaxDays);
    if (!c) {
        return;
    }
    const common::Language language = captions().language();
    const common::NumberSeparators& seps = app().regional.separators;
    const double final = tools::capitalize(c->amount, c->rate, c->days);
    app().dialogs->message(this, Dialogs::Icon::Information,
                           text(it::kSavingsResult, money(final),
                                QString::fromStdString(tools::capitalisationDetail(*c, language, seps))));
    if (app().appendToTape) {
        app().appendToTape(tools::capitalisationBlock(c->amount, c->rate, c->days, final, language, seps));
    }
}

void FrmJuro::cmdDescontar_Click() {
    const std::optional<tools::Capitalisation> c =
        askCapitalisation(it::kDiscountTitle, it::kChequePrompt, tools::kChequeMaxDays);
    if (!c) {
        return;
    }
    const std::optional<double> net = tools::discountCheque(c->amount, c->rate, c->days);
    if (!net) {
        app().dialogs->message(this, Dialogs::Icon::Critical,
                               text(textCode(tools::LoanError::CalculationFailed)));
        return;
    }
    const common::Language language = captions().language();
    const common::NumberSeparators& seps = app().regional.separators;
    app().dialogs->message(this, Dialogs::Icon::Information,
                           text(it::kDiscountResult, money(*net),
                                QString::fromStdString(tools::capitalisationDetail(*c, language, seps))));
    if (app().appendToTape) {
        // The net value is what the cheque is worth today; the cheque is what it grows to.
        app().appendToTape(tools::capitalisationBlock(*net, c->rate, c->days, c->amount, language, seps));
    }
}

}  // namespace zv::app
