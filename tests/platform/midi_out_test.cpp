#include "platform/midi_out.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
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
    const auto first = std::min(samples.size(), static_cast<std::size_t>(from * kRate));
    const auto last = std::min(samples.size(), static_cast<std::size_t>(to * kRate));
    float loudest = 0;
    for (std::size_t i = first; i < last; ++i) {
        loudest = std::max(loudest, std::fabs(samples[i]));
    }
    return loudest;
}

class KeyNoteRenderTest : public ::testing::Test {
protected:
    void SetUp() override {
        if ((m_soundFont = findGeneralMidiSoundFont()).empty()) {
            GTEST_SKIP() << "no General MIDI sound font installed";
        }
    }
    // One second of silence, the key struck, then `seconds` more.
    std::vector<float> strike(int program, double seconds) const {
        return renderKeyNote(
            {m_soundFont, program, 60, kRate, static_cast<int>((1 + seconds) * kRate), kRate});
    }
    std::string m_soundFont;
};

TEST_F(KeyNoteRenderTest, SoundsFromTheStrikeOnly) {
    const std::vector<float> piano = strike(0, 1);
    ASSERT_EQ(piano.size(), 2u * kRate);
    EXPECT_LT(peak(piano, 0, 1), 1e-5f);  // the effects keep a tiny offset against denormals
    EXPECT_GT(peak(piano, 1, 1.2), 0.01f);
    EXPECT_TRUE(renderKeyNote({"/nonexistent/none.sf2", 0, 60, 0, kRate, kRate}).empty());
}

TEST_F(KeyNoteRenderTest, TheProgramChoosesTheInstrument) {
    const std::vector<float> piano = strike(0, 0.3);
    const std::vector<float> flute = strike(73, 0.3);
    ASSERT_EQ(piano.size(), flute.size());
    double difference = 0;
    double pianoLevel = 0;
    for (std::size_t i = 0; i < piano.size(); ++i) {
        difference += std::fabs(piano[i] - flute[i]);
        pianoLevel += std::fabs(piano[i]);
    }
    EXPECT_GT(difference, 0.5 * pianoLevel);
}

TEST_F(KeyNoteRenderTest, SustainedInstrumentsStopAfterTheNoteOff) {
    const double noteOff = 1 + kKeyNoteMs / 1000.0;
    for (const int program : {48, 50, 19}) {  // string ensemble, synth strings, organ
        SCOPED_TRACE(program);
        const std::vector<float> note = strike(program, 4);
        const float sounding = peak(note, 1, noteOff - 0.05);
        EXPECT_GT(sounding, 0.01f);
        EXPECT_GT(peak(note, noteOff - 0.1, noteOff - 0.02), 0.3f * sounding) << "cut before its note-off";
        EXPECT_LT(peak(note, noteOff + 2.5, noteOff + 3.5), 0.01f * sounding) << "still ringing";
    }
}

#endif

}  // namespace
}  // namespace zv::platform
