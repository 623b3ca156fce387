#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// windows.h first: mmsystem.h depends on its types.
#include <mmsystem.h>

#include <algorithm>
#include <array>
#include <memory>
#include <mutex>

#include "platform/midi_out.h"

namespace zv::platform {
namespace {

constexpr DWORD kChannel = 3;  // MIDI channel 4
constexpr DWORD kProgramChange = 0xC0 | kChannel;
constexpr DWORD kNoteOn = 0x90 | kChannel;
constexpr DWORD kNoteOff = 0x80 | kChannel;
constexpr DWORD kVelocity = 100;

// How long a key's note sounds. Keys are struck, not held: without a note-off, sustained
// instruments (strings, organ, synth pads) would ring until the device closes.
constexpr UINT kNoteMs = 400;

DWORD shortMessage(DWORD status, DWORD data1, DWORD data2) {
    return status | (data1 << 8) | (data2 << 16);
}

DWORD clampToData(int value) {
    return static_cast<DWORD>(std::clamp(value, 0, 127));
}

// What the output shares with the note-off timers, which fire on the multimedia timer's thread.
// The handle is cleared when the output closes, so a late timer sends nothing; the strike count of
// each key lets only the latest strike's timer end the note, so a key struck again within kNoteMs
// sounds its full length.
struct Device {
    std::mutex mutex;
    HMIDIOUT handle = nullptr;
    std::array<unsigned, 128> strikes{};
};

struct PendingNoteOff {
    std::shared_ptr<Device> device;
    DWORD note;
    unsigned strike;
};

// A one-shot timer frees itself after firing; the callback frees what it was given.
void CALLBACK endNote(UINT, UINT, DWORD_PTR user, DWORD_PTR, DWORD_PTR) {
    const std::unique_ptr<PendingNoteOff> pending{reinterpret_cast<PendingNoteOff*>(user)};
    Device& device = *pending->device;
    const std::lock_guard<std::mutex> lock{device.mutex};
    if (device.handle != nullptr && device.strikes[pending->note] == pending->strike) {
        midiOutShortMsg(device.handle, shortMessage(kNoteOff, pending->note, 0));
    }
}

class MapperMidiOut final : public MidiOut {
public:
    ~MapperMidiOut() override { close(); }

    bool open(int program) override {
        close();
        HMIDIOUT handle = nullptr;
        if (midiOutOpen(&handle, MIDI_MAPPER, 0, 0, CALLBACK_NULL) != MMSYSERR_NOERROR) {
            return false;
        }
        midiOutShortMsg(handle, shortMessage(kProgramChange, clampToData(program), 0));
        const std::lock_guard<std::mutex> lock{m_device->mutex};
        m_device->handle = handle;
        m_device->strikes.fill(0);
        return true;
    }

    void note(int noteNumber) override {
        const DWORD note = clampToData(noteNumber);
        const std::lock_guard<std::mutex> lock{m_device->mutex};
        if (m_device->handle == nullptr) {
            return;
        }
        const unsigned strike = ++m_device->strikes[note];
        auto pending = std::make_unique<PendingNoteOff>(PendingNoteOff{m_device, note, strike});
        // A note whose end cannot be scheduled is not played: better silent than ringing on.
        if (timeSetEvent(kNoteMs, 10, endNote, reinterpret_cast<DWORD_PTR>(pending.get()),
                         TIME_ONESHOT | TIME_CALLBACK_FUNCTION) == 0) {
            return;
        }
        pending.release();  // now owned by the timer's callback
        midiOutShortMsg(m_device->handle, shortMessage(kNoteOn, note, kVelocity));
    }

    void close() override {
        const std::lock_guard<std::mutex> lock{m_device->mutex};
        if (m_device->handle == nullptr) {
            return;
        }
        midiOutReset(m_device->handle);  // silences what is still sounding
        midiOutClose(m_device->handle);
        m_device->handle = nullptr;
    }

    bool isOpen() const override {
        const std::lock_guard<std::mutex> lock{m_device->mutex};
        return m_device->handle != nullptr;
    }

private:
    // Shared with the pending note-off timers, which may outlive this object.
    std::shared_ptr<Device> m_device = std::make_shared<Device>();
};

}  // namespace

std::unique_ptr<MidiOut> makeMidiOut() {
    return std::make_unique<MapperMidiOut>();
}

}  // namespace zv::platform
