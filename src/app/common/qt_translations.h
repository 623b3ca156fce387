#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <memory>

#include "app/common/ui_language.h"

class QTranslator;

namespace zv::app {

// Qt's own texts (the standard buttons, the file, print and preview dialogs, the edit menus) in
// the interface's language, switched with it. The translations are looked for beside the program
// first (an installed copy carries its own), then where Qt keeps them on this system.
class QtTranslations final : public QObject {
    Q_OBJECT
public:
    explicit QtTranslations(const UiLanguage& language, QObject* parent = nullptr);
    ~QtTranslations() override;

    // Whether Qt's texts are in the current language (English needs none).
    bool loaded() const { return m_loaded; }
    // The folders searched, in order.
    static QStringList folders();

private:
    void load(common::Language language);

    std::unique_ptr<QTranslator> m_translator;
    bool m_loaded = false;
};

}  // namespace zv::app
