#include "app/documents/frm_documento.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QStandardPaths>
#include <QVBoxLayout>

#include "app/common/dialogs.h"
#include "app/common/ui_text.h"
#include "core/common/settings_keys.h"
#include "core/common/text_table.h"

namespace zv::app {

namespace txt = common::txt;
namespace keys = common::settings;

namespace {

// A field picked up by sweeping the mouse over it in move mode.
const QColor kHighlight(192, 255, 255);
constexpr int kMostCopies = 10;

QString qText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

FrmDocumento::FrmDocumento(const AppContext& app, documents::DocumentKind kind, const Controls& controls,
                           QWidget* parent)
    : ToolWindow(app, controls.name, controls.titleCode, parent),
      m_kind(kind),
      m_modelPromptCode(controls.modelPromptCode),
      m_layout(documents::loadLayout(*app.store, kind, 0)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal);
    if (const QScreen* shown = screen()) {
        m_scale = shown->logicalDotsPerInchX() / 96.0;
    }

    auto* column = new QVBoxLayout(this);
    m_paper = new QWidget(this);
    m_paper->setObjectName(QStringLiteral("picDocumento"));
    m_paper->setAutoFillBackground(true);
    QPalette white = m_paper->palette();
    white.setColor(QPalette::Window, Qt::white);
    m_paper->setPalette(white);
    m_paper->setFixedSize(qRound(controls.paper.width() * m_scale),
                          qRound(controls.paper.height() * m_scale));
    m_paper->installEventFilter(this);
    column->addWidget(m_paper, 0, Qt::AlignHCenter);

    const bool boldFont = documents::savedBold(*app.store, kind);
    for (const documents::FieldSpec& spec : documents::fieldSpecs(kind)) {
        auto* box = new QLineEdit(m_paper);
        box->setObjectName(qText(spec.control));
        box->setFont(documentFont(boldFont));
        box->setAutoFillBackground(true);
        box->installEventFilter(this);
        m_fields.emplace(std::string(spec.control), box);
        highlight(box, false);
    }

    m_controls = new QGridLayout;
    column->addLayout(m_controls);
    Check2 = new QCheckBox(this);
    Check2->setObjectName(QStringLiteral("Check2"));
    captions().add(Check2, controls.moveCode);
    chkNegrito = new QCheckBox(this);
    chkNegrito->setObjectName(QStringLiteral("chkNegrito"));
    captions().add(chkNegrito, txt::kBoldFont);
    chkNegrito->setChecked(boldFont);
    cbModelo = new QComboBox(this);
    cbModelo->setObjectName(QStringLiteral("cbModelo"));
    for (const std::string& name : documents::modelNames(*app.store, kind)) {
        cbModelo->addItem(QString::fromStdString(name));
    }
    auto* lblCopias = new QLabel(this);
    lblCopias->setObjectName(QStringLiteral("lblCopias"));
    captions().add(lblCopias, txt::kCopies);
    lstCopias = new QComboBox(this);
    lstCopias->setObjectName(QStringLiteral("lstCopias"));
    for (int copy = 1; copy <= kMostCopies; ++copy) {
        lstCopias->addItem(QString::number(copy));
    }
    lblCopias->setBuddy(lstCopias);
    lblLocal = new QLabel(this);
    lblLocal->setObjectName(QStringLiteral("lblLocal"));
    lblLocal->hide();
    lblAviso = new QLabel(this);
    lblAviso->setObjectName(QStringLiteral("lblAviso"));
    lblAviso->setWordWrap(true);
    captions().add(lblAviso, txt::kMoveNotice);

    auto* copiesRow = new QHBoxLayout;
    copiesRow->addWidget(lblCopias);
    copiesRow->addWidget(lstCopias);
    copiesRow->addStretch();
    m_controls->addWidget(Check2, 0, 0);
    m_controls->addWidget(cbModelo, 0, 1);
    m_controls->addWidget(chkNegrito, 1, 0);
    m_controls->addLayout(copiesRow, 1, 1);
    m_controls->addWidget(lblLocal, 2, 0);
    m_controls->addWidget(lblAviso, 3, 0, 1, 3);

