#pragma once

#include <QColor>
#include <QList>

class QLabel;
class QPixmap;
class QPushButton;
class QSize;
class QWidget;

namespace zv::app {

// The parts of the calculator window that a colour scheme paints; labels and the other keys keep
// the system's colours.
struct SchemeTargets {
    QWidget* window = nullptr;
    QWidget* keypad = nullptr;
    QWidget* tape = nullptr;
    QWidget* display = nullptr;
    QList<QPushButton*> operators;  // ÷ × − +
    QLabel* picture = nullptr;      // imgUSA: shown with the "USA" scheme only
};

// Paints scheme 1 to 4 ("Padrão", "USA", "Verde", "Rosa"), or 0, the design colours; other
// numbers are taken as the nearest of these.
void applyColourScheme(int scheme, const SchemeTargets& targets);

// The "USA" scheme's picture: a flag of stripes and stars, drawn at `size` (device-independent
// pixels) for a screen of `pixelRatio` device pixels to each.
QPixmap drawUsaPicture(const QSize& size, qreal pixelRatio);

// Gives a widget its own background colour.
void paintBackground(QWidget* widget, const QColor& colour);

}  // namespace zv::app
