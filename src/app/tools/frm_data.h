#pragma once

#include <array>

#include "app/common/tool_window.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace zv::app {

// frmData: adds a span of years, months, weeks and days to a date, or breaks the span between two
// dates down into them, counts the leap days inside it, and appends the result to the tape.
// With a final date and no span typed, Calculate breaks the span down; otherwise it adds the
// span to the initial date.
class FrmData final : public ToolWindow {
    Q_OBJECT
public:
    FrmData(const AppContext& app, QWidget* parent);

    // cmdCalcula: validates, shows the result and appends its block to the tape.
    void cmdCalcula_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showWeekday(int field);
    void pickDate(int field);

    std::array<QLineEdit*, 2> txtData = {};       // initial, final
    std::array<QLabel*, 2> m_weekdays = {};       // the weekday of each date, once it is one
    std::array<QLineEdit*, 4> m_spanFields = {};  // txtAnos, txtMeses, txtSemanas, txtDias
    QLabel* lblBissextos = nullptr;
    QLabel* m_longDate = nullptr;
    QPushButton* cmdCalcula = nullptr;
};

}  // namespace zv::app
