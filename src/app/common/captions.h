#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <vector>

#include "app/common/ui_language.h"

namespace zv::app {

// The texts of a window's widgets, menus and actions, each by its text code, set in the current
// language and set again whenever the language changes. A window registers its captions once.
class Captions final : public QObject {
    Q_OBJECT
public:
    // What of the target a text goes to.
    enum class Part {
        Caption,         // an action's or a button's text, a menu's or a window's title, a label
        ToolTip,         //
        AccessibleName,  // the caption without its "&" and outer blanks
    };

    // Lives as long as `owner` (its parent).
    Captions(const UiLanguage& language, QObject* owner);

    // Sets the text at once and again at every change of language. `arg` fills the text's first
    // argument place.
    void add(QObject* target, int code, Part part = Part::Caption, const QString& arg = {});
    // The text of `code` in the current language.
    QString text(int code, const QString& arg1 = {}, const QString& arg2 = {}) const;
    common::Language language() const { return m_language.current(); }

signals:
    // After every caption has its text in the new language.
    void relabelled();

private:
    struct Entry {
        QPointer<QObject> target;
        int code;
        Part part;
        QString arg;
    };
    void apply(const Entry& entry) const;
    void relabel();

    const UiLanguage& m_language;
    std::vector<Entry> m_entries;
};

}  // namespace zv::app
