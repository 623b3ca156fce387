#include "app/documents/frm_cheque.h"

#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStandardPaths>

#include "app/common/dialogs.h"
#include "core/common/settings_keys.h"
#include "core/common/settings_reader.h"
#include "core/common/text_encoding.h"
#include "core/common/text_file.h"
#include "core/common/text_table.h"
#include "core/documents/date_words.h"
#include "core/documents/layout_backup.h"
#include "core/documents/payee_list.h"

namespace zv::app {

namespace txt = common::txt;
namespace keys = common::settings;

namespace {

constexpr QSize kCheque(700, 320);  // about 18.5 x 8.5 cm
constexpr int kPayeeRows = 5;

}  // namespace

FrmCheque::FrmCheque(const AppContext& app, double amount, QWidget* parent)
    : FrmDocumento(app, documents::DocumentKind::Cheque,
                   {"frmCheque", txt::kChequeTitle, txt::kMoveChequeFields, txt::kChequeModelPrompt, kCheque},
                   parent) {
    chkAno = new QCheckBox(this);
    chkAno->setObjectName(QStringLiteral("chkAno"));
    captions().add(chkAno, txt::kFourDigitYear);
    chkAno->setChecked(layout().fourDigitYear);
    controlsGrid()->addWidget(chkAno, 2, 1);
    cmdBackup = new QPushButton(this);
    cmdBackup->setObjectName(QStringLiteral("cmdBackup"));
    cmdBackup->setAutoDefault(false);
    captions().add(cmdBackup, txt::kBackupLayouts);
    controlsGrid()->addWidget(cmdBackup, 0, 2);

    const std::pair<const char*, int> tips[] = {{"txtValor", 0},      {"txtExtenso1", 1}, {"txtExtenso2", 2},
                                                {"txtFavorecido", 3}, {"txtCidade", 5},   {"txtDia", 6},
                                                {"txtAno", 7}};
    for (const auto& [control, offset] : tips) {
        captions().add(field(control), txt::kFieldTips + offset, Captions::Part::ToolTip);
    }

    lstFavorecido = new QListWidget(paper());
    lstFavorecido->setObjectName(QStringLiteral("lstFavorecido"));
    captions().add(lstFavorecido, txt::kFieldTips + 4, Captions::Part::ToolTip);
    for (const std::string& payee : documents::readPayees(documents::payeeFile(app.dataFolder))) {
        lstFavorecido->addItem(QString::fromStdString(payee));
    }
    lstFavorecido->installEventFilter(this);
    field("txtFavorecido")->installEventFilter(this);
    lstFavorecido->hide();
    placePayeeList();

    documents::ChequeEntry entry = documents::lastChequeEntry(*app.store);
    entry.amount = amount;
    entry.date = today();
    if (const auto filled = documents::fillCheque(layout(), entry, app.regional.separators)) {
        setTexts(*filled);
    }
    // What was printed last is shown as it was typed back then.
    field("txtFavorecido")->setText(QString::fromStdString(entry.payee));
    field("txtCidade")->setText(QString::fromStdString(entry.city));

    const common::SettingsReader saved(*app.store, keys::kCheque);
    const std::optional<int> width = saved.whole(keys::kWidth, 1, kLargestWindow);
    const std::optional<int> height = saved.whole(keys::kHeight, 1, kLargestWindow);
    if (width && height) {
        resize(*width, *height);
    }

    connect(chkAno, &QCheckBox::toggled, this, &FrmCheque::chkAno_Click);
    connect(lstFavorecido, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { lstFavorecido_Click(item->text()); });
    connect(lstFavorecido, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { lstFavorecido_Click(item->text()); });
    connect(cmdBackup, &QPushButton::clicked, this, &FrmCheque::cmdBackup_Click);
}

void FrmCheque::placePayeeList() {
    const QLineEdit* payee = field("txtFavorecido");
    lstFavorecido->setGeometry(payee->x(), payee->y() + payee->height(), payee->width() / 2,
                               lstFavorecido->sizeHintForRow(0) * kPayeeRows + 4);
    lstFavorecido->raise();
}

bool FrmCheque::eventFilter(QObject* watched, QEvent* event) {
    // The list drops under the payee while one of the two has the focus.
    if (lstFavorecido != nullptr && (watched == lstFavorecido || watched == field("txtFavorecido")) &&
        (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)) {
        const bool shown = (field("txtFavorecido")->hasFocus() || lstFavorecido->hasFocus()) &&
                           lstFavorecido->count() > 0 && !Check2->isChecked();
        placePayeeList();
        lstFavorecido->setVisible(shown);
    }
    if (watched == lstFavorecido && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        const QString file = QString::fromStdString(documents::payeeFile(app().dataFolder).string());
        app().dialogs->message(this, Dialogs::Icon::Information,
                               text(txt::kPayeeDeleteHint, QDir::toNativeSeparators(file)));
        return true;
    }
    return FrmDocumento::eventFilter(watched, event);
}

void FrmCheque::lstFavorecido_Click(const QString& payee) {
    field("txtFavorecido")->setText(payee);
}

void FrmCheque::chkAno_Click(bool ticked) {
    field("txtAno")->setText(QString::fromStdString(documents::dateFields(today(), ticked).year));
    // The year's format belongs to the layout.
    if (!m_loading) {
        positionsChanged();
    }
}

void FrmCheque::modelLoaded() {
    m_loading = true;
    chkAno->setChecked(layout().fourDigitYear);
    chkAno_Click(layout().fourDigitYear);
    m_loading = false;
    placePayeeList();
}

void FrmCheque::completeLayout(documents::Layout& layout) const {
    layout.fourDigitYear = chkAno->isChecked();
}

void FrmCheque::fieldsMoved() {
    placePayeeList();
}

void FrmCheque::prepareToPrint() {
    for (const char* control : {"txtFavorecido", "txtCidade"}) {
        QLineEdit* box = field(control);
        box->setText(QString::fromStdString(common::utf8ToUpper(box->text().trimmed().toStdString())));
    }
}

bool FrmCheque::keepPrinted() {
    documents::ChequeEntry entry;
    entry.payee = field("txtFavorecido")->text().toStdString();
    entry.city = field("txtCidade")->text().toStdString();
    bool kept = documents::saveChequeEntry(*app().store, entry, bold());
    if (!kept) {
        app().dialogs->message(this, Dialogs::Icon::Critical, text(txt::kSettingsNotWritten));
    }
    const std::filesystem::path file = documents::payeeFile(app().dataFolder);
    switch (documents::addPayee(file, entry.payee)) {
        case documents::PayeeOutcome::Added:
            lstFavorecido->addItem(QString::fromStdString(common::utf8ToUpper(entry.payee)));
            break;
        case documents::PayeeOutcome::WriteFailed:
            app().dialogs->message(this, Dialogs::Icon::Critical,
                                   text(txt::kFileNotWritten, QString::fromStdString(file.string())));
            kept = false;
            break;
        case documents::PayeeOutcome::AlreadyListed:
        case documents::PayeeOutcome::Blank:
            break;
    }
    return kept;
}

void FrmCheque::keepSize() {
    common::SaveSetting(*app().store, keys::kCheque, keys::kWidth, std::to_string(width()));
    common::SaveSetting(*app().store, keys::kCheque, keys::kHeight, std::to_string(height()));
}

void FrmCheque::cmdBackup_Click() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (folder.isEmpty() || !QFileInfo(folder).isDir()) {
        folder = QDir::homePath();
    }
    const QString path = app().dialogs->saveFileName(
        this, text(txt::kBackupDialogTitle), text(txt::kRegistryFilter) + QStringLiteral(" (*.reg)"),
        QDir(folder).filePath(QStringLiteral("BackupCheques.reg")));
    if (path.isEmpty()) {
        return;
    }
    const std::string backup = documents::chequeBackupText(*app().store, {width(), height()});
    if (!common::writeFileAtomically(std::filesystem::path(path.toStdU16String()),
                                     common::utf8ToCp1252(backup))) {
        app().dialogs->message(this, Dialogs::Icon::Critical, text(txt::kFileNotWritten, path));
        return;
    }
    app().dialogs->message(this, Dialogs::Icon::Information,
                           text(txt::kLayoutsBackedUp, QDir::toNativeSeparators(path)));
}

}  // namespace zv::app
