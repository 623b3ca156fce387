#include <dlfcn.h>
#include <fluidsynth.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "platform/linux/fluid_render.h"
#include "platform/midi_out.h"

namespace zv::platform {
namespace {

constexpr int kChannel = 3;  // MIDI channel 4: program change 0xC3, note-on 0x93
constexpr int kVelocity = 100;
constexpr double kSampleRate = 44100.0;

// Tried in this order; the library leaves out those it was built without. JACK is left out because
// desktops that run it also bridge PulseAudio or PipeWire, SDL because its driver needs the
// application to have started SDL's audio itself, and "file" because it would write a file.
constexpr const char* kAudioDrivers[] = {"pipewire", "pulseaudio", "alsa"};

// The synthesizer library is loaded when key sounds are first opened, not when the program
// starts: it brings some forty audio and codec libraries with it, which would otherwise slow
// every start-up whether or not the keys sound.
struct FluidApi {
// clang-format off
#define ZV_FLUID_FUNCTIONS(X)                                                                \
    X(new_fluid_settings) X(delete_fluid_settings) X(fluid_settings_setnum)                  \
    X(fluid_settings_setint) X(fluid_settings_setstr) X(fluid_settings_dupstr) X(fluid_free) \
    X(new_fluid_synth) X(delete_fluid_synth) X(fluid_synth_sfload)                           \
    X(fluid_synth_program_change) X(fluid_synth_write_float) X(new_fluid_sequencer2)         \
    X(delete_fluid_sequencer) X(fluid_sequencer_register_fluidsynth)                         \
    X(fluid_sequencer_send_at) X(new_fluid_event) X(delete_fluid_event)                      \
    X(fluid_event_set_source) X(fluid_event_set_dest) X(fluid_event_note)                    \
    X(new_fluid_audio_driver) X(delete_fluid_audio_driver) X(fluid_set_log_function)
// clang-format on
#define ZV_FLUID_MEMBER(name) decltype(&::name) name = nullptr;
    ZV_FLUID_FUNCTIONS(ZV_FLUID_MEMBER)
#undef ZV_FLUID_MEMBER
    bool loaded = false;
};

// Loaded once and never changed afterwards; nullptr-free only when every function was found.
const FluidApi& fluid() {
    static const FluidApi api = [] {
        FluidApi loaded;
        void* library = dlopen("libfluidsynth.so.3", RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr) {
            library = dlopen("libfluidsynth.so", RTLD_NOW | RTLD_LOCAL);
        }
        if (library == nullptr) {
            return loaded;
        }
        bool all = true;
#define ZV_FLUID_RESOLVE(name)                                                \
    loaded.name = reinterpret_cast<decltype(&::name)>(dlsym(library, #name)); \
    all = all && loaded.name != nullptr;
        ZV_FLUID_FUNCTIONS(ZV_FLUID_RESOLVE)
#undef ZV_FLUID_RESOLVE
        loaded.loaded = all;
        return loaded;
    }();
    return api;
}

template <auto Delete>
struct FluidDeleter {
    void operator()(auto* object) const { (fluid().*Delete)(object); }
};

// The synthesizer's log is process-wide and goes to the console. The program keeps no log and a
// failed open is reported through open()'s result (trying a driver that is not there is normal), so
// everything short of a panic is dropped.
void quietSynthesizerLog() {
    for (const int level : {FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG}) {
        fluid().fluid_set_log_function(level, nullptr, nullptr);
    }
}

// ALSA writes every failure to standard error by itself (with no sound card, eight lines each time
// a device is tried). A device that does not open is already told by open()'s result, so its error
// handler, which is process-wide, is made silent. ALSA is loaded only when the synthesizer brought it.
void quietAlsaHandler(const char*, int, const char*, int, const char*, ...) {}

void quietAlsa() {
    using Handler = void (*)(const char*, int, const char*, int, const char*, ...);
    void* alsa = dlopen("libasound.so.2", RTLD_NOW | RTLD_LOCAL | RTLD_NOLOAD);
    if (alsa == nullptr) {
        return;
    }
    if (auto* setHandler = reinterpret_cast<int (*)(Handler)>(dlsym(alsa, "snd_lib_error_set_handler"))) {
        setHandler(&quietAlsaHandler);
    }
    dlclose(alsa);  // drops only the reference taken here
}

// The synthesizer with the General MIDI font loaded and the program chosen on channel 4, and a
// sequencer driven by the synthesizer's own sample clock, so that note-offs fall on time whether
// the frames go to a sound card or to a buffer.
class KeySynth {
public:
    static std::unique_ptr<KeySynth> create(const std::string& soundFont, int program, double sampleRate) {
        std::unique_ptr<KeySynth> keys{new KeySynth};
        keys->m_settings.reset(fluid().new_fluid_settings());
        if (!keys->m_settings) {
            return nullptr;
        }
        fluid_settings_t* settings = keys->m_settings.get();
        fluid().fluid_settings_setnum(settings, "synth.sample-rate", sampleRate);
        // Only the chosen instrument's samples are read, so opening stays quick with a large font.
        fluid().fluid_settings_setint(settings, "synth.dynamic-sample-loading", 1);
        keys->m_synth.reset(fluid().new_fluid_synth(settings));
        if (!keys->m_synth) {
            return nullptr;
        }
        fluid_synth_t* synth = keys->m_synth.get();
        if (fluid().fluid_synth_sfload(synth, soundFont.c_str(), 1) == FLUID_FAILED ||
            fluid().fluid_synth_program_change(synth, kChannel, std::clamp(program, 0, 127)) != FLUID_OK) {
            return nullptr;
        }
        keys->m_sequencer.reset(fluid().new_fluid_sequencer2(0));
        if (!keys->m_sequencer) {
            return nullptr;
        }
        keys->m_synthClient = fluid().fluid_sequencer_register_fluidsynth(keys->m_sequencer.get(), synth);
        if (keys->m_synthClient == FLUID_FAILED) {
            return nullptr;
        }
        return keys;
    }

    // Note-on now and note-off kKeyNoteMs later. Safe while an audio driver renders: the events go
    // through the sequencer's locked queue and reach the synthesizer from the rendering thread. A
    // key struck again before its note-off sounds its full length: the sequencer drops the earlier
    // note-off of the same key.
    void strike(int noteNumber) {
        const std::unique_ptr<fluid_event_t, FluidDeleter<&FluidApi::delete_fluid_event>> event{
            fluid().new_fluid_event()};
        if (!event) {
            return;
        }
        fluid().fluid_event_set_source(event.get(), -1);
        fluid().fluid_event_set_dest(event.get(), m_synthClient);
        fluid().fluid_event_note(event.get(), kChannel, static_cast<short>(std::clamp(noteNumber, 0, 127)),
                                 kVelocity, kKeyNoteMs);
        fluid().fluid_sequencer_send_at(m_sequencer.get(), event.get(), 0, 0);
    }

    fluid_settings_t* settings() const { return m_settings.get(); }
    fluid_synth_t* synth() const { return m_synth.get(); }

private:
    KeySynth() = default;

    // Destroyed in reverse: the sequencer unhooks itself from the synthesizer, which the settings
    // outlive.
    std::unique_ptr<fluid_settings_t, FluidDeleter<&FluidApi::delete_fluid_settings>> m_settings;
    std::unique_ptr<fluid_synth_t, FluidDeleter<&FluidApi::delete_fluid_synth>> m_synth;
    std::unique_ptr<fluid_sequencer_t, FluidDeleter<&FluidApi::delete_fluid_sequencer>> m_sequencer;
    fluid_seq_id_t m_synthClient = FLUID_FAILED;
};

class FluidMidiOut final : public MidiOut {
public:
    ~FluidMidiOut() override { close(); }

    bool open(int program) override {
        close();
        if (!fluid().loaded) {
            return false;
        }
        quietSynthesizerLog();
        quietAlsa();
        const std::string soundFont = findGeneralMidiSoundFont();
        if (soundFont.empty()) {
            return false;
        }
        std::unique_ptr<KeySynth> keys = KeySynth::create(soundFont, program, kSampleRate);
        if (!keys) {
            return false;
        }
        for (const char* driver : kAudioDrivers) {
            fluid().fluid_settings_setstr(keys->settings(), "audio.driver", driver);
            m_driver.reset(fluid().new_fluid_audio_driver(keys->settings(), keys->synth()));
            if (m_driver) {
                m_keys = std::move(keys);
                return true;
            }
        }
        return false;
    }

    void note(int noteNumber) override {
        if (m_keys) {
            m_keys->strike(noteNumber);
        }
    }

    void close() override {
        m_driver.reset();  // stops the rendering thread before the synthesizer goes
        m_keys.reset();
    }

    bool isOpen() const override { return m_driver != nullptr; }

private:
    std::unique_ptr<KeySynth> m_keys;
    std::unique_ptr<fluid_audio_driver_t, FluidDeleter<&FluidApi::delete_fluid_audio_driver>> m_driver;
};

}  // namespace

std::string findGeneralMidiSoundFont() {
    std::vector<std::string> candidates;
    if (!fluid().loaded) {
        return {};
    }
    if (const std::unique_ptr<fluid_settings_t, FluidDeleter<&FluidApi::delete_fluid_settings>> settings{
            fluid().new_fluid_settings()}) {
        char* configured = nullptr;
        if (fluid().fluid_settings_dupstr(settings.get(), "synth.default-soundfont", &configured) ==
                FLUID_OK &&
            configured != nullptr) {
            candidates.emplace_back(configured);
        }
        fluid().fluid_free(configured);
    }
    for (const char* path : {"/usr/share/sounds/sf2/default-GM.sf2", "/usr/share/sounds/sf3/default-GM.sf3",
                             "/usr/share/sounds/sf2/TimGM6mb.sf2", "/usr/share/sounds/sf2/FluidR3_GM.sf2",
                             "/usr/share/sounds/sf3/FluidR3_GM.sf3", "/usr/share/soundfonts/default.sf2",
                             "/usr/share/soundfonts/FluidR3_GM.sf2"}) {
        candidates.emplace_back(path);
    }
    for (const std::string& candidate : candidates) {
        std::error_code error;
        if (std::filesystem::is_regular_file(candidate, error)) {
            return candidate;
        }
    }
    return {};
}

std::vector<float> renderKeyNote(const KeyNoteRender& render) {
    if (!fluid().loaded) {
        return {};
    }
    quietSynthesizerLog();
    const std::unique_ptr<KeySynth> keys =
        KeySynth::create(render.soundFont, render.program, render.sampleRate);
    if (!keys || render.frames <= 0) {
        return {};
    }
    const auto frames = static_cast<std::size_t>(render.frames);
    std::vector<float> left(frames);
    std::vector<float> right(frames);
    const auto renderUpTo = [&](int from, int to) {
        if (to > from) {
            fluid().fluid_synth_write_float(keys->synth(), to - from, left.data(), from, 1, right.data(),
                                            from, 1);
        }
    };
    const int strikeAt = std::clamp(render.framesBefore, 0, render.frames);
    renderUpTo(0, strikeAt);
    keys->strike(render.noteNumber);
    renderUpTo(strikeAt, render.frames);
    for (std::size_t i = 0; i < frames; ++i) {
        left[i] += right[i];
    }
    return left;
}

std::unique_ptr<MidiOut> makeMidiOut() {
    return std::make_unique<FluidMidiOut>();
}

}  // namespace zv::platform
