#include <QApplication>
#include <QLocale>
#include <memory>

#include "calc/frm_calcula.h"
#include "common/clock.h"
#include "common/dialogs.h"
#include "common/qsettings_store.h"
#include "common/startup_entry.h"
#include "copy_lock.h"
#include "data_folder.h"
#include "midi_out.h"

namespace {

// The interface language from the user's locale: Portuguese for Brazil and Portugal, Spanish for
// the Spanish locales, English otherwise.
zv::common::Language localeLanguage(const QLocale& locale) {
    switch (locale.language()) {
        case QLocale::Portuguese:
            return zv::common::Language::Portuguese;
        case QLocale::Spanish:
            return zv::common::Language::Spanish;
        default:
            return zv::common::Language::English;
    }
}

zv::common::Regional regionalFromLocale() {
    const QLocale locale;
    zv::common::Regional regional;
    regional.language = localeLanguage(locale);
    regional.separators.decimal = locale.decimalPoint().toStdString();
    regional.separators.group = locale.groupSeparator().toStdString();
    if (regional.separators.group.empty() || regional.separators.group == regional.separators.decimal) {
        regional.separators.group = regional.separators.decimal == "," ? "." : ",";
    }
    const QString pattern = locale.dateFormat(QLocale::ShortFormat);
    const qsizetype d = pattern.indexOf(QLatin1Char('d'));
    const qsizetype m = pattern.indexOf(QLatin1Char('M'));
    const qsizetype y = pattern.indexOf(QLatin1Char('y'));
    if (y >= 0 && y < m && y < d) {
        regional.dateOrder = zv::common::DateOrder::YearMonthDay;
    } else if (m >= 0 && m < d) {
        regional.dateOrder = zv::common::DateOrder::MonthDayYear;
    }
    for (const QChar c : pattern) {
        if (!c.isLetter()) {
            regional.dateSeparator = QString(c).toStdString();
            break;
        }
    }
    return regional;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zavrello"));
    QApplication::setOrganizationName(QStringLiteral("Zavrello"));
    const QStringList words = QApplication::arguments().mid(1);

    const std::filesystem::path folder = zv::platform::dataFolder();
    // Each running copy keeps a tape file of its own.
    std::optional<zv::platform::CopyLock> lock = zv::platform::CopyLock::acquire(folder);

    zv::app::QSettingsStore store;
    const zv::common::SystemClock clock;
    zv::app::DesktopDialogs dialogs;
    zv::app::CalcWindowContext context;
    context.store = &store;
    context.dataFolder = folder;
    context.tapeSuffix = lock ? lock->suffix() : std::string("x");
    context.regional = regionalFromLocale();
    context.clock = &clock;
    context.dialogs = &dialogs;
    context.makeMidi = [] { return zv::platform::makeMidiOut(); };
    context.setStartWithSystem = zv::app::setStartWithSystem;
    context.auxiliary = words.contains(QStringLiteral("outra"), Qt::CaseInsensitive);
    context.timeMode = words.contains(QStringLiteral("tempo"), Qt::CaseInsensitive);

    zv::app::FrmCalcula window(std::move(context));
    window.show();
    return app.exec();
}
