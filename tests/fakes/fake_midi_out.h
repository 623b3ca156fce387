#pragma once

#include <memory>
#include <vector>

#include "platform/midi_out.h"

namespace zv::fakes {

// A synthesizer that opens or not, as the test says, and keeps what it was asked.
struct FakeSynth {
    bool opens = true;
    int openings = 0;
    std::vector<int> notes;

    std::unique_ptr<platform::MidiOut> make();
};

class FakeMidiOut final : public platform::MidiOut {
public:
    explicit FakeMidiOut(FakeSynth& synth) : m_synth(synth) {}
    bool open(int) override {
        ++m_synth.openings;
        m_open = m_synth.opens;
        return m_open;
    }
    void note(int noteNumber) override {
        if (m_open) {
            m_synth.notes.push_back(noteNumber);
        }
    }
    void close() override { m_open = false; }
    bool isOpen() const override { return m_open; }

private:
    FakeSynth& m_synth;
    bool m_open = false;
};

inline std::unique_ptr<platform::MidiOut> FakeSynth::make() {
    return std::make_unique<FakeMidiOut>(*this);
}

}  // namespace zv::fakes
