#include "app/calc/tape_view.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>
#include <cstring>

#include "core/calc/tape_line.h"
#include "core/common/text_encoding.h"

namespace zv::app {
namespace {

// The gap between the frame and the text, the one a text document leaves.
constexpr int kMargin = 4;
using calc::kLineEnd;
// How often a drag past the top or bottom edge scrolls one more line.
constexpr int kDragScrollMs = 50;
constexpr std::size_t kRoomToGrow = 64 * 1024;

QString fromUtf8(std::string_view bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

// Tape text as a plain-text editor holds it: LF between lines, no final line break.
QString documentText(std::string_view text) {
    if (text.ends_with(kLineEnd)) {
        text.remove_suffix(kLineEnd.size());
    }
    QString out = fromUtf8(text);
    out.remove(QLatin1Char('\r'));
    return out;
}

}  // namespace

TapeView::TapeView(QWidget* parent) : QAbstractScrollArea(parent) {
    setObjectName(QStringLiteral("txtFita"));
    setFocusPolicy(Qt::ClickFocus);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    viewport()->setCursor(Qt::IBeamCursor);
    // A view that shows the newest line keeps showing it when the rows are laid out again (other
    // letters, another height): the range grows under it and it follows.
    QScrollBar* bar = verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this,
            [this, bar](int value) { m_atEnd = value >= bar->maximum(); });
    connect(bar, &QScrollBar::rangeChanged, this, [this, bar](int, int maximum) {
        if (m_atEnd) {
            bar->setValue(maximum);
        }
    });
    updateBars();
}

void TapeView::replaceTail(std::size_t offset, std::string_view text) {
    QScrollBar* bar = verticalScrollBar();
    const bool following = bar->value() >= bar->maximum() - 1;
    if (m_editing) {
        editorFollows(offset, text);
    }
    offset = std::min(offset, m_text.size());
    // The lines from the one the offset falls in are laid out again; the calculator only changes
    // whole lines, so that is normally the first line at the offset.
    auto first = std::lower_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
    if (first != m_lineStarts.begin() && !std::string_view(m_text).substr(0, offset).ends_with(kLineEnd)) {
        --first;
    }
    const std::size_t from = first == m_lineStarts.end() ? offset : *first;
    const auto kept = static_cast<std::size_t>(first - m_lineStarts.begin());
    const bool widestGone = std::find(m_lineColumns.begin() + static_cast<std::ptrdiff_t>(kept),
                                      m_lineColumns.end(), m_widest) != m_lineColumns.end();
    m_lineStarts.erase(first, m_lineStarts.end());
    m_lineColumns.resize(kept);
    if (widestGone) {
        m_widest = m_lineColumns.empty() ? 0 : *std::max_element(m_lineColumns.begin(), m_lineColumns.end());
    }
    m_text.resize(offset);
    m_text.append(text);
    appendLines(from);
    m_anchor = std::min(m_anchor, offset);
    m_cursor = std::min(m_cursor, offset);
    updateBars();
    if (following) {
        scrollToEnd();
    }
    viewport()->update();
}

void TapeView::reset(std::string_view wholeText) {
    // Room for the lines still to come, and for a long tape's line list at one go (a tape line
    // is some 28 bytes): each copy of a growing block would touch all of its memory again.
    m_text.clear();
    m_text.reserve(wholeText.size() + kRoomToGrow);
    m_text.assign(wholeText);
    m_lineStarts.clear();
    m_lineColumns.clear();
    m_lineStarts.reserve(wholeText.size() / 24 + 1024);
    m_lineColumns.reserve(wholeText.size() / 24 + 1024);
    m_widest = 0;
    appendLines(0);
    m_anchor = m_cursor = 0;
    if (m_editing) {
        m_editor->setPlainText(documentText(m_text));
    }
    updateBars();
    scrollToEnd();
    viewport()->update();
}

void TapeView::appendLines(std::size_t from) {
    const std::string_view all(m_text);
    std::size_t at = from;
    while (at < all.size()) {
        // Lines end in CR LF: the LF is found with memchr, many times faster over a long tape.
        const auto* lf = static_cast<const char*>(std::memchr(all.data() + at, '\n', all.size() - at));
        const std::size_t end = lf == nullptr || lf == all.data() + at || lf[-1] != '\r'
                                    ? all.find(kLineEnd, at)
                                    : static_cast<std::size_t>(lf - all.data()) - 1;
        const std::size_t textEnd = end == std::string_view::npos ? all.size() : end;
        const int columns = static_cast<int>(common::utf8Length(all.substr(at, textEnd - at)));
        m_lineStarts.push_back(at);
        m_lineColumns.push_back(columns);
        m_widest = std::max(m_widest, columns);
        at = end == std::string_view::npos ? all.size() : end + kLineEnd.size();
    }
}

std::size_t TapeView::lineEnd(std::size_t line) const {
    const std::size_t next = line + 1 < m_lineStarts.size() ? m_lineStarts[line + 1] : m_text.size();
    const std::string_view whole = std::string_view(m_text).substr(0, next);
    return whole.ends_with(kLineEnd) && next - kLineEnd.size() >= m_lineStarts[line] ? next - kLineEnd.size()
                                                                                     : next;
}

QString TapeView::lineText(int line) const {
    if (line < 0 || line >= lineCount()) {
        return {};
    }
    const auto index = static_cast<std::size_t>(line);
    const std::size_t start = m_lineStarts[index];
    return fromUtf8(std::string_view(m_text).substr(start, lineEnd(index) - start));
}

QString TapeView::toPlainText() const {
    return m_editing ? m_editor->toPlainText() : documentText(m_text);
}

int TapeView::rowHeight() const {
    return std::max(1, QFontMetrics(font()).height());
}

int TapeView::rowsInView() const {
    return std::max(1, (viewport()->height() - kMargin) / rowHeight());
}

void TapeView::updateBars() {
    const int rows = rowsInView();
    QScrollBar* vertical = verticalScrollBar();
    vertical->setRange(0, std::max(0, lineCount() - rows));
    vertical->setPageStep(rows);
    vertical->setSingleStep(1);
    const int charWidth = QFontMetrics(font()).horizontalAdvance(QLatin1Char('0'));
    const int width = m_widest * charWidth + 2 * kMargin;
    QScrollBar* horizontal = horizontalScrollBar();
    horizontal->setRange(0, std::max(0, width - viewport()->width()));
    horizontal->setPageStep(viewport()->width());
    horizontal->setSingleStep(charWidth);
}

QRect TapeView::cellRect(int line, int column) const {
    const QFontMetrics metrics(font());
    const int x =
        kMargin - horizontalScrollBar()->value() + metrics.horizontalAdvance(lineText(line).left(column));
    const int y = kMargin + (line - verticalScrollBar()->value()) * rowHeight();
    return {x, y, metrics.horizontalAdvance(QLatin1Char('0')), rowHeight()};
}

void TapeView::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    painter.setFont(font());
    const QFontMetrics metrics(font());
    const int row = rowHeight();
    const int left = kMargin - horizontalScrollBar()->value();
    const std::size_t selectedFrom = std::min(m_anchor, m_cursor);
    const std::size_t selectedTo = std::max(m_anchor, m_cursor);
    const QColor text = palette().color(QPalette::Text);
    const std::string_view all(m_text);
    int y = kMargin;
    for (int line = verticalScrollBar()->value(); line < lineCount() && y < viewport()->height();
         ++line, y += row) {
        const QString shown = lineText(line);
        painter.setPen(text);
        painter.drawText(left, y + metrics.ascent(), shown);
        const std::size_t start = m_lineStarts[static_cast<std::size_t>(line)];
        const std::size_t end = lineEnd(static_cast<std::size_t>(line));
        if (selectedFrom >= selectedTo || selectedFrom > end || selectedTo <= start) {
            continue;
        }
        const auto column = [&](std::size_t at) {
            return at <= start ? 0
                   : at >= end ? shown.size()
                               : fromUtf8(all.substr(start, at - start)).size();
        };
        const int x1 = left + metrics.horizontalAdvance(shown.left(column(selectedFrom)));
        int x2 = left + metrics.horizontalAdvance(shown.left(column(selectedTo)));
        if (selectedTo > end) {
            x2 += metrics.horizontalAdvance(QLatin1Char(' '));  // the line break is selected too
        }
        const QRect band(x1, y, x2 - x1, row);
        painter.fillRect(band, palette().color(QPalette::Highlight));
        painter.save();
        painter.setClipRect(band);
        painter.setPen(palette().color(QPalette::HighlightedText));
        painter.drawText(left, y + metrics.ascent(), shown);
        painter.restore();
    }
}

