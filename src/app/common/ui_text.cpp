#include "app/common/ui_text.h"

#include "core/common/text_table.h"

namespace zv::app {

QString uiText(common::Language language, int code, const QString& arg1, const QString& arg2) {
    return QString::fromStdString(common::GetText(language, code, arg1.toStdString(), arg2.toStdString()));
}

QString plainCaption(const QString& caption) {
    return QString(caption).remove(QLatin1Char('&')).trimmed();
}

}  // namespace zv::app
