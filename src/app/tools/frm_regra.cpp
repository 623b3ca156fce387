#include "app/tools/frm_regra.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <variant>
#include <vector>

#include "app/common/dialogs.h"
#include "core/common/number_format.h"
#include "core/common/text_table.h"

namespace zv::app {

namespace txt = common::txt;

namespace {

constexpr int kPictureWidth = 26;
constexpr int kPictureHeight = 18;

// One upright or downward arrow in the column centred on `x`.
void drawArrow(QPainter& painter, qreal x, bool up) {
    const qreal top = 2;
    const qreal bottom = kPictureHeight - 2;
    const qreal tip = up ? top : bottom;
    const qreal tail = up ? bottom : top;
    const qreal head = up ? 5 : -5;
    painter.drawLine(QPointF(x, tail), QPointF(x, tip + head / 2));
    QPainterPath arrowHead;
    arrowHead.moveTo(x, tip);
    arrowHead.lineTo(x - 4, tip + head);
    arrowHead.lineTo(x + 4, tip + head);
    arrowHead.closeSubpath();
    painter.fillPath(arrowHead, painter.pen().color());
}

// Direct: both arrows up (the known quantity and the unknown rise together). Inverse: one up and
// one down. None: an empty picture of the same size, so the grid keeps its shape.
QPixmap picture(bool drawn, bool direct) {
    QPixmap shown(kPictureWidth, kPictureHeight);
    shown.fill(Qt::transparent);
    if (!drawn) {
        return shown;
    }
    QPainter painter(&shown);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(direct ? QColor(0, 110, 0) : QColor(170, 0, 0), 2));
    drawArrow(painter, kPictureWidth / 4.0, true);
    drawArrow(painter, kPictureWidth * 3 / 4.0, direct);
    return shown;
}

QLineEdit* numberField(QWidget* parent, const QString& name) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(name);
    field->setAlignment(Qt::AlignRight);
    field->setMaximumWidth(110);
    return field;
}

}  // namespace

