#pragma once

#include <QPlainTextEdit>
#include <cstddef>
#include <vector>

#include "core/calc/tape_sink.h"

namespace zv::app {

// The paper tape on screen (txtFita): a fixed-pitch, scrollable view that follows the tape line
// by line as a sink of the calculator's tape, so a key costs the same on any length of tape.
// Read-only, except while the user edits the tape in place.
class TapeView final : public QPlainTextEdit, public calc::TapeSink {
    Q_OBJECT
public:
    explicit TapeView(QWidget* parent = nullptr);

    void replaceTail(std::size_t offset, std::string_view text) override;
    void reset(std::string_view wholeText) override;

    // Selects `length` bytes of the tape from byte `offset` and scrolls them into view.
    void selectBytes(std::size_t offset, std::size_t length);

    // Selects the whole line `line` (0-based) of what the view shows and scrolls it into view.
    void selectLine(int line);

    void setEditing(bool editing);
    bool editing() const { return !isReadOnly(); }
    // The text as edited, lines ended by CR LF.
    std::string editedText() const;

    void scrollLines(int lines);
    void scrollToEnd();
    int lineCount() const { return static_cast<int>(m_lineStarts.size()); }

signals:
    // A line was double-clicked: its text.
    void lineActivated(const QString& line);

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void appendLines(std::size_t offset, std::string_view text);

    std::vector<std::size_t> m_lineStarts;
    bool m_atEnd = true;  // the last line is in view  // the byte offset in the tape of each line shown
};

}  // namespace zv::app
