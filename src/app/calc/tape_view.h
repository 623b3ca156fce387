#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/calc/tape_sink.h"

class QKeyEvent;
class QPlainTextEdit;

namespace zv::app {

// The paper tape on screen (txtFita): fixed-pitch rows over the tape's own text (UTF-8, CR LF
// lines), of which only the rows in view are painted, so neither a long tape nor a key costs
// more than one screenful. It follows the calculator's tape as a sink. Read-only; editing in
// place lays an editor holding the whole text over the rows until the edit ends.
class TapeView final : public QAbstractScrollArea, public calc::TapeSink {
    Q_OBJECT
public:
    explicit TapeView(QWidget* parent = nullptr);

    void replaceTail(std::size_t offset, std::string_view text) override;
    void reset(std::string_view wholeText) override;

    // Selects `length` bytes of the tape from byte `offset` and scrolls them into view.
    void selectBytes(std::size_t offset, std::size_t length);
    // Selects the whole line `line` (0-based) of what the view shows and scrolls it into view.
    void selectLine(int line);
    void selectAll();
    // The selection, lines ended by LF as the clipboard takes them (the platform's clipboard
    // gives them the system's line ends).
    QString selectedText() const;
    void copy();
    // Keys the view answers itself rather than leaving them to the calculator: all while
    // editing, otherwise copy and select-all.
    bool takesKey(const QKeyEvent& event) const;

    void setEditing(bool editing);
    bool editing() const { return m_editing; }
    // The text as edited, lines ended by CR LF.
    std::string editedText() const;
    // The editor laid over the rows while editing; null before the first edit.
    QPlainTextEdit* editor() const { return m_editor; }

    void scrollLines(int lines);
    void scrollToEnd();
    int lineCount() const { return static_cast<int>(m_lineStarts.size()); }
    QString lineText(int line) const;
    // What the view shows, lines joined by LF, no final line break.
    QString toPlainText() const;
    // Where column `column` (in characters) of line `line` is drawn, in viewport coordinates.
    QRect cellRect(int line, int column) const;

signals:
    // A line was double-clicked: its text.
    void lineActivated(const QString& line);
    // The selection is about to go to the clipboard: the text it will hold.
    void copying(const QString& text);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void appendLines(std::size_t offset);
    // The end of line `line`'s text, before its CR LF.
    std::size_t lineEnd(std::size_t line) const;
    int rowHeight() const;
    int rowsInView() const;
    void updateBars();
    int lineAt(int y) const;
    // The tape byte nearest to a point of the viewport, on a character boundary.
    std::size_t byteAt(QPoint point) const;
    void extendSelection(QPoint point);
    void select(std::size_t anchor, std::size_t cursor);
    void showLine(int line, int column);
    void editorFollows(std::size_t offset, std::string_view text);

    std::string m_text;
    std::vector<std::size_t> m_lineStarts;  // the byte offset in the tape of each line shown
    std::vector<int> m_lineColumns;         // the characters of each line
    int m_widest = 0;                       // the most characters on a line
    std::size_t m_anchor = 0;               // the selection: bytes from the lesser to the greater
    std::size_t m_cursor = 0;
    bool m_atEnd = true;  // the last line is in view
    bool m_dragging = false;
    bool m_editing = false;
    QPoint m_dragAt;  // where the pointer is while a drag scrolls the rows under it
    QBasicTimer m_dragScroll;
    QPlainTextEdit* m_editor = nullptr;
};

}  // namespace zv::app