    auto* buttons = new QHBoxLayout;
    column->addLayout(buttons);
    const auto addButton = [&](const char* name, int code) {
        auto* button = new QPushButton(this);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(false);
        captions().add(button, code);
        buttons->addWidget(button);
        return button;
    };
    cmdImprimir = addButton("cmdImprimir", txt::kPrintButton);
    cmdPdf = addButton("cmdPdf", txt::kSaveAsPdf);
    cmdSalvar = addButton("cmdSalvar", txt::kSaveModel);
    cmdConf = addButton("cmdConf", txt::kPrinterButton);
    buttons->addStretch();
    cmdSalvar->setEnabled(false);

    placeFields();
    connect(Check2, &QCheckBox::toggled, this, &FrmDocumento::Check2_Click);
    connect(cbModelo, &QComboBox::activated, this, &FrmDocumento::cbModelo_Click);
    connect(chkNegrito, &QCheckBox::toggled, this, &FrmDocumento::chkNegrito_Click);
    connect(cmdImprimir, &QPushButton::clicked, this, &FrmDocumento::cmdImprimir_Click);
    connect(cmdPdf, &QPushButton::clicked, this, &FrmDocumento::cmdPdf_Click);
    connect(cmdSalvar, &QPushButton::clicked, this, &FrmDocumento::cmdSalvar_Click);
    connect(cmdConf, &QPushButton::clicked, this, &FrmDocumento::cmdConf_Click);
}

QLineEdit* FrmDocumento::field(std::string_view control) const {
    const auto found = m_fields.find(control);
    return found == m_fields.end() ? nullptr : found->second;
}

void FrmDocumento::setTexts(const std::vector<documents::FilledField>& fields) {
    for (const documents::FilledField& filled : fields) {
        if (QLineEdit* box = field(filled.control)) {
            box->setText(QString::fromStdString(filled.text));
            box->setCursorPosition(0);
        }
    }
}

bool FrmDocumento::bold() const {
    return chkNegrito->isChecked();
}

common::Date FrmDocumento::today() const {
    return common::dateOf(app().clock->now()).value_or(common::Date{});
}

int FrmDocumento::copies() const {
    return lstCopias->currentIndex() + 1;
}

void FrmDocumento::placeField(const documents::FieldPlace& place) {
    QLineEdit* box = field(place.control);
    const int height = box->fontMetrics().height() + 4;
    box->setGeometry(qRound(place.left * m_scale), qRound(place.top * m_scale), qRound(place.width * m_scale),
                     height);
}

void FrmDocumento::placeFields() {
    for (const documents::FieldPlace& place : m_layout.fields) {
        placeField(place);
    }
}

PrintedDocument FrmDocumento::shownDocument() const {
    PrintedDocument document;
    document.bold = bold();
    for (const documents::FieldPlace& place : m_layout.fields) {
        document.fields.push_back(
            {place.control, place.left, place.top, place.width, field(place.control)->text().toStdString()});
    }
    return document;
}

std::vector<PrintedDocument> FrmDocumento::copiesToPrint() const {
    return std::vector<PrintedDocument>(static_cast<std::size_t>(copies()), shownDocument());
}

void FrmDocumento::highlight(QLineEdit* box, bool on) {
    QPalette colours = box->palette();
    colours.setColor(QPalette::Base, on ? kHighlight : QColor(Qt::white));
    colours.setColor(QPalette::Window, on ? kHighlight : QColor(Qt::white));
    box->setPalette(colours);
}

bool FrmDocumento::highlighted(const QLineEdit* box) const {
    return box->palette().color(QPalette::Base) == kHighlight;
}

void FrmDocumento::Check2_Click(bool ticked) {
    lblLocal->setVisible(ticked);
    lblAviso->setVisible(!ticked);
    for (const auto& [control, box] : m_fields) {
        box->setReadOnly(ticked);
        if (!ticked) {
            highlight(box, false);
        }
    }
}

QPoint FrmDocumento::layoutPoint(QPoint global) const {
    return QPoint(qRound(global.x() / m_scale), qRound(global.y() / m_scale));
}

void FrmDocumento::moveFields(const std::vector<QLineEdit*>& moved, QPoint delta) {
    if (moved.empty() || delta.isNull()) {
        return;
    }
    const documents::FieldPlace* last = nullptr;
    for (QLineEdit* box : moved) {
        const std::string control = box->objectName().toStdString();
        documents::FieldPlace* place = m_layout.find(control);
        const documents::FieldSpec* spec = documents::findSpec(m_kind, control);
        place->left += delta.x();
        // A field without a top of its own stays on its anchor's line.
        if (spec->anchor.empty()) {
            place->top += delta.y();
        }
        last = place;
    }
    for (const documents::FieldSpec& spec : documents::fieldSpecs(m_kind)) {
        if (!spec.anchor.empty()) {
            const documents::FieldSpec* anchor = documents::findSpec(m_kind, spec.anchor);
            m_layout.find(spec.control)->top =
                m_layout.find(spec.anchor)->top + spec.designTop - anchor->designTop;
        }
    }
    placeFields();
    lblLocal->setText(QString::fromStdString(documents::positionReadout(last->left, last->top)));
    positionsChanged();
    fieldsMoved();
}

void FrmDocumento::positionsChanged() {
    cmdSalvar->setEnabled(true);
}

bool FrmDocumento::eventFilter(QObject* watched, QEvent* event) {
    // The paper's first children arrive before the move mode's box exists.
    if (Check2 == nullptr || !Check2->isChecked()) {
        return ToolWindow::eventFilter(watched, event);
    }
    auto* box = qobject_cast<QLineEdit*>(watched);
    if (box == nullptr && watched != m_paper) {
        return ToolWindow::eventFilter(watched, event);
    }
    switch (event->type()) {
        case QEvent::MouseButtonPress: {
            auto* mouse = static_cast<QMouseEvent*>(event);
            if (mouse->button() == Qt::LeftButton) {
                m_dragging = true;
                m_dragged = box;
                m_last = layoutPoint(mouse->globalPosition().toPoint());
            }
            return true;
        }
        case QEvent::MouseMove: {
            if (!m_dragging) {
                return true;
            }
            auto* mouse = static_cast<QMouseEvent*>(event);
            const QPoint now = layoutPoint(mouse->globalPosition().toPoint());
            const QPoint delta = now - m_last;
            m_last = now;
            if (m_dragged != nullptr) {
                // A highlighted field travels with the sweep that picked it up, not on its own.
                if (!highlighted(m_dragged)) {
                    moveFields({m_dragged}, delta);
                }
                return true;
            }
            // Sweeping the paper: the fields picked up so far follow the cursor, and the one
            // under it joins them.
            std::vector<QLineEdit*> carried;
            for (const auto& [control, field] : m_fields) {
                if (highlighted(field)) {
                    carried.push_back(field);
                }
            }
            moveFields(carried, delta);
            auto* under = qobject_cast<QLineEdit*>(
                m_paper->childAt(m_paper->mapFromGlobal(mouse->globalPosition().toPoint())));
            if (under != nullptr && !highlighted(under)) {
                highlight(under, true);
            }
            return true;
        }
        case QEvent::MouseButtonRelease:
            m_dragging = false;
            m_dragged = nullptr;
            return true;
        case QEvent::MouseButtonDblClick:
            return true;
        default:
            return ToolWindow::eventFilter(watched, event);
    }
}

void FrmDocumento::cbModelo_Click(int model) {
    if (model < 0 || model >= documents::kModelCount) {
        return;
    }
    m_layout = documents::loadLayout(*app().store, m_kind, model);
    placeFields();
    modelLoaded();
    cmdSalvar->setEnabled(false);
}

void FrmDocumento::cmdSalvar_Click() {
    const std::optional<QString> answer = app().dialogs->ask(
        this, text(txt::kSaveModelTitle), text(m_modelPromptCode), cbModelo->currentText());
    documents::Layout saved = m_layout;
    completeLayout(saved);
    switch (documents::saveLayout(*app().store, saved, answer.value_or(QString()).toStdString())) {
        case documents::SaveOutcome::Cancelled:
            app().dialogs->message(this, Dialogs::Icon::Critical, text(txt::kChangesCancelled));
            return;
        case documents::SaveOutcome::StoreFailed:
            app().dialogs->message(this, Dialogs::Icon::Critical, text(txt::kSettingsNotWritten));
            return;
        case documents::SaveOutcome::Saved:
            break;
    }
    m_layout = saved;
    Check2->setChecked(false);
    cbModelo->setItemText(m_layout.model, QString::fromStdString(m_layout.name));
    cbModelo->setCurrentIndex(m_layout.model);
    cmdSalvar->setEnabled(false);
}

void FrmDocumento::chkNegrito_Click(bool ticked) {
    for (const auto& [control, box] : m_fields) {
        box->setFont(documentFont(ticked));
    }
    placeFields();
}

void FrmDocumento::cmdImprimir_Click() {
    prepareToPrint();
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(plainCaption(windowTitle()));
    if (const QString name = chosenPrinter(); !name.isEmpty()) {
        printer.setPrinterName(name);
    }
    const std::vector<PrintedDocument> pages = copiesToPrint();
    bool failed = false;
    const bool printed = app().dialogs->print(this, printer, [&pages, &failed](QPrinter& target) {
        const bool painted = printDocuments(target, pages);
        failed = failed || !painted;
        return painted;
    });
    if (!printed) {
        // Given up in the dialog or the preview: nothing to say. A printer that failed is told;
        // the fields and the layout stay as they are either way.
        if (failed) {
            app().dialogs->message(this, Dialogs::Icon::Critical, text(txt::kPrinterFailed));
        }
        return;
    }
    keepPrinted();
    app().dialogs->message(this, Dialogs::Icon::Information, text(txt::kSentToPrinter));
    close();
}

QString FrmDocumento::chosenPrinter() const {
    const std::vector<documents::PrinterInfo> installed = m_printers();
    const std::optional<std::size_t> chosen = documents::documentPrinter(
        common::GetSetting(*app().store, keys::kConfigura, keys::kImpDispo, ""), installed);
    return chosen ? QString::fromStdString(installed[*chosen].name) : QString();
}

void FrmDocumento::cmdPdf_Click() {
    prepareToPrint();
    QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (folder.isEmpty() || !QFileInfo(folder).isDir()) {
        folder = QDir::homePath();
    }
    const QString name = m_kind == documents::DocumentKind::Cheque ? QStringLiteral("cheque.pdf")
                                                                   : QStringLiteral("promissoria.pdf");
    const QString path =
        app().dialogs->saveFileName(this, QStringLiteral("PDF (*.pdf)"), QDir(folder).filePath(name));
    if (path.isEmpty()) {
        return;
    }
    // One page: the copies are the printer's business.
    if (!writeDocumentsPdf(path, {shownDocument()}, plainCaption(windowTitle()))) {
        app().dialogs->message(this, Dialogs::Icon::Critical, text(txt::kFileNotWritten, path));
        return;
    }
    keepPrinted();
}

void FrmDocumento::cmdConf_Click() {
    auto* choice = new FrmImpressora(app(), m_printers(), this);
    choice->setAttribute(Qt::WA_DeleteOnClose);
    choice->open();
}

void FrmDocumento::keyPressEvent(QKeyEvent* event) {
    // Enter walks the fields as Tab does.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        focusNextChild();
        return;
    }
    ToolWindow::keyPressEvent(event);
}

void FrmDocumento::done(int result) {
    if (m_closing) {
        return;
    }
    m_closing = true;
    if (cmdSalvar->isEnabled()) {
        // No is the default: Enter must not overwrite a saved model.
        const Dialogs::Answer answer =
            app().dialogs->question(this, text(txt::kSaveChangesQuestion, cbModelo->currentText()),
                                    Dialogs::Buttons::YesNo, Dialogs::Answer::No);
        if (answer == Dialogs::Answer::Yes) {
            cmdSalvar_Click();
        }
    }
    keepSize();
    ToolWindow::done(result);
}

}  // namespace zv::app
