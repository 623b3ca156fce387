#pragma once

#include <QColor>
#include <QList>

class QPushButton;
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
};

// Paints scheme 1 to 4 ("Padrão", "USA", "Verde", "Rosa"), or 0, the design colours; other
// numbers are taken as the nearest of these.
void applyColourScheme(int scheme, const SchemeTargets& targets);

// Gives a widget its own background colour.
void paintBackground(QWidget* widget, const QColor& colour);

}  // namespace zv::app
