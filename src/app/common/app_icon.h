#pragma once

#include <QIcon>
#include <QList>
#include <QString>
#include <string_view>

namespace zv::app {

// An ASCII name of platform/desktop_identity.h as a QString.
inline QString latin1(std::string_view name) {
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

// The name of the desktop entry, the icon and the AppStream component.
QString applicationId();

// The sizes, in pixels, the application icon is drawn for (the icon theme gets the same set).
QList<int> applicationIconSizes();

// The program's icon, an adding machine printing on its paper tape: the pictures built into the
// program, so that it shows the same from a build folder as when installed. The window and the
// tool windows show it; the notification area's pictures start from it.
QIcon applicationIcon();

}  // namespace zv::app
