#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "core/common/regional.h"

namespace zv::convert {

inline constexpr std::size_t kSourceCount = 37;
inline constexpr std::size_t kSlotCount = 4;

// The entries of `lstTipo`, in their order; an entry's index is the source selector.
const std::array<std::string_view, kSourceCount>& sourceNames();

// The source whose entry is exactly `text`, or whose index is `text` written as a whole number
// ("0" to "36"); nullopt for anything else.
std::optional<std::size_t> findSource(std::string_view text);

// What the four result slots show: `captions[i]` for `lblResult(i)` (with its access-key
// ampersand) and `values[i]` for `txtResult(i)`. Slots a source does not fill are empty.
struct ResultSlots {
    std::array<std::string, kSlotCount> captions;
    std::array<std::string, kSlotCount> values;
};

// The slots for the value text as typed in `txtValor1`, read with the user's separators, and the
// chosen source (nullopt: none chosen yet). The factors and the order of the operations are the
// system's table as it stands, its imprecise and wrong factors included (1 daN taken as
// 1/0.444482 lb, an inch as 254 metres, a mile as 1.609 km). Every slot is empty when no source
// is chosen, when the text is no number, or when a result overflows; so a slot never keeps what
// an earlier source or value put there. Values are in "#,##0.##########".
ResultSlots convert(std::optional<std::size_t> source, std::string_view valueText,
                    const common::NumberSeparators& seps);

// Whether a character typed into `txtValor1` (UTF-8, one character) is taken: Backspace, a
// digit, or the decimal separator when `currentText` has none yet.
bool acceptsKey(std::string_view currentText, std::string_view key, const common::NumberSeparators& seps);

// The value text as it is shown once the field is left: a number in "#,##0.##########", any
// other text unchanged.
std::string reformatValue(std::string_view valueText, const common::NumberSeparators& seps);

// What Enter on a result slot copies: "<value> <source> = <result> <caption>", with the
// caption as the slot shows it (the access-key ampersand is not shown, so not copied).
// nullopt when the slot holds no number, as an empty slot does.
std::optional<std::string> copiedText(std::string_view valueText, std::size_t source,
                                      std::string_view resultText, std::string_view caption,
                                      const common::NumberSeparators& seps);

// A caption as shown: without its access-key ampersand (no caption holds a literal '&').
std::string shownCaption(std::string_view caption);

}  // namespace zv::convert
