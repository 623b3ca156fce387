#pragma once

#include <memory>
#include <vector>

#include "platform/midi_out.h"

namespace zv::fakes {

// A synthesizer that opens or not, as the test says, and keeps the notes it played.
struct FakeSynth {
    bool opens = true;
    int openings = 0;
    std::vector<int> notes;

    std::unique_ptr<platform::MidiOut> make() {
        struct Out final : platform::MidiOut {
            explicit Out(FakeSynth& s) : synth(s) {}
            bool open(int) override {
                ++synth.openings;
                on = synth.opens;
                return on;
            }
            void note(int number) override {
                if (on) {
                    synth.notes.push_back(number);
                }
            }
            void close() override { on = false; }
            bool isOpen() const override { return on; }
            FakeSynth& synth;
            bool on = false;
        };
        return std::make_unique<Out>(*this);
    }
};

}  // namespace zv::fakes
