#pragma once

#include <QPointer>
#include <memory>
#include <optional>

#include "app/common/tool_window.h"
#include "app/tools/frm_plano.h"
#include "core/tools/interest.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;

namespace zv::app {

// frmJuro: loans and sales on credit at compound monthly interest. Fixed instalments (the rate
// from the instalment or the instalment from the rate), the savings capitalisation and the
// discount of a post-dated cheque. Every result goes onto the calculator's tape; a fixed-instalment
// result also opens onto its payment schedule.
class FrmJuro final : public ToolWindow {
    Q_OBJECT
public:
    FrmJuro(const AppContext& app, QWidget* parent);
    ~FrmJuro() override;

    // cmdCalcular: checks the form, then runs the search one trial at a time, each trial shown in
    // the field being found, the window answering between trials. The result follows when the
    // search ends (searching() turns false).
    void cmdCalcular_Click();
    void cmdCapitalizar_Click();
    void cmdDescontar_Click();
    void cmdAjuda_Click();
    // Opens the schedule of the last fixed-instalment result.
    void cmdPlano_Click();

    bool searching() const;
    // The schedule window of the last result, when it is open.
    FrmPlano* schedule() const { return m_plano.data(); }

    // Time between two trials of a search, so that the user sees it converge: a search of some
    // eighty trials takes about half a second.
    static constexpr int kTrialIntervalMs = 6;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct Running;

    QLineEdit* addMoneyField(const char* name);
    void chkVista_Click();
    void nextTrial();
    void finishSearch();
    void stopSearch();
    void setFormEditable(bool editable);
    void showResult(const tools::LoanResult& result);
    void refuse(tools::LoanError error);
    // The savings and cheque dialogues: the four answers in turn; nullopt when the user cancelled
    // or an answer was refused (the user has been told).
    std::optional<tools::Capitalisation> askCapitalisation(int titleCode, int amountPrompt,
                                                           long long maxDays);
    QString money(double value) const;
    QString rateText(double ratePercent) const;

    QLineEdit* txtValVista = nullptr;
    QLineEdit* txtValPrest = nullptr;
    QLineEdit* txtParcelas = nullptr;
    QLineEdit* txtDias = nullptr;
    QCheckBox* chkVista = nullptr;
    QLineEdit* txtJuroAp = nullptr;
    QLabel* lblJuroTotal = nullptr;
    QLineEdit* txtValFinal = nullptr;
    QPushButton* cmdCalcular = nullptr;
    QPushButton* cmdPlano = nullptr;
    QTimer* m_trials = nullptr;
    QString m_daysBeforeVista;  // the days typed before the first instalment was made a down payment

    std::unique_ptr<Running> m_running;
    // The last fixed-instalment result, for its schedule.
    std::optional<tools::LoanTerms> m_lastTerms;
    std::optional<tools::LoanResult> m_lastResult;
    QPointer<FrmPlano> m_plano;
};

}  // namespace zv::app