void TapeView::scrollContentsBy(int, int) {
    viewport()->update();
}

void TapeView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    if (m_editor != nullptr) {
        m_editor->setGeometry(rect());
    }
    updateBars();
}

void TapeView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        updateBars();
        viewport()->update();
    }
}

// ---- selection --------------------------------------------------------------------------------

void TapeView::select(std::size_t anchor, std::size_t cursor) {
    m_anchor = std::min(anchor, m_text.size());
    m_cursor = std::min(cursor, m_text.size());
    viewport()->update();
}

void TapeView::showLine(int line, int column) {
    QScrollBar* vertical = verticalScrollBar();
    const int rows = rowsInView();
    if (line < vertical->value()) {
        vertical->setValue(line);
    } else if (line >= vertical->value() + rows) {
        vertical->setValue(line - rows + 1);
    }
    QScrollBar* horizontal = horizontalScrollBar();
    const int x = kMargin + QFontMetrics(font()).horizontalAdvance(lineText(line).left(column));
    const int width = viewport()->width();
    if (x < horizontal->value() + kMargin) {
        horizontal->setValue(x - kMargin);
    } else if (x > horizontal->value() + width - kMargin) {
        horizontal->setValue(x - width + kMargin);
    }
}

void TapeView::selectBytes(std::size_t offset, std::size_t length) {
    const auto after = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
    if (after == m_lineStarts.begin() || offset > m_text.size()) {
        return;
    }
    const auto line = static_cast<std::size_t>(after - m_lineStarts.begin()) - 1;
    const std::size_t start = m_lineStarts[line];
    const std::string_view bytes = std::string_view(m_text).substr(start, lineEnd(line) - start);
    const std::size_t column = offset - start;
    const auto first = static_cast<int>(fromUtf8(bytes.substr(0, column)).size());
    const auto count =
        static_cast<int>(fromUtf8(bytes.substr(std::min(column, bytes.size()), length)).size());
    if (m_editing) {
        // The edited text may have moved on from the tape: the same line and columns of it.
        const QTextBlock block = m_editor->document()->findBlockByNumber(static_cast<int>(line));
        if (block.isValid()) {
            QTextCursor cursor(block);
            cursor.setPosition(block.position() + std::min(first, block.length() - 1));
            cursor.setPosition(block.position() + std::min(first + count, block.length() - 1),
                               QTextCursor::KeepAnchor);
            m_editor->setTextCursor(cursor);
            m_editor->ensureCursorVisible();
        }
        return;
    }
    select(offset, std::min(offset + length, m_text.size()));
    showLine(static_cast<int>(line), first + count);
}

