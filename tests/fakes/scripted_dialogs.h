#pragma once

#include <QList>
#include <QPrinter>
#include <QStringList>

#include "app/common/dialogs.h"

namespace zv::fakes {

// Answers for the user and records what a window said and asked. Printing goes to `pdfPath`.
class ScriptedDialogs final : public app::Dialogs {
public:
    using Dialogs::question;
    using Dialogs::saveFileName;
    void message(QWidget*, Icon, const QString& text) override { messages << text; }
    Answer question(QWidget*, const QString& text, Buttons, Answer byDefault) override {
        messages << text;
        defaults << byDefault;
        return replies.isEmpty() ? reply : replies.takeFirst();
    }
    std::optional<QString> ask(QWidget*, const QString&, const QString& prompt, const QString&) override {
        prompts << prompt;
        return answers.isEmpty() ? std::nullopt : std::optional<QString>(answers.takeFirst());
    }
    QString saveFileName(QWidget*, const QString& title, const QString&, const QString&) override {
        saveTitles << title;
        return saveAs;
    }
    bool print(QWidget*, QPrinter& printer, const std::function<bool(QPrinter&)>& paint) override {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdfPath);
        return paint(printer);
    }
    bool openUrl(const QString& url) override {
        opened << url;
        return desktopOpens;
    }

    QStringList messages;
    QStringList prompts;
    QStringList answers;        // to the questions asking for a line of text; none left: cancelled
    Answer reply = Answer::No;  // to every Yes / No question
    QList<Answer> replies;      // to the next questions in turn, before `reply` answers the rest
    QList<Answer> defaults;     // the default button of each question asked
    QString saveAs;
    QStringList saveTitles;  // the title of each save dialog
    QString pdfPath;
    QStringList opened;        // what the desktop was asked to open
    bool desktopOpens = true;  // whether it had a program for it
};

}  // namespace zv::fakes
