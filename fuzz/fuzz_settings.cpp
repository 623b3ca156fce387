// Any values in the settings store, as a user, an older version or another program may have left
// them: the calculator's options read within their ranges, and what the window saves on closing
// reads back as it was.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <fuzzer/FuzzedDataProvider.h>

#include "core/calc/calc_settings.h"
#include "core/common/settings_keys.h"
#include "core/common/settings_reader.h"
#include "core/common/settings_store.h"
#include "fakes/memory_settings_store.h"
#include "fuzz_check.h"

namespace {

using namespace zv;
namespace keys = common::settings;

constexpr std::string_view kKeys[] = {
    keys::kMenuXP,    keys::kFormato,   keys::kCor,       keys::kCalcHeight,  keys::kCalcTop,
    keys::kCalcLeft2, keys::kLetrona,   keys::kSons,      keys::kInstrumento, keys::kFicarSystray,
    keys::kOculte,    keys::kCalcEnter, keys::kVisivel,   keys::kBackup,      keys::kNumLock,
    keys::kMonitor,   keys::kPorta,     keys::kUltimoArq, keys::kUltimoPath,  keys::kIdiomas2,
    keys::kSegur,     keys::kImpDispo,
};

void checkRanges(const calc::CalcSettings& s) {
    const int format = static_cast<int>(s.format);
    ZV_FUZZ_CHECK(format >= 0 && format <= 2);
    ZV_FUZZ_CHECK(s.colourScheme >= 0 && s.colourScheme <= 4);
    ZV_FUZZ_CHECK(!s.height || *s.height > 0);
    const int sound = static_cast<int>(s.sound);
    ZV_FUZZ_CHECK(sound >= 1 && sound <= 3);
    ZV_FUZZ_CHECK(s.instrument >= 0 && s.instrument <= 127);
    ZV_FUZZ_CHECK(!s.port.empty());
    ZV_FUZZ_CHECK(!s.lastFile.empty());
    ZV_FUZZ_CHECK(s.language >= 0 && s.language <= 3);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    fakes::MemorySettingsStore store;
    while (input.remaining_bytes() > 0) {
        const std::size_t key = input.ConsumeIntegralInRange<std::size_t>(0, std::size(kKeys) - 1);
        store.values[{std::string(keys::kConfigura), std::string(kKeys[key])}] =
            input.ConsumeRandomLengthString(40);
    }

    const calc::CalcSettings loaded = calc::loadCalcSettings(store);
    checkRanges(loaded);

    // The low-level readers agree with themselves: a value read is one written back the same.
    const common::SettingsReader reader(store, keys::kConfigura);
    for (const std::string_view key : kKeys) {
        if (const auto whole = reader.whole(key, -1000, 1000)) {
            ZV_FUZZ_CHECK(*whole >= -1000 && *whole <= 1000);
            ZV_FUZZ_CHECK(common::parseWhole(std::to_string(*whole)) == std::optional<long>(*whole));
        }
        if (const auto flag = reader.boolean(key)) {
            ZV_FUZZ_CHECK(common::parseBool(common::boolText(*flag)) == flag);
        }
    }

    // Saved on closing over whatever was there, the options read back exactly as they were.
    calc::saveOnClose(store, loaded);
    ZV_FUZZ_CHECK(calc::loadCalcSettings(store) == loaded);
    return 0;
}
