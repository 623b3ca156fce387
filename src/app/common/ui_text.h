#pragma once

#include <QString>

#include "core/common/regional.h"

namespace zv::app {

// The interface text of `code` in `language`, its argument places filled in.
QString uiText(common::Language language, int code, const QString& arg1 = {}, const QString& arg2 = {});

// A caption as a screen reader or a tooltip wants it: no access-key "&", no blanks around.
QString plainCaption(const QString& caption);

}  // namespace zv::app
