#include "app/calc/key_sounds.h"

#include <utility>

namespace zv::app {
namespace {

int noteOf(int acceptedKey) {
    return acceptedKey + 36;
}

}  // namespace

KeySounds::KeySounds(MidiFactory makeMidi, std::function<void()> beep, QObject* owner,
                     std::function<void()> failed)
    : m_makeMidi(std::move(makeMidi)), m_beep(std::move(beep)), m_owner(owner), m_failed(std::move(failed)) {}

KeySounds::~KeySounds() {
    if (m_opener.joinable()) {
        m_opener.join();
    }
    release();
}

void KeySounds::choose(calc::KeySound sound, int instrument) {
    m_sound = sound;
    m_instrument = instrument;
    release();
}

void KeySounds::release() {
    ++m_generation;
    m_opening = Opening::None;
    m_heldKey = 0;
    if (m_midi) {
        m_midi->close();
        m_midi.reset();
    }
}

void KeySounds::prepare() {
    if (m_sound == calc::KeySound::Musical && !ready() && m_opening == Opening::None) {
        startOpening();
    }
}

void KeySounds::startOpening() {
    if (!m_makeMidi || !m_owner) {
        m_opening = Opening::Failed;
        if (m_failed) {
            m_failed();
        }
        return;
    }
    m_opening = Opening::UnderWay;
    if (m_opener.joinable()) {
        m_opener.join();  // an earlier opening that has already handed over its result
    }
    m_opener = std::thread([this, alive = std::weak_ptr<int>(m_alive), factory = m_makeMidi, owner = m_owner,
                            generation = m_generation, instrument = m_instrument] {
        std::shared_ptr<platform::MidiOut> midi = factory();
        const bool ok = midi && midi->open(instrument);
        // If the owner or this object has gone meanwhile, the result is dropped with the call,
        // and the output with it.
        QMetaObject::invokeMethod(
            owner.data(),
            [this, alive, generation, midi, ok] {
                if (!alive.expired()) {
                    opened(generation, midi, ok);
                }
            },
            Qt::QueuedConnection);
    });
}

void KeySounds::opened(unsigned generation, const std::shared_ptr<platform::MidiOut>& midi, bool ok) {
    if (generation != m_generation) {
        return;  // asked for under another choice; released as `midi` goes
    }
    const int held = std::exchange(m_heldKey, 0);
    if (!ok) {
        m_opening = Opening::Failed;
        if (held != 0 && m_beep) {
            m_beep();
        }
        if (m_failed) {
            m_failed();
        }
        return;
    }
    m_opening = Opening::None;
    m_midi = midi;
    if (held != 0) {
        m_midi->note(noteOf(held));
    }
}

void KeySounds::strike(int acceptedKey) {
    if (acceptedKey == 0 || m_sound == calc::KeySound::None) {
        return;
    }
    if (m_sound == calc::KeySound::Musical) {
        if (ready()) {
            m_midi->note(noteOf(acceptedKey));
            return;
        }
        if (m_opening == Opening::None) {
            startOpening();
        }
        if (m_opening == Opening::UnderWay) {
            m_heldKey = acceptedKey;
            return;
        }
    }
    if (m_beep) {
        m_beep();
    }
}

}  // namespace zv::app