void TapeView::selectLine(int line) {
    if (m_editing) {
        const QTextBlock block = m_editor->document()->findBlockByNumber(line);
        if (block.isValid()) {
            QTextCursor cursor(block);
            cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            m_editor->setTextCursor(cursor);
            m_editor->ensureCursorVisible();
        }
        return;
    }
    if (line < 0 || line >= lineCount()) {
        return;
    }
    const auto index = static_cast<std::size_t>(line);
    select(m_lineStarts[index], lineEnd(index));
    showLine(line, static_cast<int>(lineText(line).size()));
}

void TapeView::selectAll() {
    if (!m_lineStarts.empty()) {
        select(0, lineEnd(m_lineStarts.size() - 1));
    }
}

QString TapeView::selectedText() const {
    if (m_editing) {
        return m_editor->textCursor().selectedText().replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    }
    const std::size_t from = std::min(m_anchor, m_cursor);
    const std::size_t to = std::max(m_anchor, m_cursor);
    return fromUtf8(std::string_view(m_text).substr(from, to - from))
        .replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

void TapeView::copy() {
    if (m_anchor != m_cursor) {
        const QString text = selectedText();
        emit copying(text);
        QGuiApplication::clipboard()->setText(text);
    }
}

bool TapeView::takesKey(const QKeyEvent& event) const {
    return m_editing || (event.matches(QKeySequence::Copy) && m_anchor != m_cursor) ||
           event.matches(QKeySequence::SelectAll);
}

// ---- keyboard and mouse -----------------------------------------------------------------------

bool TapeView::event(QEvent* event) {
    // Copy and select-all go to the rows while they have the focus, before any shortcut of the
    // window with the same keys.
    if (event->type() == QEvent::ShortcutOverride && !m_editing) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (takesKey(*key)) {
            key->accept();
            return true;
        }
    }
    return QAbstractScrollArea::event(event);
}

