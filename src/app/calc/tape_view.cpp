#include "app/calc/tape_view.h"

#include <QFontDatabase>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

namespace zv::app {
namespace {

// Tape text (CR LF lines) as the document holds it: LF between lines, no final line break.
QString documentText(std::string_view text) {
    if (text.ends_with("\r\n")) {
        text.remove_suffix(2);
    }
    QString out = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    out.remove(QLatin1Char('\r'));
    return out;
}

}  // namespace

TapeView::TapeView(QWidget* parent) : QPlainTextEdit(parent) {
    setObjectName(QStringLiteral("txtFita"));
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::ClickFocus);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    // A view that shows the newest line keeps showing it when the tape is laid out again (other
    // letters, another width): the range grows under it and it follows.
    QScrollBar* bar = verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this,
            [this, bar](int value) { m_atEnd = value >= bar->maximum(); });
    connect(bar, &QScrollBar::rangeChanged, this, [this, bar](int, int maximum) {
        if (m_atEnd) {
            bar->setValue(maximum);
        }
    });
}

void TapeView::replaceTail(std::size_t offset, std::string_view text) {
    QScrollBar* bar = verticalScrollBar();
    const bool following = bar->value() >= bar->maximum() - 1;
    // The first line at or after the offset; the calculator only changes whole lines.
    const auto first = std::lower_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
    const int firstBlock = static_cast<int>(first - m_lineStarts.begin());
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    if (first != m_lineStarts.end()) {
        if (firstBlock == 0) {
            cursor.select(QTextCursor::Document);
        } else {
            // From the end of the line before it, so that no empty line is left behind.
            cursor.setPosition(document()->findBlockByNumber(firstBlock - 1).position() +
                               document()->findBlockByNumber(firstBlock - 1).length() - 1);
            cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
        }
        cursor.removeSelectedText();
        m_lineStarts.erase(first, m_lineStarts.end());
    }
    cursor.movePosition(QTextCursor::End);
    if (!text.empty()) {
        QString added = documentText(text);
        if (!m_lineStarts.empty()) {
            added.prepend(QLatin1Char('\n'));
        }
        cursor.insertText(added);
    }
    cursor.endEditBlock();
    appendLines(offset, text);
    if (following) {
        scrollToEnd();
    }
}

void TapeView::reset(std::string_view wholeText) {
    m_lineStarts.clear();
    setPlainText(documentText(wholeText));
    appendLines(0, wholeText);
    scrollToEnd();
}

void TapeView::appendLines(std::size_t offset, std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        m_lineStarts.push_back(offset + at);
        const std::size_t end = text.find("\r\n", at);
        at = end == std::string_view::npos ? text.size() : end + 2;
    }
}

void TapeView::selectBytes(std::size_t offset, std::size_t length) {
    const auto after = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
    if (after == m_lineStarts.begin()) {
        return;
    }
    const int line = static_cast<int>(after - m_lineStarts.begin()) - 1;
    const QTextBlock block = document()->findBlockByNumber(line);
    const QByteArray bytes = block.text().toUtf8();
    const std::size_t column = offset - m_lineStarts[static_cast<std::size_t>(line)];
    const int start = static_cast<int>(QString::fromUtf8(bytes.left(static_cast<qsizetype>(column))).size());
    const int count = static_cast<int>(
        QString::fromUtf8(bytes.mid(static_cast<qsizetype>(column), static_cast<qsizetype>(length))).size());
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + start);
    cursor.setPosition(block.position() + start + count, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    ensureCursorVisible();
}

void TapeView::selectLine(int line) {
    const QTextBlock block = document()->findBlockByNumber(line);
    if (!block.isValid()) {
        return;
    }
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    ensureCursorVisible();
}

void TapeView::setEditing(bool editing) {
    setReadOnly(!editing);
    setTextInteractionFlags(editing ? Qt::TextEditorInteraction
                                    : Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    if (editing) {
        setFocus();
    }
}

std::string TapeView::editedText() const {
    QString text = toPlainText();
    if (!text.isEmpty()) {
        text.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
        text.append(QStringLiteral("\r\n"));
    }
    return text.toStdString();
}

void TapeView::scrollLines(int lines) {
    verticalScrollBar()->setValue(verticalScrollBar()->value() + lines);
}

void TapeView::scrollToEnd() {
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void TapeView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (editing()) {
        QPlainTextEdit::mouseDoubleClickEvent(event);
        return;
    }
    const QTextCursor cursor = cursorForPosition(event->position().toPoint());
    emit lineActivated(cursor.block().text());
}

}  // namespace zv::app
