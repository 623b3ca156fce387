#include "app/common/dialogs.h"

#include "app/common/open_document.h"
#include "app/common/print_preview.h"
#include "app/common/ui_language.h"
#include "core/common/text_table.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QUrl>

namespace zv::app {
namespace {

// The widest a prompt box grows, in pixels; its text wraps within it.
constexpr int kWidestPrompt = 480;

QString buttonWord(common::Language language, Dialogs::Answer answer) {
    constexpr int kCodes[] = {common::txt::kButtonYes, common::txt::kButtonNo, common::txt::kButtonCancel};
    return QString::fromStdString(common::GetText(language, kCodes[static_cast<int>(answer)]));
}

}  // namespace

void DesktopDialogs::message(QWidget* parent, Icon icon, const QString& text) {
    const QString title = QStringLiteral(" Zavrello");
    switch (icon) {
        case Icon::Information:
            QMessageBox::information(parent, title, text);
            break;
        case Icon::Warning:
            QMessageBox::warning(parent, title, text);
            break;
        case Icon::Critical:
            QMessageBox::critical(parent, title, text);
            break;
    }
}

Dialogs::Answer DesktopDialogs::question(QWidget* parent, const QString& text, Buttons buttons,
                                         Answer byDefault) {
    QMessageBox box(QMessageBox::Question, QStringLiteral(" Zavrello"), text, QMessageBox::NoButton, parent);
    const std::pair<QMessageBox::StandardButton, Answer> offered[] = {{QMessageBox::Yes, Answer::Yes},
                                                                      {QMessageBox::No, Answer::No},
                                                                      {QMessageBox::Cancel, Answer::Cancel}};
    for (const auto& [button, answer] : offered) {
        if (answer != Answer::Cancel || buttons == Buttons::YesNoCancel) {
            QPushButton* added = box.addButton(button);
            added->setText(buttonWord(m_language.current(), answer));
            if (answer == byDefault) {
                box.setDefaultButton(added);
            }
        }
    }
    switch (box.exec()) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        default:
            return buttons == Buttons::YesNoCancel ? Answer::Cancel : Answer::No;
    }
}

std::optional<QString> DesktopDialogs::ask(QWidget* parent, const QString& title, const QString& prompt,
                                           const QString& initial) {
    QInputDialog dialog(parent);
    dialog.setWindowTitle(title);
    dialog.setLabelText(prompt);
    dialog.setTextValue(initial);
    dialog.setOkButtonText(QStringLiteral("OK"));  // the same word in the three languages
    dialog.setCancelButtonText(buttonWord(m_language.current(), Answer::Cancel));
    // A long prompt (a warning before the question) wraps instead of widening the box.
    for (QLabel* label : dialog.findChildren<QLabel*>()) {
        label->setWordWrap(true);
    }
    dialog.setMaximumWidth(kWidestPrompt);
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return dialog.textValue();
}

QString DesktopDialogs::saveFileName(QWidget* parent, const QString& title, const QString& filter,
                                     const QString& initialPath) {
    QFileDialog dialog(parent, title, initialPath, filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("txt"));
    return dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()
               ? dialog.selectedFiles().first()
               : QString();
}

bool DesktopDialogs::print(QWidget* parent, QPrinter& printer, const std::function<bool(QPrinter&)>& paint) {
    QPrintDialog dialog(&printer, parent);
    if (dialog.exec() != QDialog::Accepted) {
        return false;
    }
    PrintPreview preview(printer, paint, m_language.current(), parent);
    return preview.exec() == QDialog::Accepted && preview.printed();
}

bool DesktopDialogs::openUrl(const QString& url) {
    return OpenDocument(url) > 32;
}

}  // namespace zv::app
