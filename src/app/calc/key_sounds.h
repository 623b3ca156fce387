#pragma once

#include <functional>
#include <memory>

#include "core/calc/calc_settings.h"
#include "platform/midi_out.h"

namespace zv::app {

// What a key sounds like: nothing, the system beep, or a note of the chosen instrument. A note that
// cannot sound (no synthesizer, no sound device, not opened yet) is a beep instead, so a key that
// should sound is never silent.
class KeySounds {
public:
    using MidiFactory = std::function<std::unique_ptr<platform::MidiOut>()>;

    // `makeMidi` may be empty: there is no synthesizer. `beep` sounds the system beep.
    KeySounds(MidiFactory makeMidi, std::function<void()> beep);
    ~KeySounds();

    // The sound in force; leaving musical sound closes the output.
    void choose(calc::KeySound sound, int instrument);
    // Opens the synthesizer for musical sound (again, after a change of instrument). False when
    // musical sound is chosen and the output cannot be opened; true otherwise.
    bool startSynthesizer();
    // The sound of a key as Form_KeyPress understood it.
    void strike(int acceptedKey);

private:
    MidiFactory m_makeMidi;
    std::function<void()> m_beep;
    std::unique_ptr<platform::MidiOut> m_midi;
    calc::KeySound m_sound = calc::KeySound::None;
    int m_instrument = 0;
};

}  // namespace zv::app
