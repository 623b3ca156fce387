#pragma once

#include <array>

#include "app/common/tool_window.h"

class QLabel;
class QLineEdit;
class QListWidget;

namespace zv::app {

// frmConverte: one value from a chosen unit into every related unit at once, in four result
// slots; Enter on a result copies it with its text.
class FrmConverte final : public ToolWindow {
    Q_OBJECT
public:
    FrmConverte(const AppContext& app, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Converte();
    void copyResult(int slot);

    QLineEdit* txtValor1 = nullptr;
    QListWidget* lstTipo = nullptr;
    std::array<QLabel*, 4> lblResult = {};
    std::array<QLineEdit*, 4> txtResult = {};
};

}  // namespace zv::app
