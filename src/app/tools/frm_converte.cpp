#include "app/tools/frm_converte.h"

#include <QClipboard>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

#include "app/common/dialogs.h"
#include "core/common/text_table.h"
#include "core/convert/converter.h"

namespace zv::app {

namespace txt = common::txt;

FrmConverte::FrmConverte(const AppContext& app, QWidget* parent)
    : ToolWindow(app, "frmConverte", txt::kConverterTitle, parent) {
    auto* column = new QVBoxLayout(this);
    auto* valueLabel = new QLabel(this);
    captions().add(valueLabel, txt::kConverterValue);
    txtValor1 = new QLineEdit(this);
    txtValor1->setObjectName(QStringLiteral("txtValor1"));
    txtValor1->setAlignment(Qt::AlignRight);
    valueLabel->setBuddy(txtValor1);
    auto* sourceLabel = new QLabel(this);
    captions().add(sourceLabel, txt::kConverterSource);
    auto* hint = new QLabel(this);
    captions().add(hint, txt::kConverterHint);
    lstTipo = new QListWidget(this);
    lstTipo->setObjectName(QStringLiteral("lstTipo"));
    for (const std::string_view name : convert::sourceNames()) {
        lstTipo->addItem(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    }
    sourceLabel->setBuddy(lstTipo);
    auto* results = new QGroupBox(this);
    captions().add(results, txt::kConverterResult);
    auto* grid = new QGridLayout(results);
    for (int i = 0; i < 4; ++i) {
        lblResult[i] = new QLabel(results);
        lblResult[i]->setObjectName(QStringLiteral("lblResult%1").arg(i));
        txtResult[i] = new QLineEdit(results);
        txtResult[i]->setObjectName(QStringLiteral("txtResult%1").arg(i));
        txtResult[i]->setReadOnly(true);
        txtResult[i]->setAlignment(Qt::AlignRight);
        lblResult[i]->setBuddy(txtResult[i]);
        txtResult[i]->installEventFilter(this);
        grid->addWidget(lblResult[i], i, 0);
        grid->addWidget(txtResult[i], i, 1);
    }
    auto* enterHint = new QLabel(this);
    enterHint->setWordWrap(true);
    captions().add(enterHint, txt::kConverterEnterHint);
    column->addWidget(valueLabel);
    column->addWidget(txtValor1);
    column->addWidget(sourceLabel);
    column->addWidget(hint);
    column->addWidget(lstTipo, 1);
    column->addWidget(results);
    column->addWidget(enterHint);
    txtValor1->installEventFilter(this);
    lstTipo->installEventFilter(this);
    connect(txtValor1, &QLineEdit::textChanged, this, &FrmConverte::Converte);
    connect(lstTipo, &QListWidget::currentRowChanged, this, &FrmConverte::Converte);
    resize(360, 560);
}

void FrmConverte::Converte() {
    const int row = lstTipo->currentRow();
    const convert::ResultSlots shown =
        convert::convert(row < 0 ? std::nullopt : std::optional<std::size_t>(static_cast<std::size_t>(row)),
                         txtValor1->text().toStdString(), app().regional.separators);
    for (std::size_t i = 0; i < convert::kSlotCount; ++i) {
        lblResult[i]->setText(QString::fromStdString(shown.captions[i]));
        txtResult[i]->setText(QString::fromStdString(shown.values[i]));
    }
}

void FrmConverte::copyResult(int slot) {
    const int row = lstTipo->currentRow();
    if (row < 0) {
        return;
    }
    const std::optional<std::string> copied = convert::copiedText(
        txtValor1->text().toStdString(), static_cast<std::size_t>(row), txtResult[slot]->text().toStdString(),
        lblResult[slot]->text().toStdString(), app().regional.separators);
    if (!copied) {
        return;
    }
    const QString text = QString::fromStdString(*copied);
    QGuiApplication::clipboard()->setText(text);
    app().dialogs->message(this, Dialogs::Icon::Information,
                           text + QStringLiteral("\n\n") + this->text(txt::kConverterCopied));
}

bool FrmConverte::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            for (int i = 0; i < 4; ++i) {
                if (watched == txtResult[i]) {
                    copyResult(i);
                    return true;
                }
            }
            focusNextChild();
            return true;
        }
        if (watched == txtValor1 && !key->text().isEmpty() && key->key() != Qt::Key_Backspace &&
            !convert::acceptsKey(txtValor1->text().toStdString(), key->text().toStdString(),
                                 app().regional.separators)) {
            return true;  // neither a digit nor the one decimal separator
        }
    }
    if (event->type() == QEvent::FocusOut && watched == txtValor1) {
        const QString shown = QString::fromStdString(
            convert::reformatValue(txtValor1->text().toStdString(), app().regional.separators));
        if (shown != txtValor1->text()) {
            txtValor1->setText(shown);
        }
    }
    return ToolWindow::eventFilter(watched, event);
}

}  // namespace zv::app
