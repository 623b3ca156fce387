#include "app/common/qt_translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTranslator>

namespace zv::app {

namespace {

// The catalogue of Qt's own texts for a language; empty for English, which Qt speaks already.
QString catalogueOf(common::Language language) {
    switch (language) {
        case common::Language::Portuguese:
            return QStringLiteral("qtbase_pt_BR");
        case common::Language::Spanish:
            return QStringLiteral("qtbase_es");
        case common::Language::English:
            break;
    }
    return {};
}

}  // namespace

QtTranslations::QtTranslations(const UiLanguage& language, QObject* parent) : QObject(parent) {
    load(language.current());
    connect(&language, &UiLanguage::changed, this, &QtTranslations::load);
}

QtTranslations::~QtTranslations() {
    if (m_translator) {
        QCoreApplication::removeTranslator(m_translator.get());
    }
}

QStringList QtTranslations::folders() {
    return {QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("translations")),
            QLibraryInfo::path(QLibraryInfo::TranslationsPath)};
}

void QtTranslations::load(common::Language language) {
    if (m_translator) {
        QCoreApplication::removeTranslator(m_translator.get());
        m_translator.reset();
    }
    const QString catalogue = catalogueOf(language);
    m_loaded = catalogue.isEmpty();
    if (catalogue.isEmpty()) {
        return;
    }
    auto translator = std::make_unique<QTranslator>();
    for (const QString& folder : folders()) {
        if (translator->load(catalogue, folder)) {
            QCoreApplication::installTranslator(translator.get());
            m_translator = std::move(translator);
            m_loaded = true;
            return;
        }
    }
}

}  // namespace zv::app