void TapeView::keyPressEvent(QKeyEvent* event) {
    if (m_editing) {
        event->ignore();  // what the editor leaves goes on to the window
    } else if (event->matches(QKeySequence::Copy)) {
        copy();
    } else if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
    } else {
        QAbstractScrollArea::keyPressEvent(event);
    }
}

int TapeView::lineAt(int y) const {
    const int row = rowHeight();
    const int offset = y - kMargin;
    const int rows = offset >= 0 ? offset / row : (offset - row + 1) / row;
    return std::clamp(verticalScrollBar()->value() + rows, 0, std::max(0, lineCount() - 1));
}

std::size_t TapeView::byteAt(QPoint point) const {
    if (m_lineStarts.empty()) {
        return 0;
    }
    const int line = lineAt(point.y());
    const QString shown = lineText(line);
    const QFontMetrics metrics(font());
    const int x = point.x() - kMargin + horizontalScrollBar()->value();
    // The character boundary nearest to the pointer.
    int column = 0;
    int before = 0;
    while (column < shown.size()) {
        const int after = metrics.horizontalAdvance(shown.left(column + 1));
        if (x < (before + after) / 2) {
            break;
        }
        before = after;
        ++column;
    }
    if (column < shown.size() && shown[column].isLowSurrogate()) {
        ++column;
    }
    return m_lineStarts[static_cast<std::size_t>(line)] +
           static_cast<std::size_t>(shown.left(column).toUtf8().size());
}

void TapeView::extendSelection(QPoint point) {
    select(m_anchor, byteAt(point));
}

void TapeView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        QAbstractScrollArea::mousePressEvent(event);
        return;
    }
    const std::size_t at = byteAt(event->position().toPoint());
    select(event->modifiers().testFlag(Qt::ShiftModifier) ? m_anchor : at, at);
    m_dragging = true;
}

void TapeView::mouseMoveEvent(QMouseEvent* event) {
    if (!m_dragging || !event->buttons().testFlag(Qt::LeftButton)) {
        return;
    }
    m_dragAt = event->position().toPoint();
    extendSelection(m_dragAt);
    // Past the top or bottom edge the rows scroll under the pointer until it comes back.
    if (m_dragAt.y() < 0 || m_dragAt.y() >= viewport()->height()) {
        if (!m_dragScroll.isActive()) {
            m_dragScroll.start(kDragScrollMs, this);
        }
    } else {
        m_dragScroll.stop();
    }
}

