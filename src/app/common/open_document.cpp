#include "app/common/open_document.h"

#include <QDesktopServices>
#include <QUrl>

#ifdef _WIN32
#include <shellapi.h>
#include <windows.h>
#endif

namespace zv::app {

int OpenDocument(const QString& target) {
#ifdef _WIN32
    const HINSTANCE result = ShellExecuteW(nullptr, L"open", reinterpret_cast<LPCWSTR>(target.utf16()),
                                           nullptr, nullptr, SW_SHOWNORMAL);
    return static_cast<int>(reinterpret_cast<INT_PTR>(result));
#else
    return QDesktopServices::openUrl(QUrl::fromUserInput(target)) ? 42 : 0;
#endif
}

}  // namespace zv::app
