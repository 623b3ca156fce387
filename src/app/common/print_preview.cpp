#include "app/common/print_preview.h"

#include <QAction>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QToolBar>
#include <QVBoxLayout>

#include "app/common/ui_text.h"
#include "core/common/text_table.h"

namespace zv::app {

namespace txt = common::txt;

PrintPreview::PrintPreview(QPrinter& printer, std::function<bool(QPrinter&)> paint, common::Language language,
                           QWidget* parent)
    : QDialog(parent), m_printer(printer), m_paint(std::move(paint)) {
    setObjectName(QStringLiteral("frmPreview"));
    setWindowTitle(uiText(language, txt::kPreviewTitle));
    m_view = new QPrintPreviewWidget(&printer, this);
    connect(m_view, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* target) {
        // While printing, the painting goes to the real printer and its outcome counts.
        const bool ok = m_paint(*target);
        if (m_painting) {
            m_printed = ok;
        }
    });
    connect(m_view, &QPrintPreviewWidget::previewChanged, this, &PrintPreview::showPageNumber);

    auto* bar = new QToolBar(this);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    auto add = [&](const char* name, const char* icon, int code, const QKeySequence& keys, auto slot) {
        QAction* action = bar->addAction(QIcon::fromTheme(QString::fromLatin1(icon)), uiText(language, code));
        action->setObjectName(QString::fromLatin1(name));
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    add("actPrint", "document-print", txt::kPrintButton, QKeySequence::Print, [this] { printNow(); });
    bar->addSeparator();
    add("actPrevious", "go-previous", txt::kPreviewPrevious, QKeySequence(Qt::Key_PageUp), [this] {
        m_view->setCurrentPage(m_view->currentPage() - 1);
        showPageNumber();
    });
    m_pageNumber = new QLabel(this);
    m_pageNumber->setObjectName(QStringLiteral("lblPagina"));
    bar->addWidget(m_pageNumber);
    add("actNext", "go-next", txt::kPreviewNext, QKeySequence(Qt::Key_PageDown), [this] {
        m_view->setCurrentPage(m_view->currentPage() + 1);
        showPageNumber();
    });
    bar->addSeparator();
    add("actZoomIn", "zoom-in", txt::kPreviewZoomIn, QKeySequence::ZoomIn, [this] { m_view->zoomIn(); });
    add("actZoomOut", "zoom-out", txt::kPreviewZoomOut, QKeySequence::ZoomOut, [this] { m_view->zoomOut(); });
    bar->addSeparator();
    add("actClose", "window-close", txt::kClose, QKeySequence(Qt::Key_Escape), [this] { reject(); });

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addWidget(m_view, 1);
    resize(720, 860);
}

void PrintPreview::showPageNumber() {
    m_pageNumber->setText(QStringLiteral(" %1 / %2 ").arg(m_view->currentPage()).arg(m_view->pageCount()));
}

bool PrintPreview::printNow() {
    m_painting = true;
    m_printed = false;
    m_view->print();  // the pages again, this time on the printer itself
    m_painting = false;
    if (m_printed) {
        accept();
    }
    return m_printed;
}

}  // namespace zv::app
