#pragma once

#include <QPrinter>
#include <QStringList>

#include "app/common/dialogs.h"

namespace zv::fakes {

// Answers for the user and records what a window said. Printing goes to `pdfPath`.
class ScriptedDialogs final : public app::Dialogs {
public:
    void message(QWidget*, Icon, const QString& text) override { messages << text; }
    bool question(QWidget*, const QString& text) override {
        messages << text;
        return yes;
    }
    std::optional<QString> ask(QWidget*, const QString&, const QString& prompt, const QString&) override {
        prompts << prompt;
        return answers.isEmpty() ? std::nullopt : std::optional<QString>(answers.takeFirst());
    }
    QString saveFileName(QWidget*, const QString&, const QString&) override { return saveAs; }
    bool print(QWidget*, QPrinter& printer, const std::function<bool(QPrinter&)>& paint) override {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdfPath);
        return paint(printer);
    }
    bool openUrl(const QString&) override { return true; }

    QStringList messages;
    QStringList prompts;
    QStringList answers;
    bool yes = false;
    QString saveAs;
    QString pdfPath;
};

}  // namespace zv::fakes
