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

// The path of the built-in picture of `size` pixels (one of applicationIconSizes()).
QString applicationIconFile(int size);

// The program's icon, an adding machine printing on its paper tape: the pictures built into the
// program, so that it shows the same from a build folder as when installed. The window and the
// tool windows show it; the notification area's pictures start from it. It holds the sizes up to
// 64 pixels, what title bars, task bars and the notification area draw: a picture is read when the
// icon is made, and the large ones would cost a third of a megabyte for nothing (launchers and
// switchers take the large sizes from the installed icon theme).
QIcon applicationIcon();

}  // namespace zv::app
