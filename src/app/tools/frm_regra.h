#pragma once

#include <array>

#include "app/common/tool_window.h"
#include "core/tools/rule_of_three.h"

class QButtonGroup;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace zv::app {

// frmRegra: simple and compound rules of three. Each row is a quantity with its value in the base
// situation and in the new one; the marked row's new value is found. For every other row the user
// is asked whether raising it raises the unknown, and the row's picture shows the answer.
class FrmRegra final : public ToolWindow {
    Q_OBJECT
public:
    FrmRegra(const AppContext& app, QWidget* parent);

    // cmdCalcular: the checks, one question per known row, the result into the marked row.
    void cmdCalcular_Click();
    // cmdExemplo, cmdExemplo2: the two guided examples, one box at a time.
    void cmdExemplo_Click();
    void cmdExemplo2_Click();
    // cmdImprimir: the window as shown, through the print dialog and its preview.
    void cmdImprimir_Click();

private:
    using Rows = std::array<QLineEdit*, tools::kRuleRows>;
    enum class Picture { None, Direct, Inverse };

    void setPicture(std::size_t row, Picture picture);
    void markUnknown(std::optional<std::size_t> row);
    void say(int code);

    Rows txtValor = {};
    Rows txtCond = {};
    Rows txtValor2 = {};
    std::array<QLabel*, tools::kRuleRows> txtCond2 = {};
    std::array<QRadioButton*, tools::kRuleRows> optInc = {};
    std::array<QLabel*, tools::kRuleRows> imgVal = {};
    QButtonGroup* m_unknown = nullptr;
    QPushButton* cmdCalcular = nullptr;
    QPushButton* cmdExemplo = nullptr;
    QPushButton* cmdExemplo2 = nullptr;
    QPushButton* cmdImprimir = nullptr;
};

}  // namespace zv::app
