// The floor for start-up figures: the smallest window a Qt Widgets calculator could open (a text
// area and a keypad), built with the same compiler, flags and Qt as the program.
#include <QApplication>
#include <QGridLayout>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QPushButton>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("empty"));
    auto* central = new QWidget(&window);
    auto* grid = new QGridLayout(central);
    auto* display = new QPlainTextEdit(central);
    grid->addWidget(display, 0, 0, 1, 4);
    const char* labels[] = {"7", "8", "9", "/", "4", "5", "6", "*", "1", "2", "3", "-", "0", ",", "=", "+"};
    for (int i = 0; i < 16; ++i) {
        auto* button = new QPushButton(QString::fromLatin1(labels[i]), central);
        grid->addWidget(button, 1 + i / 4, i % 4);
        QObject::connect(button, &QPushButton::clicked, display,
                         [display, button] { display->insertPlainText(button->text()); });
    }
    window.setCentralWidget(central);
    window.resize(360, 420);
    window.show();
    return QApplication::exec();
}
