#pragma once

#include <QString>
#include <functional>
#include <optional>

class QPrinter;
class QWidget;

namespace zv::app {

// Everything a window asks the user or the desktop for goes through here, so that tests can
// answer in place of the user and nothing modal ever blocks them.
class Dialogs {
public:
    enum class Icon { Information, Warning, Critical };
    enum class Buttons { YesNo, YesNoCancel };
    enum class Answer { Yes, No, Cancel };  // closing the box is Cancel, or No without Cancel
    virtual ~Dialogs() = default;

    virtual void message(QWidget* parent, Icon icon, const QString& text) = 0;
    // `byDefault` is the button Enter presses (Yes unless told).
    virtual Answer question(QWidget* parent, const QString& text, Buttons buttons, Answer byDefault) = 0;
    Answer question(QWidget* parent, const QString& text, Buttons buttons) {
        return question(parent, text, buttons, Answer::Yes);
    }
    // One line of text; nullopt when cancelled.
    virtual std::optional<QString> ask(QWidget* parent, const QString& title, const QString& prompt,
                                       const QString& initial) = 0;
    // A file to save to; empty when cancelled. Without a title the system's own stands.
    virtual QString saveFileName(QWidget* parent, const QString& title, const QString& filter,
                                 const QString& initialPath) = 0;
    QString saveFileName(QWidget* parent, const QString& filter, const QString& initialPath) {
        return saveFileName(parent, QString(), filter, initialPath);
    }
    // The print dialog, then a preview from which the user prints; `paint` draws the pages on
    // the printer it is given. False when the user gave up or printing failed.
    virtual bool print(QWidget* parent, QPrinter& printer, const std::function<bool(QPrinter&)>& paint) = 0;
    // A file, web page or mail link opened by the desktop; false when that failed.
    virtual bool openUrl(const QString& url) = 0;
};

class UiLanguage;

// The real thing: message boxes, the system's dialogs, the desktop's handlers. Buttons speak the
// interface's language.
class DesktopDialogs final : public Dialogs {
public:
    explicit DesktopDialogs(const UiLanguage& language) : m_language(language) {}

    using Dialogs::question;
    using Dialogs::saveFileName;
    void message(QWidget* parent, Icon icon, const QString& text) override;
    Answer question(QWidget* parent, const QString& text, Buttons buttons, Answer byDefault) override;
    std::optional<QString> ask(QWidget* parent, const QString& title, const QString& prompt,
                               const QString& initial) override;
    QString saveFileName(QWidget* parent, const QString& title, const QString& filter,
                         const QString& initialPath) override;
    bool print(QWidget* parent, QPrinter& printer, const std::function<bool(QPrinter&)>& paint) override;
    bool openUrl(const QString& url) override;

private:
    const UiLanguage& m_language;
};

}  // namespace zv::app
