// Key sounds: the synthesizer opens off the window's thread, the keys struck meanwhile are held,
// and leaving musical sound releases it, even while it is still opening.
#include <QtTest>
#include <atomic>
#include <future>
#include <thread>

#include "app/calc/key_sounds.h"

using namespace zv;

namespace {

// An output whose opening the test can hold back; it says on which thread it opened and how many
// outputs are alive.
struct Synth {
    std::atomic<int> alive{0};
    std::atomic<bool> opens{true};
    std::thread::id openedOn;
    std::shared_future<void> gate;
    std::vector<int> notes;

    std::unique_ptr<platform::MidiOut> make() {
        struct Out final : platform::MidiOut {
            explicit Out(Synth& s) : synth(s) { ++synth.alive; }
            ~Out() override { --synth.alive; }
            bool open(int) override {
                synth.openedOn = std::this_thread::get_id();
                if (synth.gate.valid()) {
                    synth.gate.wait();
                }
                on = synth.opens;
                return on;
            }
            void note(int number) override { synth.notes.push_back(number); }
            void close() override { on = false; }
            bool isOpen() const override { return on; }
            Synth& synth;
            bool on = false;
        };
        return std::make_unique<Out>(*this);
    }
};

}  // namespace

class KeySoundsTest : public QObject {
    Q_OBJECT

    Synth m_synth;
    int m_beeps = 0;
    int m_failures = 0;
    QObject m_owner;

    std::unique_ptr<app::KeySounds> sounds() {
        return std::make_unique<app::KeySounds>([this] { return m_synth.make(); }, [this] { ++m_beeps; },
                                                &m_owner, [this] { ++m_failures; });
    }
    // Musical sound chosen; the synthesizer's opening waits for `gate` when one is given.
    std::unique_ptr<app::KeySounds> musical(std::promise<void>* gate = nullptr) {
        m_synth.gate = gate != nullptr ? gate->get_future().share() : std::shared_future<void>{};
        auto keys = sounds();
        keys->choose(calc::KeySound::Musical, 0);
        return keys;
    }

private slots:
    void init() {
        m_synth.alive = 0;
        m_synth.opens = true;
        m_synth.gate = {};
        m_synth.notes.clear();
        m_beeps = m_failures = 0;
    }

    void opensOffTheThreadAndPlaysTheNewestHeldKey() {
        std::promise<void> release;
        auto keys = musical(&release);
        QCOMPARE(m_synth.alive.load(), 0);  // nothing opened before a note is wanted
        keys->strike('1');
        keys->strike('2');  // struck while the synthesizer opens: held, the newest wins
        QVERIFY(!keys->ready());
        release.set_value();
        QTRY_VERIFY(keys->ready());
        QVERIFY(m_synth.openedOn != std::this_thread::get_id());
        keys->strike('+');
        QCOMPARE(m_synth.notes, (std::vector<int>{'2' + 36, '+' + 36}));
        QCOMPARE(m_beeps, 0);
        // Switching sounds off lets the synthesizer and its font go.
        keys->choose(calc::KeySound::Beep, 0);
        QCOMPARE(m_synth.alive.load(), 0);
        keys->strike('3');
        QCOMPARE(m_beeps, 1);
    }

    void switchedOffWhileOpeningReleasesWhatArrives() {
        std::promise<void> release;
        auto keys = musical(&release);
        keys->strike('5');
        QTRY_COMPARE(m_synth.alive.load(), 1);  // the output is being opened
        keys->choose(calc::KeySound::None, 0);
        release.set_value();
        QTRY_COMPARE(m_synth.alive.load(), 0);
        QVERIFY(!keys->ready());
        QCOMPARE(m_synth.notes, std::vector<int>{});
        QCOMPARE(m_beeps, 0);
        // Chosen again, the next note opens a new one.
        m_synth.gate = {};
        keys->choose(calc::KeySound::Musical, 0);
        keys->strike('6');
        QTRY_COMPARE(m_synth.notes, std::vector<int>{'6' + 36});
        QCOMPARE(m_synth.alive.load(), 1);
    }

    void failureBeepsOnceForTheHeldKeysThenEveryKey() {
        m_synth.opens = false;
        auto keys = musical();
        keys->strike('7');
        QTRY_COMPARE(m_failures, 1);
        QCOMPARE(m_beeps, 1);
        keys->strike('8');
        keys->strike('9');
        QCOMPARE(m_beeps, 3);
        QCOMPARE(m_failures, 1);  // not tried again for every key
        QCOMPARE(m_synth.alive.load(), 0);
    }

    void goneBeforeTheOpeningEndsLeavesNothingBehind() {
        std::promise<void> release;
        auto keys = musical(&release);
        keys->strike('1');
        std::thread later([&release] { release.set_value(); });
        keys.reset();  // waits for the opening
        later.join();
        QCoreApplication::processEvents();
        QCOMPARE(m_synth.alive.load(), 0);
        QCOMPARE(m_synth.notes, std::vector<int>{});
    }
};

QTEST_GUILESS_MAIN(KeySoundsTest)
#include "key_sounds_test.moc"
