#include "app/common/dialogs.h"

#include "app/common/open_document.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QUrl>

namespace zv::app {

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

bool DesktopDialogs::question(QWidget* parent, const QString& text) {
    return QMessageBox::question(parent, QStringLiteral(" Zavrello"), text) == QMessageBox::Yes;
}

std::optional<QString> DesktopDialogs::ask(QWidget* parent, const QString& title, const QString& prompt,
                                           const QString& initial) {
    bool ok = false;
    const QString answer = QInputDialog::getText(parent, title, prompt, QLineEdit::Normal, initial, &ok);
    return ok ? std::optional<QString>(answer) : std::nullopt;
}

QString DesktopDialogs::saveFileName(QWidget* parent, const QString& filter, const QString& initialPath) {
    QFileDialog dialog(parent, QString(), initialPath, filter);
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
    bool printed = true;
    QPrintPreviewDialog preview(&printer, parent);
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&](QPrinter* target) { printed = paint(*target) && printed; });
    return preview.exec() == QDialog::Accepted && printed;
}

bool DesktopDialogs::openUrl(const QString& url) {
    return OpenDocument(url) > 32;
}

}  // namespace zv::app
