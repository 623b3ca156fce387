#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <thread>

#include "core/calc/calc_settings.h"
#include "platform/midi_out.h"

namespace zv::app {

// What a key sounds like: nothing, the system beep, or a note of the chosen instrument.
//
// The synthesizer (its library, some forty audio libraries and the sound font) is opened only when
// a note is first wanted, on a thread of its own, so neither start-up nor a key waits for it. The
// key that asks for it, and any struck while it opens, are held: when it is ready the newest of
// them sounds its note, and if it cannot open, one beep stands for them, so a key that should sound
// is never silent. Leaving musical sound (or changing the instrument) releases the synthesizer and
// its font; a note wanted afterwards opens it again.
class KeySounds {
public:
    using MidiFactory = std::function<std::unique_ptr<platform::MidiOut>()>;

    // `makeMidi` may be empty: there is no synthesizer. `beep` sounds the system beep. Results of
    // an opening are delivered on `owner`'s thread; `failed` is told there when it cannot open.
    KeySounds(MidiFactory makeMidi, std::function<void()> beep, QObject* owner, std::function<void()> failed);
    // Waits for an opening under way, which then releases what it opened.
    ~KeySounds();
    KeySounds(const KeySounds&) = delete;
    KeySounds& operator=(const KeySounds&) = delete;

    // The sound in force.
    void choose(calc::KeySound sound, int instrument);
    // Starts opening the synthesizer now if musical sound is chosen and it is not open: for a
    // choice just made in the menu, whose user wants to hear at once whether it works.
    void prepare();
    // The sound of a key as Form_KeyPress understood it.
    void strike(int acceptedKey);
    // The synthesizer is open and playing the keys.
    bool ready() const { return m_midi && m_midi->isOpen(); }

private:
    enum class Opening { None, UnderWay, Failed };
    void startOpening();
    void opened(unsigned generation, const std::shared_ptr<platform::MidiOut>& midi, bool ok);
    void release();

    MidiFactory m_makeMidi;
    std::function<void()> m_beep;
    QPointer<QObject> m_owner;
    std::function<void()> m_failed;
    std::shared_ptr<platform::MidiOut> m_midi;
    std::thread m_opener;
    std::shared_ptr<int> m_alive = std::make_shared<int>(0);
    // Counts choices: an opening started under an earlier one is released when it arrives.
    unsigned m_generation = 0;
    Opening m_opening = Opening::None;
    int m_heldKey = 0;
    calc::KeySound m_sound = calc::KeySound::None;
    int m_instrument = 0;
};

}  // namespace zv::app
