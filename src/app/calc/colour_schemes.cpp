#include "app/calc/colour_schemes.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPushButton>
#include <QWidget>
#include <algorithm>
#include <cmath>

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

constexpr int kUsaScheme = 2;

}  // namespace

QPixmap drawUsaPicture(const QSize& size, qreal pixelRatio) {
    // Drawn in device pixels, each stripe a whole number of them, so the stripes stay crisp.
    const int stripe = std::max(1, static_cast<int>(std::lround(size.height() * pixelRatio / 13)));
    const int height = stripe * 13;
    const int width = std::max(height * 19 / 10, static_cast<int>(std::lround(size.width() * pixelRatio)));
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    const QColor red(0xB2, 0x22, 0x34);
    const QColor blue(0x3C, 0x3B, 0x6E);
    QPainter painter(&image);
    // Thirteen stripes, red at the top and the bottom.
    for (int i = 0; i < 13; ++i) {
        painter.fillRect(0, i * stripe, width, stripe, i % 2 == 0 ? red : QColor(Qt::white));
    }
    // The blue field over seven stripes and two fifths of the width, with rows of stars as dots.
    const QRectF field(0, 0, std::lround(width * 0.4), stripe * 7);
    painter.fillRect(field, blue);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    const qreal dot = std::max(0.5, field.height() / 22);
    for (int row = 0; row < 5; ++row) {
        const int stars = row % 2 == 0 ? 4 : 3;
        for (int i = 0; i < stars; ++i) {
            const qreal x = field.width() * (row % 2 == 0 ? (i + 0.5) / 4 : (i + 1.0) / 4);
            const qreal y = field.height() * (row + 0.5) / 5;
            painter.drawEllipse(QPointF(x, y), dot, dot);
        }
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QColor(0x60, 0x60, 0x60));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(0, 0, width - 1, height - 1);
    painter.end();
    QPixmap picture = QPixmap::fromImage(image);
    picture.setDevicePixelRatio(pixelRatio);
    return picture;
}

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
    if (targets.picture != nullptr) {
        const bool shown = std::clamp(scheme, 0, 4) == kUsaScheme;
        if (shown) {
            const int height = std::max(13, targets.picture->fontMetrics().height() * 3 / 2);
            targets.picture->setPixmap(
                drawUsaPicture(QSize(height * 19 / 10, height), targets.picture->devicePixelRatioF()));
        }
        targets.picture->setVisible(shown);
    }
}

}  // namespace zv::app