FrmRegra::FrmRegra(const AppContext& app, QWidget* parent)
    : ToolWindow(app, "frmRegra", txt::kRuleTitle, parent) {
    auto* column = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    column->addLayout(grid);
    // Columns: mark, base value, description, picture, new value, new description.
    auto* baseHeading = new QLabel(this);
    captions().add(baseHeading, txt::kRuleBaseHeading);
    auto* newHeading = new QLabel(this);
    captions().add(newHeading, txt::kRuleNewHeading);
    auto* valueHeading = new QLabel(this);
    captions().add(valueHeading, txt::kRuleValueHeading);
    auto* descriptionHeading = new QLabel(this);
    captions().add(descriptionHeading, txt::kRuleDescriptionHeading);
    grid->addWidget(baseHeading, 0, 1, 1, 2, Qt::AlignHCenter);
    grid->addWidget(newHeading, 0, 4, 1, 2, Qt::AlignHCenter);
    grid->addWidget(valueHeading, 1, 1);
    grid->addWidget(descriptionHeading, 1, 2);

    m_unknown = new QButtonGroup(this);
    for (std::size_t i = 0; i < tools::kRuleRows; ++i) {
        const int row = static_cast<int>(i);
        optInc[i] = new QRadioButton(this);
        optInc[i]->setObjectName(QStringLiteral("optInc%1").arg(row));
        m_unknown->addButton(optInc[i], row);
        txtValor[i] = numberField(this, QStringLiteral("txtValor%1").arg(row));
        txtCond[i] = new QLineEdit(this);
        txtCond[i]->setObjectName(QStringLiteral("txtCond%1").arg(row));
        txtCond[i]->setMinimumWidth(150);
        imgVal[i] = new QLabel(this);
        imgVal[i]->setObjectName(QStringLiteral("imgVal%1").arg(row));
        imgVal[i]->setFixedSize(kPictureWidth, kPictureHeight);
        txtValor2[i] = numberField(this, QStringLiteral("txtValor2%1").arg(row));
        // The new situation speaks of the same quantity: its description follows the base one.
        txtCond2[i] = new QLabel(this);
        txtCond2[i]->setObjectName(QStringLiteral("txtCond2%1").arg(row));
        txtCond2[i]->setMinimumWidth(170);
        connect(txtCond[i], &QLineEdit::textChanged, txtCond2[i], &QLabel::setText);
        grid->addWidget(optInc[i], 2 + row, 0);
        grid->addWidget(txtValor[i], 2 + row, 1);
        grid->addWidget(txtCond[i], 2 + row, 2);
        grid->addWidget(imgVal[i], 2 + row, 3);
        grid->addWidget(txtValor2[i], 2 + row, 4);
        grid->addWidget(txtCond2[i], 2 + row, 5);
        setPicture(i, Picture::None);
    }
    valueHeading->setBuddy(txtValor[0]);
    descriptionHeading->setBuddy(txtCond[0]);

    auto* buttons = new QHBoxLayout;
    column->addLayout(buttons);
    const auto addButton = [&](const char* name, int code) {
        auto* button = new QPushButton(this);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(false);
        captions().add(button, code);
        buttons->addWidget(button);
        return button;
    };
    cmdCalcular = addButton("cmdCalcular", txt::kRuleCalculate);
    cmdExemplo = addButton("cmdExemplo", txt::kRuleExample);
    cmdExemplo2 = addButton("cmdExemplo2", txt::kRuleExample);
    cmdImprimir = addButton("cmdImprimir", txt::kPrintButton);
    cmdExemplo2->setEnabled(false);  // until the first example has set the base data up
    connect(cmdCalcular, &QPushButton::clicked, this, &FrmRegra::cmdCalcular_Click);
    connect(cmdExemplo, &QPushButton::clicked, this, &FrmRegra::cmdExemplo_Click);
    connect(cmdExemplo2, &QPushButton::clicked, this, &FrmRegra::cmdExemplo2_Click);
    connect(cmdImprimir, &QPushButton::clicked, this, &FrmRegra::cmdImprimir_Click);
}

void FrmRegra::setPicture(std::size_t row, Picture shown) {
    imgVal[row]->setPixmap(picture(shown != Picture::None, shown == Picture::Direct));
}

void FrmRegra::markUnknown(std::optional<std::size_t> row) {
    // An exclusive group will not let its last checked button go by itself.
    m_unknown->setExclusive(false);
    for (QRadioButton* option : optInc) {
        option->setChecked(false);
    }
    m_unknown->setExclusive(true);
    if (row) {
        optInc[*row]->setChecked(true);
    }
}

void FrmRegra::say(int code) {
    app().dialogs->message(this, Dialogs::Icon::Information, text(code));
}

void FrmRegra::cmdCalcular_Click() {
    std::array<tools::RuleRow, tools::kRuleRows> rows;
    for (std::size_t i = 0; i < tools::kRuleRows; ++i) {
        rows[i] = {txtValor[i]->text().toStdString(), txtValor2[i]->text().toStdString()};
    }
    const int marked = m_unknown->checkedId();
    const std::variant<tools::RuleSetup, tools::RuleError> checked = tools::checkRule(
        rows, marked < 0 ? std::nullopt : std::optional<std::size_t>(static_cast<std::size_t>(marked)),
        app().regional.separators);
    if (const auto* error = std::get_if<tools::RuleError>(&checked)) {
        app().dialogs->message(this, Dialogs::Icon::Warning, text(tools::messageCode(*error)));
        return;
    }
    const tools::RuleSetup& setup = std::get<tools::RuleSetup>(checked);
    for (std::size_t i = 0; i < tools::kRuleRows; ++i) {
        setPicture(i, Picture::None);
    }
    std::vector<tools::Proportion> answers;
    for (const tools::KnownRow& known : setup.known) {
        const Dialogs::Answer answer = app().dialogs->question(
            this, text(txt::kRuleQuestion, txtCond[known.row]->text(), txtCond[setup.unknown]->text()),
            Dialogs::Buttons::YesNoCancel);
        if (answer == Dialogs::Answer::Cancel) {
            // No proportion stands on part of the answers: nothing is shown for it.
            for (std::size_t i = 0; i < tools::kRuleRows; ++i) {
                setPicture(i, Picture::None);
            }
            return;
        }
        const bool direct = answer == Dialogs::Answer::Yes;
        answers.push_back(direct ? tools::Proportion::Direct : tools::Proportion::Inverse);
        setPicture(known.row, direct ? Picture::Direct : Picture::Inverse);
    }
    const std::optional<double> result = tools::solveRule(setup, answers);
    if (!result) {
        app().dialogs->message(this, Dialogs::Icon::Warning,
                               text(tools::messageCode(tools::RuleError::InvalidData)));
        return;
    }
    txtValor2[setup.unknown]->setText(QString::fromStdString(
        common::formatNumber(*result, common::pattern::kLongDecimals, app().regional.separators)));
}