void TapeView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_dragScroll.timerId()) {
        QAbstractScrollArea::timerEvent(event);
        return;
    }
    scrollLines(m_dragAt.y() < 0 ? -1 : 1);
    extendSelection(m_dragAt);
}

void TapeView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        QAbstractScrollArea::mouseReleaseEvent(event);
        return;
    }
    m_dragging = false;
    m_dragScroll.stop();
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (m_anchor != m_cursor && clipboard->supportsSelection()) {
        clipboard->setText(selectedText(), QClipboard::Selection);
    }
}

void TapeView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && !m_lineStarts.empty()) {
        emit lineActivated(lineText(lineAt(event->position().toPoint().y())));
    }
}

void TapeView::contextMenuEvent(QContextMenuEvent* event) {
    // The two commands a read-only text offers, in the words of Qt's own translations.
    QMenu menu(this);
    QAction* copyAction =
        menu.addAction(QCoreApplication::translate("QWidgetTextControl", "&Copy"), this, &TapeView::copy);
    copyAction->setShortcut(QKeySequence::Copy);
    copyAction->setEnabled(m_anchor != m_cursor);
    menu.addSeparator();
    QAction* allAction = menu.addAction(QCoreApplication::translate("QWidgetTextControl", "Select All"), this,
                                        &TapeView::selectAll);
    allAction->setShortcut(QKeySequence::SelectAll);
    allAction->setEnabled(!m_lineStarts.empty());
    menu.exec(event->globalPos());
}

void TapeView::scrollLines(int lines) {
    verticalScrollBar()->setValue(verticalScrollBar()->value() + lines);
}

void TapeView::scrollToEnd() {
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

// ---- editing in place -------------------------------------------------------------------------

void TapeView::setEditing(bool editing) {
    if (editing == m_editing) {
        if (editing) {
            m_editor->setFocus();
        }
        return;
    }
    m_editing = editing;
    if (!editing) {
        m_editor->hide();
        m_editor->clear();  // the rows show the tape again; the copy is not kept
        return;
    }
    if (m_editor == nullptr) {
        m_editor = new QPlainTextEdit(this);
        m_editor->setUndoRedoEnabled(false);
        m_editor->setLineWrapMode(QPlainTextEdit::NoWrap);
    }
    m_editor->setGeometry(rect());
    m_editor->setPlainText(documentText(m_text));
    // The edit starts on the lines that were in view.
    const int first = verticalScrollBar()->value();
    m_editor->setTextCursor(QTextCursor(m_editor->document()->findBlockByNumber(first)));
    m_editor->show();
    m_editor->raise();
    m_editor->verticalScrollBar()->setValue(first);
    m_editor->setFocus();
}

std::string TapeView::editedText() const {
    if (!m_editing) {
        return m_text;
    }
    QString text = m_editor->toPlainText();
    if (!text.isEmpty()) {
        text.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
        text.append(QStringLiteral("\r\n"));
    }
    return text.toStdString();
}

void TapeView::editorFollows(std::size_t offset, std::string_view text) {
    // Lines the calculator writes while the tape is edited are written into the edit too, at
    // the same line, so that taking the edit does not drop them.
    const auto first = std::lower_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
    const int firstBlock = static_cast<int>(first - m_lineStarts.begin());
    QTextDocument* document = m_editor->document();
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    if (first != m_lineStarts.end()) {
        const QTextBlock before = document->findBlockByNumber(firstBlock - 1);
        if (firstBlock == 0) {
            cursor.select(QTextCursor::Document);
        } else if (before.isValid()) {
            // From the end of the line before it, so that no empty line is left behind.
            cursor.setPosition(before.position() + before.length() - 1);
            cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
        }
        cursor.removeSelectedText();
    }
    cursor.movePosition(QTextCursor::End);
    if (!text.empty()) {
        QString added = documentText(text);
        if (firstBlock > 0) {
            added.prepend(QLatin1Char('\n'));
        }
        cursor.insertText(added);
    }
    cursor.endEditBlock();
}

}  // namespace zv::app
