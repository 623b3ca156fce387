// The tape's rows as the user sees them: what they show as the tape changes, where a found text
// is highlighted, which line a double-click takes, what a drag selects, and when they follow the
// newest line.
#include <QImage>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>
#include <string>

#include "app/calc/tape_view.h"

using namespace zv;
using namespace Qt::StringLiterals;

namespace {

std::string numbered(int from, int count) {
    std::string text;
    for (int i = from; i < from + count; ++i) {
        text += "linha " + std::to_string(i) + "\r\n";
    }
    return text;
}

QStringList rows(const app::TapeView& view) {
    QStringList out;
    for (int i = 0; i < view.lineCount(); ++i) {
        out << view.lineText(i);
    }
    return out;
}

QStringList linesOf(const std::string& tape) {
    QStringList out = QString::fromStdString(tape).split(u"\r\n"_s);
    out.removeLast();  // after the last line's end
    return out;
}

void showSized(app::TapeView& view, int height) {
    view.resize(320, height);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
}

}  // namespace

class TapeViewTest : public QObject {
    Q_OBJECT

private slots:
    void rowsAreTheTapesLinesAfterEveryChange() {
        const std::string start = numbered(0, 6);  // "linha N\r\n": 9 bytes a line
        struct Case {
            const char* label;
            std::size_t offset;
            std::string text;
        };
        const Case cases[] = {
            {"a line added", start.size(), "linha 6\r\n"},
            {"the last line rewritten", 45, "linha 5 \xC3\x97\r\n"},
            {"lines from the middle, more of them", 18, "a\r\nb\r\nc\r\nd\r\ne\r\n"},
            {"lines from the middle, fewer of them", 18, "\xC3\xB7 \xC3\xB7\r\n"},
            {"undone to the first line", 9, ""},
            {"from inside a line", 3, "xyz\r\nw\r\n"},
            {"everything", 0, "s\xC3\xB3\r\n"},
        };
        for (const Case& c : cases) {
            app::TapeView view;
            view.reset(start);
            std::string tape = start;
            // Then a line added after it, to the lines as they now stand.
            const std::pair<std::size_t, std::string> steps[] = {{c.offset, c.text},
                                                                 {std::string::npos, "fim\r\n"}};
            for (const auto& [offset, text] : steps) {
                const std::size_t at = std::min(offset, tape.size());
                view.replaceTail(at, text);
                tape.resize(at);
                tape += text;
                QVERIFY2(rows(view) == linesOf(tape),
                         qPrintable(u"%1: %2"_s.arg(QLatin1StringView(c.label), rows(view).join(u'|'))));
            }
        }
    }

    void foundTextIsHighlightedInItsOwnColumns() {
        app::TapeView view;
        showSized(view, 200);
        const std::string line =
            "\xC3\x97 \xC3\xB7 a\xC3\xA7\xC3\xBA"
            "car total 12,00";  // × ÷ açúcar
        const std::string tape = numbered(0, 50) + line + "\r\n" + numbered(51, 50);
        view.reset(tape);
        view.selectBytes(tape.find("total"), 5);
        QCOMPARE(view.selectedText(), u"total"_s);
        const int column = view.lineText(50).indexOf(u"total"_s);
        const QImage shot = view.viewport()->grab().toImage();
        const QColor highlight = view.palette().color(QPalette::Highlight);
        struct Probe {
            const char* label;
            int column;
            bool lit;
        };
        const Probe probes[] = {{"the space before", column - 1, false},
                                {"the first letter", column, true},
                                {"the last letter", column + 4, true},
                                {"the space after", column + 5, false}};
        for (const Probe& p : probes) {
            const QRect cell = view.cellRect(50, p.column);
            QVERIFY2(view.viewport()->rect().contains(cell), p.label);  // scrolled into view
            // Below the letters' baseline: the band's colour, not a letter's.
            const QColor colour = shot.pixelColor(cell.left() + 1, cell.bottom() - 1);
            QVERIFY2((colour == highlight) == p.lit, p.label);
        }
    }

    void rowsFollowTheNewestLineOnlyFromTheEnd() {
        struct Case {
            const char* label;
            int scrolled;
            bool follows;
        };
        const Case cases[] = {{"at the end", 0, true}, {"scrolled up", -30, false}};
        for (const Case& c : cases) {
            app::TapeView view;
            showSized(view, 200);
            std::string tape = numbered(0, 100);
            view.reset(tape);
            view.scrollLines(c.scrolled);
            QScrollBar* bar = view.verticalScrollBar();
            const int before = bar->value();
            view.replaceTail(tape.size(), "linha 100\r\n");
            QVERIFY2(view.viewport()->rect().contains(view.cellRect(100, 0)) == c.follows, c.label);
            QVERIFY2((bar->value() == before) != c.follows, c.label);
        }
    }

    void doubleClickTakesTheRowUnderThePointer() {
        app::TapeView view;
        showSized(view, 200);
        view.reset(numbered(0, 100));
        view.scrollLines(-40);
        QSignalSpy activated(&view, &app::TapeView::lineActivated);
        const int line = view.verticalScrollBar()->value() + 3;
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, view.cellRect(line, 2).center());
        QCOMPARE(activated.size(), 1);
        QCOMPARE(activated[0][0].toString(), u"linha %1"_s.arg(line));
    }

    void dragSelectsFromALetterToALetter() {
        app::TapeView view;
        showSized(view, 200);
        view.reset("   10,00 +\r\n   20,00 +\r\n   30,00 =\r\n");
        const auto at = [&](int line, int column) {
            return view.cellRect(line, column).topLeft() + QPoint(1, 2);
        };
        QTest::mousePress(view.viewport(), Qt::LeftButton, {}, at(0, 3));
        QTest::mouseMove(view.viewport(), at(1, 5));
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, at(1, 5));
        QCOMPARE(view.selectedText(), u"10,00 +\n   20"_s);  // as copy gives it
    }
};

QTEST_MAIN(TapeViewTest)
#include "tape_view_test.moc"