void FrmRegra::cmdExemplo_Click() {
    for (std::size_t i = 0; i < tools::kRuleRows; ++i) {
        txtValor[i]->clear();
        txtCond[i]->clear();
        txtValor2[i]->clear();
        setPicture(i, Picture::None);
    }
    markUnknown(std::nullopt);
    cmdExemplo2->setEnabled(false);
    // "If 8 carpenters working five days for 6 hours a day build 12 closets...": each box fills
    // its row's base value and description as it is shown.
    const char* const bases[] = {"8", "5", "6", "12"};
    for (int row = 0; row < 4; ++row) {
        txtValor[row]->setText(QLatin1String(bases[row]));
        txtCond[row]->setText(text(txt::kRuleFirstExample + 9 + row));
        say(txt::kRuleFirstExample + row);
    }
    // The box only puts the example's question; the guide goes on however it is closed.
    app().dialogs->question(this, text(txt::kRuleFirstExample + 4), Dialogs::Buttons::YesNo);
    const char* const newValues[] = {"5", "10", "8"};
    for (int row = 0; row < 3; ++row) {
        txtValor2[row]->setText(QLatin1String(newValues[row]));
        if (row == 2) {
            markUnknown(3);
            cmdCalcular->setFocus();
        }
        say(txt::kRuleFirstExample + 5 + row);
    }
    say(txt::kRuleFirstExample + 8);
    cmdExemplo2->setEnabled(true);
}

void FrmRegra::cmdExemplo2_Click() {
    // The base data stay; the new situation starts afresh.
    for (std::size_t i = 0; i < tools::kRuleRows; ++i) {
        txtValor2[i]->clear();
        setPicture(i, Picture::None);
    }
    markUnknown(std::nullopt);
    app().dialogs->question(this, text(txt::kRuleSecondExample), Dialogs::Buttons::YesNo);
    const std::pair<int, const char*> filled[] = {{0, "3"}, {1, "12"}, {3, "18"}};
    for (int step = 0; step < 3; ++step) {
        txtValor2[filled[step].first]->setText(QLatin1String(filled[step].second));
        say(txt::kRuleSecondExample + 1 + step);
    }
    markUnknown(2);
    cmdCalcular->setFocus();
    say(txt::kRuleSecondExample + 4);
}

void FrmRegra::cmdImprimir_Click() {
    const QPixmap shown = grab();
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(windowTitle().trimmed());
    const bool printed = app().dialogs->print(this, printer, [&shown](QPrinter& target) {
        QPainter painter;
        if (!painter.begin(&target)) {
            return false;
        }
        // As large as the page allows, in the window's own proportions.
        const QSize size = shown.size().scaled(painter.viewport().size(), Qt::KeepAspectRatio);
        painter.drawPixmap(QRect(QPoint(0, 0), size), shown);
        return painter.end();
    });
    if (printed) {
        say(txt::kSentToPrinter);
    }
}

}  // namespace zv::app
