#pragma once

#include <string>
#include <vector>

namespace zv::platform {

// How long a key's note sounds before its note-off. Keys are struck, not held: without a note-off,
// sustained instruments (strings, organ, synth pads) would ring until the output closes.
inline constexpr int kKeyNoteMs = 400;

// The first General MIDI sound font found where Linux distributions install one (the synthesizer's
// own configured default first); empty when there is none.
std::string findGeneralMidiSoundFont();

struct KeyNoteRender {
    std::string soundFont;
    int program = 0;
    int noteNumber = 60;
    int framesBefore = 0;  // silence rendered before the key is struck
    int frames = 0;        // length of the whole render, framesBefore included
    int sampleRate = 44100;
};

// Strikes one key on the synthesizer set up exactly as the key sounds set it up (channel 4, the
// program, a note-off kKeyNoteMs later), but with no audio device, and returns the rendered frames
// with left and right mixed. Empty when the synthesizer or the sound font cannot be set up.
std::vector<float> renderKeyNote(const KeyNoteRender& render);

}  // namespace zv::platform
