#pragma once

#include <QAction>
#include <QTemporaryDir>
#include <QTest>
#include <QtGlobal>

#include "app/common/app_context.h"
#include "app/common/ui_language.h"
#include "core/common/text_table.h"
#include "fakes/fake_clock.h"
#include "fakes/memory_settings_store.h"
#include "fakes/scripted_dialogs.h"

namespace zv::fakes {

// Everything a window is given, of the test's own: settings in memory, a fixed clock, scripted
// dialogs, an empty data folder, the interface in Portuguese.
struct WindowServices {
    MemorySettingsStore store;
    FakeClock clock;
    ScriptedDialogs dialogs;
    app::UiLanguage language{common::Language::Portuguese};
    QTemporaryDir data;

    app::AppContext context() {
        app::AppContext app;
        app.store = &store;
        app.clock = &clock;
        app.dialogs = &dialogs;
        app.language = &language;
        app.dataFolder = data.path().toStdString();
        return app;
    }
};

template <typename T>
T* child(const QObject& parent, const char* name) {
    T* found = parent.findChild<T*>(QString::fromUtf8(name));
    if (found == nullptr) {
        qFatal("no child %s", name);
    }
    return found;
}

inline QString text(common::Language language, int code, const char* arg1 = "", const char* arg2 = "") {
    return QString::fromStdString(common::GetText(language, code, arg1, arg2));
}

inline QString pt(int code, const char* arg1 = "", const char* arg2 = "") {
    return text(common::Language::Portuguese, code, arg1, arg2);
}

// Opens a tool window from the calculator's menu as the user does and waits until it is the
// active window; nullptr when none opened.
template <class Tool>
Tool* openTool(QWidget& calculator, const char* action) {
    child<QAction>(calculator, action)->trigger();
    Tool* tool = calculator.findChild<Tool*>();
    if (tool != nullptr) {
        tool->activateWindow();
        if (!QTest::qWaitForWindowActive(tool)) {
            return nullptr;
        }
    }
    return tool;
}

}  // namespace zv::fakes
