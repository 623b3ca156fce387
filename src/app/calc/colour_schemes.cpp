#include "app/calc/colour_schemes.h"

#include <QApplication>
#include <QPalette>
#include <QPushButton>
#include <QWidget>
#include <algorithm>

namespace zv::app {
namespace {

// The colours of a scheme, as 0x00BBGGRR values; kButtonFace stands for the system's colour.
constexpr unsigned kButtonFace = 0x8000000F;
constexpr unsigned kUnchanged = 0xFFFFFFFF;
struct Scheme {
    unsigned window, keypad, tape, tapeText, operators, display;
};
constexpr Scheme kSchemes[] = {
    {kButtonFace, kButtonFace, 0xFFFFFF, 0x000000, kButtonFace, 0xFFFFC0},  // 0: as designed
    {kButtonFace, kButtonFace, 0xFFFFFF, 0xFF0000, 0xFFFFFF, 0xFFFFC0},     // 1 "Padrão"
    {0xFFFFFF, kUnchanged, 0xFFFFFF, 0x000000, 0x80C0FF, 0xFFFFC0},         // 2 "USA"
    {0x00FFFF, 0xC0FFC0, 0xC0FFC0, 0x000000, 0xFFFF80, 0x80FF80},           // 3 "Verde"
    {0xFFC0FF, 0xFF80FF, 0xC0FFFF, 0x000000, 0x80C0FF, 0xFFFFFF},           // 4 "Rosa"
};

QColor fromBgr(unsigned bgr, const QColor& system) {
    if (bgr == kButtonFace) {
        return system;
    }
    return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
                  static_cast<int>((bgr >> 16) & 0xFF));
}

}  // namespace

void paintBackground(QWidget* widget, const QColor& colour) {
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

void applyColourScheme(int scheme, const SchemeTargets& targets) {
    const Scheme& colours = kSchemes[std::clamp(scheme, 0, 4)];
    const QColor face = QApplication::palette().color(QPalette::Window);
    paintBackground(targets.window, fromBgr(colours.window, face));
    if (colours.keypad != kUnchanged) {
        paintBackground(targets.keypad, fromBgr(colours.keypad, face));
    }
    QPalette tape = targets.tape->palette();
    tape.setColor(QPalette::Base, fromBgr(colours.tape, face));
    tape.setColor(QPalette::Text, fromBgr(colours.tapeText, face));
    targets.tape->setPalette(tape);
    paintBackground(targets.display, fromBgr(colours.display, face));
    const QString operatorStyle = colours.operators == kButtonFace
                                      ? QString()
                                      : QStringLiteral("QPushButton { background-color: %1; }")
                                            .arg(fromBgr(colours.operators, face).name());
    for (QPushButton* key : targets.operators) {
        key->setStyleSheet(operatorStyle);
    }
}

}  // namespace zv::app
