#include "app/common/app_icon.h"

#include "platform/desktop_identity.h"

namespace zv::app {

QString applicationId() {
    return latin1(platform::kApplicationId);
}

QList<int> applicationIconSizes() {
    return {16, 24, 32, 48, 64, 128, 256};
}

QString applicationIconFile(int size) {
    return QStringLiteral(":/icons/%1x%1/apps/%2.png").arg(size).arg(applicationId());
}

QIcon applicationIcon() {
    QIcon icon;
    for (const int size : applicationIconSizes()) {
        if (size <= 64) {
            icon.addFile(applicationIconFile(size), QSize(size, size));
        }
    }
    return icon;
}

}  // namespace zv::app
