#include "app/calc/backup_viewer.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCursor>
#include <QVBoxLayout>

#include "app/common/ui_text.h"
#include "core/common/text_table.h"

namespace zv::app {

namespace txt = common::txt;

BackupViewer::BackupViewer(const QString& title, const QString& text, common::Language language,
                           QWidget* parent)
    : QDialog(parent), m_endText(uiText(language, txt::kFindEnd)) {
    setObjectName(QStringLiteral("frmBackup"));
    setWindowTitle(title);
    m_text = new QPlainTextEdit(this);
    m_text->setObjectName(QStringLiteral("txtBackup"));
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setPlainText(text);
    m_text->moveCursor(QTextCursor::End);  // the newest records are at the end

    m_needle = new QLineEdit(this);
    m_needle->setObjectName(QStringLiteral("txtProcura"));
    auto* find = new QPushButton(uiText(language, txt::kFind), this);
    find->setObjectName(QStringLiteral("cmdProcura"));
    find->setDefault(true);
    connect(find, &QPushButton::clicked, this, &BackupViewer::findNext);
    connect(m_needle, &QLineEdit::returnPressed, this, &BackupViewer::findNext);
    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("lblProcura"));

    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(uiText(language, txt::kClose), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* findRow = new QHBoxLayout;
    findRow->addWidget(m_needle, 1);
    findRow->addWidget(find);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_text, 1);
    layout->addLayout(findRow);
    layout->addWidget(m_status);
    layout->addWidget(buttons);
    resize(560, 600);
    m_needle->setFocus();
}

bool BackupViewer::findNext() {
    const QString needle = m_needle->text();
    m_status->clear();
    if (needle.isEmpty()) {
        return false;
    }
    if (m_text->find(needle)) {
        return true;
    }
    // From the top once more, then tell the search has ended.
    QTextCursor top = m_text->textCursor();
    top.movePosition(QTextCursor::Start);
    m_text->setTextCursor(top);
    if (m_text->find(needle)) {
        return true;
    }
    m_status->setText(m_endText);
    return false;
}

}  // namespace zv::app
