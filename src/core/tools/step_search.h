#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace zv::tools {

// A search by decimal steps that shrink tenfold and change direction each time: each step is
// repeated while the signal keeps asking for its direction (above zero: raise the value; below
// zero: lower it). The value moves on a grid of whole units (a cent, a millionth of a percent),
// so every trial value is exact in that unit and the result does not drift.
//
// The search is stepped one trial at a time so that a window can show every trial value and stay
// responsive between them; `run` does the whole search at once.
class StepSearch {
public:
    // Above zero: the value should go up; below zero: down; zero: it is the root.
    using Signal = std::function<double(double value)>;

    struct Grid {
        double perOne;    // grid steps in a value of one: 100 for cents
        long long start;  // in units
        long long lowest;
        long long highest;
    };

    // `steps` in units, signed: +1000 raises by 1000 units, -100 lowers by 100.
    StepSearch(Signal signal, Grid grid, std::vector<long long> steps);

    // One trial: evaluates the signal at the current value, then moves the value by the current
    // step or, when the signal no longer asks for that direction, goes on to the next step.
    // Returns false once the search has finished or failed.
    bool step();
    // All the trials left.
    void run();

    bool finished() const { return m_phase == m_steps.size(); }
    // The value left the grid's bounds, the signal was no number, or the trials ran out.
    bool failed() const { return m_failed; }
    // The current trial value (the result once finished).
    // Dividing keeps the value the double nearest to its decimal: 101505 cents is 1015.05.
    double value() const { return static_cast<double>(m_units) / m_grid.perOne; }
    std::size_t trials() const { return m_trials; }

    // Trials one search may make before it is declared failed.
    static constexpr std::size_t kMaxTrials = 1'000'000;

private:
    Signal m_signal;
    Grid m_grid;
    std::vector<long long> m_steps;
    std::size_t m_phase = 0;
    long long m_units;
    double m_lastSignal = 0;
    bool m_evaluated = false;
    bool m_failed = false;
    std::size_t m_trials = 0;
};

}  // namespace zv::tools
