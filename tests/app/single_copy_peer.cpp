// The second process of the single-copy tests: "send NAME MESSAGE" hands a message to the running
// copy (exit 0, or 3 when there is none); "listen NAME" becomes the running copy until it is
// killed, leaving its channel behind as a crashed copy does.
#include <QCoreApplication>
#include <cstdio>

#include "app/tray/single_copy.h"

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() == 4 && args[1] == QLatin1String("send")) {
        return zv::app::SingleCopy::send(args[2], args[3].toUtf8()) ? 0 : 3;
    }
    zv::app::SingleCopy copy(args.value(2));
    if (args.size() != 3 || args[1] != QLatin1String("listen") || !copy.listen()) {
        return 2;
    }
    std::puts("listening");
    std::fflush(stdout);
    return app.exec();
}
