#include "core/tools/step_search.h"

#include <cmath>
#include <utility>

namespace zv::tools {

StepSearch::StepSearch(Signal signal, Grid grid, std::vector<long long> steps)
    : m_signal(std::move(signal)), m_grid(grid), m_steps(std::move(steps)), m_units(grid.start) {}

bool StepSearch::step() {
    if (finished() || m_failed) {
        return false;
    }
    if (!m_evaluated) {
        if (m_trials == kMaxTrials) {
            m_failed = true;
            return false;
        }
        m_lastSignal = m_signal(value());
        ++m_trials;
        m_evaluated = true;
        if (!std::isfinite(m_lastSignal)) {
            m_failed = true;
            return false;
        }
    }
    // The value stays where it is between steps, so its signal serves the next step as well.
    while (!finished()) {
        const long long move = m_steps[m_phase];
        const bool asked = move > 0 ? m_lastSignal > 0 : m_lastSignal < 0;
        if (asked) {
            m_units += move;
            m_evaluated = false;
            if (m_units < m_grid.lowest || m_units > m_grid.highest) {
                m_failed = true;
                return false;
            }
            return true;
        }
        ++m_phase;
    }
    return false;
}

void StepSearch::run() {
    while (step()) {
    }
}

}  // namespace zv::tools
