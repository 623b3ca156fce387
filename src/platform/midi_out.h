#pragma once

#include <memory>

namespace zv::platform {

// General MIDI output for the key sounds: the chosen instrument on MIDI channel 4, one note per
// key. Windows plays through the system's MIDI mapper; Linux through a software synthesizer with
// a General MIDI sound font, so no external synthesizer is needed.
class MidiOut {
public:
    virtual ~MidiOut() = default;
    // Opens the output and selects `program` (0..127) on channel 4 (program change 0xC3).
    // False when there is no output to open (no audio device, no sound font).
    virtual bool open(int program) = 0;
    // A note-on on channel 4 (0x93); it ends by itself shortly after.
    virtual void note(int noteNumber) = 0;
    virtual void close() = 0;
    virtual bool isOpen() const = 0;
};

// The implementation of the platform the program runs on.
std::unique_ptr<MidiOut> makeMidiOut();

}  // namespace zv::platform
