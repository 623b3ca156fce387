#include "app/common/qsettings_store.h"

#include <QStandardPaths>
#include <QStringList>

namespace zv::app {

namespace {

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

QString sectionKey(std::string_view section, std::string_view key) {
    return fromUtf8(section) + QLatin1Char('/') + fromUtf8(key);
}

std::unique_ptr<QSettings> userSettings() {
#ifdef Q_OS_WIN
    auto settings = std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                                QStringLiteral("VB and VBA Program Settings"),
                                                fromUtf8(common::kSettingsApp));
#else
    // GenericConfigLocation is $XDG_CONFIG_HOME, or ~/.config when it is not set.
    const QString file = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                         QStringLiteral("/Zavrello/") + fromUtf8(common::kSettingsApp) +
                         QStringLiteral(".ini");
    auto settings = std::make_unique<QSettings>(file, QSettings::IniFormat);
#endif
    // Only our own key counts: no organisation-wide or machine-wide values behind it.
    settings->setFallbacksEnabled(false);
    return settings;
}

std::unique_ptr<QSettings> reopened(const QSettings& settings) {
    auto fresh = settings.format() == QSettings::NativeFormat
                     ? std::make_unique<QSettings>(settings.format(), settings.scope(),
                                                   settings.organizationName(), settings.applicationName())
                     : std::make_unique<QSettings>(settings.fileName(), settings.format());
    fresh->setFallbacksEnabled(settings.fallbacksEnabled());
    return fresh;
}

}  // namespace

QSettingsStore::QSettingsStore() : m_settings(userSettings()) {}

QSettingsStore::QSettingsStore(const QString& iniFile)
    : m_settings(std::make_unique<QSettings>(iniFile, QSettings::IniFormat)) {}

std::optional<std::string> QSettingsStore::read(std::string_view section, std::string_view key) const {
    const QVariant value = m_settings->value(sectionKey(section, key));
    if (!value.isValid()) {
        return std::nullopt;
    }
    // A value edited by hand in the file with an unquoted comma reads back as a list.
    if (value.metaType().id() == QMetaType::QStringList) {
        return value.toStringList().join(QLatin1Char(',')).toStdString();
    }
    return value.toString().toStdString();
}

bool QSettingsStore::write(std::string_view section, std::string_view key, std::string_view value) {
    // QSettings keeps the first error it meets for the object's life, so the store is opened
    // afresh after any error for each write to report its own outcome.
    if (m_settings->status() != QSettings::NoError) {
        m_settings = reopened(*m_settings);
    }
    m_settings->setValue(sectionKey(section, key), fromUtf8(value));
    m_settings->sync();
    const QSettings::Status status = m_settings->status();
    if (status == QSettings::NoError) {
        return true;
    }
    // AccessError: the value did not reach the store, and reopening drops it. FormatError comes
    // from reading a file edited by hand: the write went through and left a clean file.
    m_settings = reopened(*m_settings);
    return status != QSettings::AccessError;
}

QString QSettingsStore::location() const {
    return m_settings->fileName();
}

}  // namespace zv::app
