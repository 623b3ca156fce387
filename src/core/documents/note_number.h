#pragma once

#include <string>

#include "core/common/settings_store.h"

namespace zv::documents {

// "00001" for 1: five digits at least; past 99999 the number keeps counting with six.
std::string noteNumberText(long number);

// The number the note window proposes: the saved "Numero" plus one ("00001" on a first start,
// and when the saved value is not a whole number from 0 up).
long nextNoteNumber(const common::SettingsStore& store);

// Saves the number printed, so the next note proposes the following one.
bool saveNoteNumber(common::SettingsStore& store, long number);

}  // namespace zv::documents
