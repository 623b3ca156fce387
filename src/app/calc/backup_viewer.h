#pragma once

#include <QDialog>

#include "core/common/regional.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace zv::app {

// The backup file shown read-only inside the program, for a desktop that has no viewer for it,
// with a find box: the text typed is looked for from the cursor on, in any letter case, and the
// search starts again at the top once it reaches the end.
class BackupViewer final : public QDialog {
    Q_OBJECT
public:
    BackupViewer(const QString& title, const QString& text, common::Language language,
                 QWidget* parent = nullptr);

    // Selects the next match of the find box's text; false at the end of the search.
    bool findNext();

private:
    QPlainTextEdit* m_text = nullptr;
    QLineEdit* m_needle = nullptr;
    QLabel* m_status = nullptr;
    QString m_endText;
};

}  // namespace zv::app
