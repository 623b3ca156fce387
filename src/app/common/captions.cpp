#include "app/common/captions.h"

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QWidget>

#include "app/common/ui_text.h"

namespace zv::app {

Captions::Captions(const UiLanguage& language, QObject* owner) : QObject(owner), m_language(language) {
    connect(&m_language, &UiLanguage::changed, this, &Captions::relabel);
}

void Captions::add(QObject* target, int code, Part part, const QString& arg) {
    m_entries.push_back(Entry{target, code, part, arg});
    apply(m_entries.back());
}

QString Captions::text(int code, const QString& arg1, const QString& arg2) const {
    return uiText(m_language.current(), code, arg1, arg2);
}

void Captions::relabel() {
    for (const Entry& entry : m_entries) {
        apply(entry);
    }
    emit relabelled();
}

void Captions::apply(const Entry& entry) const {
    QObject* target = entry.target.data();
    if (target == nullptr) {
        return;
    }
    const QString caption = text(entry.code, entry.arg);
    if (entry.part != Part::Caption) {
        if (auto* widget = qobject_cast<QWidget*>(target); widget != nullptr && entry.part == Part::ToolTip) {
            widget->setToolTip(caption);
        } else if (widget != nullptr) {
            widget->setAccessibleName(plainCaption(caption));
        }
        return;
    }
    if (auto* action = qobject_cast<QAction*>(target)) {
        action->setText(caption);
    } else if (auto* menu = qobject_cast<QMenu*>(target)) {
        menu->setTitle(caption);
    } else if (auto* button = qobject_cast<QAbstractButton*>(target)) {
        button->setText(caption);
    } else if (auto* label = qobject_cast<QLabel*>(target)) {
        label->setText(caption);
    } else if (auto* box = qobject_cast<QGroupBox*>(target)) {
        box->setTitle(caption);
    } else if (auto* widget = qobject_cast<QWidget*>(target); widget != nullptr && widget->isWindow()) {
        widget->setWindowTitle(caption);
    }
}

}  // namespace zv::app
