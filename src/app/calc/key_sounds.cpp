#include "app/calc/key_sounds.h"

namespace zv::app {

KeySounds::KeySounds(MidiFactory makeMidi, std::function<void()> beep)
    : m_makeMidi(std::move(makeMidi)), m_beep(std::move(beep)) {}

KeySounds::~KeySounds() {
    if (m_midi) {
        m_midi->close();
    }
}

void KeySounds::choose(calc::KeySound sound, int instrument) {
    m_sound = sound;
    m_instrument = instrument;
    if (m_midi) {
        m_midi->close();
    }
}

bool KeySounds::startSynthesizer() {
    if (m_sound != calc::KeySound::Musical) {
        return true;
    }
    if (!m_midi && m_makeMidi) {
        m_midi = m_makeMidi();
    }
    return m_midi && (m_midi->isOpen() || m_midi->open(m_instrument));
}

void KeySounds::strike(int acceptedKey) {
    if (acceptedKey == 0 || m_sound == calc::KeySound::None) {
        return;
    }
    if (m_sound == calc::KeySound::Musical && m_midi && m_midi->isOpen()) {
        m_midi->note(acceptedKey + 36);
    } else if (m_beep) {
        m_beep();
    }
}

}  // namespace zv::app
