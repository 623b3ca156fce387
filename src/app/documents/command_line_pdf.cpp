#include "app/documents/command_line_pdf.h"

#include <QGuiApplication>
#include <memory>

#include "app/documents/document_painter.h"

namespace zv::app {

namespace {

// Qt's own warnings (a runtime folder it would like, a painter that could not start) are not the
// user's business: the command says in its own words whether the file was written.
void quiet(QtMsgType, const QMessageLogContext&, const QString&) {}

}  // namespace

bool writeCommandLinePdf(const std::string& path, const std::vector<cli::PdfPage>& pages,
                         const std::string& title) {
    const QtMessageHandler previous = qInstallMessageHandler(&quiet);
    std::unique_ptr<QGuiApplication> own;
    if (QCoreApplication::instance() == nullptr) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
        }
        // Qt keeps a reference to the count for the application's life.
        static int argc = 1;
        static char name[] = "zavrello-cli";
        static char* argv[] = {name, nullptr};
        own = std::make_unique<QGuiApplication>(argc, argv);
    }
    std::vector<PrintedDocument> documents;
    documents.reserve(pages.size());
    for (const cli::PdfPage& page : pages) {
        documents.push_back({page.fields, page.bold});
    }
    const bool written =
        writeDocumentsPdf(QString::fromStdString(path), documents, QString::fromStdString(title));
    qInstallMessageHandler(previous);
    return written;
}

}  // namespace zv::app
