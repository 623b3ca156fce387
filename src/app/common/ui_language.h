#pragma once

#include <QObject>

#include "core/common/regional.h"

namespace zv::app {

// The language the interface speaks now. Every window reads it and hears of its changes; the
// calculator's language menu is what changes it.
class UiLanguage final : public QObject {
    Q_OBJECT
public:
    explicit UiLanguage(common::Language language, QObject* parent = nullptr)
        : QObject(parent), m_language(language) {}

    common::Language current() const { return m_language; }
    // Tells every listener, and only when the language really changes.
    void set(common::Language language) {
        if (language != m_language) {
            m_language = language;
            emit changed(language);
        }
    }

signals:
    void changed(common::Language language);

private:
    common::Language m_language;
};

}  // namespace zv::app
