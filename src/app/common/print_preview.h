#pragma once

#include <QDialog>
#include <functional>

#include "core/common/regional.h"

class QLabel;
class QPrinter;
class QPrintPreviewWidget;

namespace zv::app {

// The pages as they will print, on the printer the user has already chosen. Print prints them
// there at once (the printer is not asked for again); the buttons speak the program's language.
class PrintPreview final : public QDialog {
    Q_OBJECT
public:
    // `paint` draws every page on the printer it is given: the preview's own pages each time the
    // preview is redrawn, then the real printer's.
    PrintPreview(QPrinter& printer, std::function<bool(QPrinter&)> paint, common::Language language,
                 QWidget* parent = nullptr);

    // Prints on the chosen printer and closes; false when painting failed.
    bool printNow();
    bool printed() const { return m_printed; }
    QPrintPreviewWidget* view() const { return m_view; }

private:
    void showPageNumber();

    QPrinter& m_printer;
    std::function<bool(QPrinter&)> m_paint;
    QPrintPreviewWidget* m_view = nullptr;
    QLabel* m_pageNumber = nullptr;
    bool m_painting = false;
    bool m_printed = false;
};

}  // namespace zv::app
