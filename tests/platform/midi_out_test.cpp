#include "platform/midi_out.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

#ifndef _WIN32
#include "platform/linux/fluid_render.h"
#endif

namespace zv::platform {
namespace {

TEST(MidiOut, OpensOrFailsCleanlyAndIgnoresNotesOnceClosed) {
    const std::unique_ptr<MidiOut> out = makeMidiOut();
    const bool opened = out->open(50);
    EXPECT_EQ(out->isOpen(), opened);
    out->note(60);
    out->close();
    EXPECT_FALSE(out->isOpen());
    out->note(60);
}

#ifndef _WIN32

constexpr int kRate = 44100;

// The loudest sample between two times, in seconds from the start of the render.
float peak(const std::vector<float>& samples, double from, double to) {
    float loudest = 0;
    for (auto i = static_cast<std::size_t>(from * kRate);
         i < std::min(samples.size(), std::size_t(to * kRate)); ++i) {
        loudest = std::max(loudest, std::fabs(samples[i]));
    }
    return loudest;
}

TEST(KeyNoteRender, TheChosenInstrumentSoundsFromTheStrikeUntilTheNoteOff) {
    const std::string font = findGeneralMidiSoundFont();
    if (font.empty()) {
        GTEST_SKIP() << "no General MIDI sound font installed";
    }
    EXPECT_TRUE(renderKeyNote({"/nonexistent/none.sf2", 0, 60, 0, kRate, kRate}).empty());
    const double noteOff = 1 + kKeyNoteMs / 1000.0;
    // One second of silence, the key struck, and the render going on well past its note-off.
    auto strike = [&](int program) {
        return renderKeyNote({font, program, 60, kRate, static_cast<int>((noteOff + 3.5) * kRate), kRate});
    };
    const std::vector<float> piano = strike(0);
    const double pianoLevel = std::transform_reduce(piano.begin(), piano.end(), 0.0, std::plus<>(),
                                                    [](float sample) { return std::fabs(sample); });
    const std::pair<const char*, int> rows[] = {
        {"flute", 73}, {"string ensemble", 48}, {"synth strings", 50}, {"organ", 19}};
    for (const auto& [label, program] : rows) {
        SCOPED_TRACE(label);
        const std::vector<float> note = strike(program);
        ASSERT_EQ(note.size(), piano.size());
        const float sounding = peak(note, 1, noteOff - 0.05);
        const double unlikePiano =
            std::transform_reduce(piano.begin(), piano.end(), note.begin(), 0.0, std::plus<>(),
                                  [](float a, float b) { return std::fabs(a - b); });
        EXPECT_LT(peak(note, 0, 1), 1e-5f);  // the effects keep a tiny offset against denormals
        EXPECT_GT(sounding, 0.01f);
        EXPECT_GT(peak(note, noteOff - 0.1, noteOff - 0.02), 0.3f * sounding) << "cut before its note-off";
        EXPECT_LT(peak(note, noteOff + 2.5, noteOff + 3.5), 0.01f * sounding) << "still ringing";
        EXPECT_GT(unlikePiano, 0.5 * pianoLevel) << "sounds like the piano";
    }
}

#endif

}  // namespace
}  // namespace zv::platform
