// Key press to tape line on screen, in the real window with a long tape: each key is delivered
// as the keyboard delivers it, then the window handles the events it caused (the tape file
// written, the view updated and painted) before the clock stops.
// Usage: zavrello_window_latency [TAPE_LINES] [KEYS]   (run under a real X server: Xvfb)
#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <vector>

#include "app/calc/frm_calcula.h"
#include "app/calc/tape_view.h"
#include "app/common/dialogs.h"
#include "app/common/qsettings_store.h"
#include "app/common/ui_language.h"
#include "core/common/clock.h"
#include "platform/midi_out.h"

namespace {

double percentile(std::vector<double> values, double p) {
    std::sort(values.begin(), values.end());
    const std::size_t at =
        std::min(values.size() - 1, static_cast<std::size_t>(p * static_cast<double>(values.size())));
    return values[at];
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const int tapeLines = argc > 1 ? std::atoi(argv[1]) : 200000;
    const int pairs = argc > 2 ? std::atoi(argv[2]) : 2000;

    QTemporaryDir dir;
    {
        std::ofstream tape(dir.filePath(QStringLiteral("calc.fita")).toStdString(), std::ios::binary);
        for (int i = 0; i < tapeLines; ++i) {
            tape << "                1.234,56 +\r\n";
        }
    }
    zv::app::QSettingsStore store(dir.filePath(QStringLiteral("Quorvati.ini")));
    const zv::common::SystemClock clock;
    zv::app::UiLanguage language(zv::common::Language::Portuguese);
    zv::app::DesktopDialogs dialogs(language);
    zv::app::AppContext shared;
    shared.store = &store;
    shared.dataFolder = dir.path().toStdString();
    shared.clock = &clock;
    shared.dialogs = &dialogs;
    shared.language = &language;
    zv::app::CalcWindowContext context;
    context.makeMidi = [] { return zv::platform::makeMidiOut(); };

    QElapsedTimer load;
    load.start();
    zv::app::FrmCalcula window(shared, context);
    window.show();
    if (!QTest::qWaitForWindowExposed(&window)) {
        std::fprintf(stderr, "the window did not show\n");
        return 1;
    }
    QApplication::processEvents();
    const double loadMs = static_cast<double>(load.nsecsElapsed()) / 1e6;

    std::vector<double> lineKeys;
    std::vector<double> digitKeys;
    const char keys[] = "12,5+";
    for (int i = 0; i < pairs; ++i) {
        for (const char* k = keys; *k != '\0'; ++k) {
            QElapsedTimer timer;
            timer.start();
            QTest::keyClick(&window, *k);
            QApplication::processEvents();
            const double ms = static_cast<double>(timer.nsecsElapsed()) / 1e6;
            (*k == '+' ? lineKeys : digitKeys).push_back(ms);
        }
    }
    // Across the whole tape: find on its first line, back to the newest, half of it up, and a
    // double-click on a line, each until it is on screen.
    auto* tape = window.findChild<zv::app::TapeView*>(QStringLiteral("txtFita"));
    const auto timed = [](const auto& action) {
        QElapsedTimer timer;
        timer.start();
        action();
        QApplication::processEvents();
        return static_cast<double>(timer.nsecsElapsed()) / 1e6;
    };
    const double findFirst = timed([&] { tape->selectBytes(0, 8); });
    const double toEnd = timed([&] { tape->scrollToEnd(); });
    const double halfUp = timed([&] { tape->scrollLines(-tapeLines / 2); });
    const double doubleClick =
        timed([&] { QTest::mouseDClick(tape->viewport(), Qt::LeftButton, {}, QPoint(40, 12)); });

    std::printf("tape lines: %d, pairs typed: %d, window with its tape up in %.0f ms\n", tapeLines, pairs,
                loadMs);
    std::printf("key that writes a tape line: p50 %.3f ms, p99 %.3f ms, max %.3f ms\n",
                percentile(lineKeys, 0.5), percentile(lineKeys, 0.99), percentile(lineKeys, 1.0));
    std::printf("digit key: p50 %.3f ms, p99 %.3f ms, max %.3f ms\n", percentile(digitKeys, 0.5),
                percentile(digitKeys, 0.99), percentile(digitKeys, 1.0));
    std::printf(
        "find on the first line %.1f ms, back to the newest %.1f ms, half the tape up %.1f ms, "
        "double-click %.1f ms\n",
        findFirst, toEnd, halfUp, doubleClick);
    return window.calculator().counter() > 0 ? 0 : 1;
}
