#pragma once

#include <QDialog>
#include <QPointer>
#include <QWidget>
#include <map>
#include <typeindex>
#include <typeinfo>

#include "app/common/app_context.h"
#include "app/common/captions.h"

namespace zv::app {

// The common ground of the tool windows the calculator opens: a title and captions in the
// interface's language, relabelled when it changes; Esc closes; shown whole on a screen.
// A tool builds its widgets in its constructor and registers their text codes with captions().
class ToolWindow : public QDialog {
    Q_OBJECT
public:
    ToolWindow(const AppContext& app, const char* objectName, int titleCode, QWidget* parent);

protected:
    const AppContext& app() const { return m_app; }
    Captions& captions() const { return *m_captions; }
    QString text(int code, const QString& arg1 = {}, const QString& arg2 = {}) const {
        return m_captions->text(code, arg1, arg2);
    }
    void showEvent(QShowEvent* event) override;

private:
    AppContext m_app;
    Captions* m_captions;
};

// Opens each kind of tool window once. Asked again while it exists, the window is shown and
// brought to the front as it was left; a tool that wants a fresh window each time deletes itself
// when it closes (Qt::WA_DeleteOnClose).
class ToolWindows {
public:
    // `app` is read when a window is first made, so it may be completed after this is built.
    ToolWindows(const AppContext& app, QWidget* owner) : m_app(app), m_owner(owner) {}
    // The windows go first, before whatever their context points at in the owner.
    ~ToolWindows();
    ToolWindows(const ToolWindows&) = delete;
    ToolWindows& operator=(const ToolWindows&) = delete;

    // `Window` is built as Window(const AppContext&, QWidget* parent).
    template <class Window>
    Window* open() {
        QPointer<QWidget>& slot = m_windows[std::type_index(typeid(Window))];
        if (slot.isNull()) {
            slot = new Window(m_app, m_owner);
        }
        bringUp(slot.data());
        return static_cast<Window*>(slot.data());
    }

private:
    static void bringUp(QWidget* window);

    const AppContext& m_app;
    QWidget* m_owner;
    std::map<std::type_index, QPointer<QWidget>> m_windows;
};

}  // namespace zv::app
