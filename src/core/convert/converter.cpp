#include "core/convert/converter.h"

#include <charconv>
#include <cmath>
#include <string>

#include "core/common/number_format.h"
#include "core/common/text.h"

namespace zv::convert {
namespace {

// One result slot of a source: its caption and how the value is worked out, the operations in
// the order the system's table writes them, left to right.
struct Target {
    std::string_view caption;
    double (*compute)(double);
};

struct Source {
    std::string_view name;
    std::array<Target, kSlotCount> targets;  // an empty caption ends the list
};

// clang-format off
const std::array<Source, kSourceCount> kSources = {{
    {"Bar", {{{"&PSI", [](double v) { return v * 14.50377; }},
              {"&KiloPascal (Kpa)", [](double v) { return v * 14.50377 * 6.8948; }},
              {"&Pascal (Pa)", [](double v) { return v * 14.50377 * 6894.8; }}}}},
    {"Bar/M", {{{"&PSI/Pés", [](double v) { return v * 4.4207; }},
                {"&Kpa/M", [](double v) { return v * 4.4207 * 22.6206; }}}}},
    {"Barris", {{{"&Litros", [](double v) { return v * 158.987; }},
                 {"&Metros Cúbicos", [](double v) { return v / 6.2898; }},
                 {"&Galões", [](double v) { return v * 158.987 / 3.7854; }}}}},
    {"Barris/Pés", {{{"&Litros/Metro", [](double v) { return v * 521.612; }},
                     {"&Metros Cúbicos/Metro", [](double v) { return v / 1.917; }}}}},
    {"Barris/Stroke", {{{"&Metros Cúbicos/Stroke", [](double v) { return v * 0.158987; }},
                        {"&Litros/Stroke", [](double v) { return v / 0.00629; }}}}},
    {"Centímetros (cm)", {{{"&Polegadas", [](double v) { return v / 2.54; }},
                           {"&Milímetros (mm)", [](double v) { return v * 10; }},
                           {"P&és (feet)", [](double v) { return v / 30.48; }}}}},
    {"Decanewtons", {{{"&Libras", [](double v) { return v / 0.444482; }},
                      {"&Kilos", [](double v) { return v / 0.444482 / 2.2046; }},
                      {"&Toneladas Métricas", [](double v) { return v / 0.444482 / 2204.6; }}}}},
    {"Galões", {{{"&Litros", [](double v) { return v * 3.7854; }},
                 {"&Metros Cúbicos", [](double v) { return v / 264.173; }},
                 {"&Barris", [](double v) { return v * 3.7854 / 158.987; }}}}},
    {"Graus Celsius", {{{"&Graus Fahrenheit", [](double v) { return v * 1.8 + 32; }}}}},
    {"Graus Fahrenheit", {{{"&Graus Celsius", [](double v) { return (v - 32) / 1.8; }}}}},
    {"KiloPascal (Kpa)", {{{"&PSI", [](double v) { return v / 6.8948; }},
                           {"&Bar", [](double v) { return v / 6.8948 / 14.50377; }},
                           {"&Pascal (Pa)", [](double v) { return v * 1000; }}}}},
    {"Kilos", {{{"&Libras", [](double v) { return v * 2.2046; }},
                {"&Decanewtons", [](double v) { return v * 2.2046 * 0.444482; }},
                {"&Toneladas Métricas", [](double v) { return v / 1000; }}}}},
    {"Kilos/Litro", {{{"&Mud Weight PPG", [](double v) { return v * 8.3454; }},
                      {"&Kilos/Metros Cúbicos", [](double v) { return v * 8.3454 * 119.826; }},
                      {"&Libras/Barril", [](double v) { return v * 8.3454 * 119.826 / 2.85307; }},
                      {"Libras/Pés &Cúbicos", [](double v) { return v * 8.3454 * 6.24276; }}}}},
    {"Kilos/Metro", {{{"&Libras/Pés", [](double v) { return v / 1.4882; }}}}},
    {"Kilos/Metros Cúbico", {{{"&Libras/Barril", [](double v) { return v / 2.85307; }},
                              {"Libras/Pés &Cúbicos", [](double v) { return v * 6.24276; }},
                              {"&Mud Weight PPG", [](double v) { return v / 119.826; }},
                              {"&Kilo/Litro", [](double v) { return v / 119.826 / 8.3454; }}}}},
    {"Kpa/M", {{{"&PSI/Pés", [](double v) { return v / 22.6206; }},
                {"&Bar/M", [](double v) { return v / 22.6206 / 4.4207; }}}}},
    {"Libras", {{{"&Decanewtons", [](double v) { return v * 0.444482; }},
                 {"&Kilos", [](double v) { return v / 2.2046; }},
                 {"&Toneladas Métricas", [](double v) { return v / 2204.6; }}}}},
    {"Libras/Barril", {{{"&Kilos/Metro Cúbico", [](double v) { return v * 2.85307; }},
                        {"&Mud Weight PPG", [](double v) { return v * 2.85307 / 119.826; }},
                        {"&Libras/Pés Cúbicos", [](double v) { return v * 2.85307 * 6.24276; }},
                        {"&Kilo/Litro", [](double v) { return v * 2.85307 / 119.826 / 8.3454; }}}}},
    {"Libras/Pés", {{{"&Kilos/Metro", [](double v) { return v * 1.4882; }}}}},
    {"Libras/Pés Cúbicos", {{{"&Kilos/Metros Cúbicos", [](double v) { return v / 6.24276; }},
                             {"&Mud Weight PPG", [](double v) { return v / 6.24276 / 119.826; }},
                             {"&Libras/Barril", [](double v) { return v / 6.24276 / 2.85307; }},
                             {"&Kilo/Litro", [](double v) { return v / 6.24276 / 119.826 / 8.3454; }}}}},
    {"Litros", {{{"&Barris", [](double v) { return v / 158.987; }},
                 {"&Galões", [](double v) { return v / 3.7854; }},
                 {"&Metros Cúbicos", [](double v) { return v / 1000; }}}}},
    {"Litros/Metro", {{{"&Barris/Pés", [](double v) { return v / 521.612; }},
                       {"&Metros Cúbicos/Metro", [](double v) { return v / 521.612 / 1.917; }}}}},
    {"Litros/Stroke", {{{"&Barris/Stroke", [](double v) { return v * 0.00629; }},
                        {"&Metros Cúbicos/Stroke", [](double v) { return v * 0.00629 * 0.158987; }}}}},
    {"Metros (M)", {{{"&Pés (feet)", [](double v) { return v / 0.3048; }}}}},
    {"Metros Cúbicos", {{{"&Barris", [](double v) { return v * 6.2898; }},
                         {"&Galões", [](double v) { return v * 264.173; }},
                         {"&Litros", [](double v) { return v * 1000; }}}}},
    {"Metros Cúbicos/Metro", {{{"&Barris/Pés", [](double v) { return v * 1.917; }},
                               {"&Litros/Metro", [](double v) { return v * 1.917 * 521.612; }}}}},
    {"Metros Cúbicos/Stroke", {{{"&Barris/Stroke", [](double v) { return v / 0.158987; }},
                                {"&Litros/Stroke", [](double v) { return v / 0.158987 / 0.00629; }}}}},
    {"Milhas", {{{"&Quilômetros", [](double v) { return v * 1.609; }}}}},
    {"Milímetros (mm)", {{{"&Polegadas", [](double v) { return v / 25.4; }},
                          {"&Centímetros (cm)", [](double v) { return v / 10; }},
                          {"P&és (feet)", [](double v) { return v / 304.8; }}}}},
    {"Mud Weight PPG", {{{"&Kilos/Metros Cúbicos", [](double v) { return v * 119.826; }},
                         {"K&ilo/Litro", [](double v) { return v / 8.3454; }},
                         {"&Libras/Barril", [](double v) { return v * 119.826 / 2.85307; }},
                         {"Libras/Pés &Cúbicos", [](double v) { return v * 119.826 * 6.24276; }}}}},
    {"Pascal (Pa)", {{{"&PSI", [](double v) { return v / 6894.8; }},
                      {"&Bar", [](double v) { return v / 6894.8 / 14.50377; }},
                      {"&KiloPascal (Kpa)", [](double v) { return v / 1000; }}}}},
    {"Pés (feet)", {{{"&Metros (M)", [](double v) { return v * 0.3048; }},
                     {"&Centímetros (cm)", [](double v) { return v * 30.48; }},
                     {"&Milímetros (mm)", [](double v) { return v * 304.8; }}}}},
    // 254.0 to metres is a hundred-thousand-fold too large; it stays so, as the system has it.
    {"Polegadas", {{{"&Metros (M)", [](double v) { return v * 254.0; }},
                    {"&Centímetros (cm)", [](double v) { return v * 2.54; }},
                    {"&Milímetros (mm)", [](double v) { return v * 25.4; }},
                    {"P&és (feet)", [](double v) { return v * 2.54 / 30.48; }}}}},
    {"PSI", {{{"&Bar", [](double v) { return v / 14.50377; }},
              {"&KiloPascal (Kpa)", [](double v) { return v * 6.8948; }},
              {"&Pascal (Pa)", [](double v) { return v * 6894.8; }}}}},
    {"PSI/Pés", {{{"&Kpa/M", [](double v) { return v * 22.6206; }},
                  {"&Bar/M", [](double v) { return v / 4.4207; }}}}},
    {"Quilômetros", {{{"&Milhas", [](double v) { return v / 1.609; }}}}},
    {"Toneladas Métricas", {{{"&Libras", [](double v) { return v * 2204.6; }},
                             {"&Decanewtons", [](double v) { return v * 2204.6 * 0.444482; }},
                             {"&Kilos", [](double v) { return v * 1000; }}}}},
}};
// clang-format on

std::array<std::string_view, kSourceCount> namesOf(const std::array<Source, kSourceCount>& sources) {
    std::array<std::string_view, kSourceCount> names;
    for (std::size_t i = 0; i < kSourceCount; ++i) {
        names[i] = sources[i].name;
    }
    return names;
}

}  // namespace

const std::array<std::string_view, kSourceCount>& sourceNames() {
    static const std::array<std::string_view, kSourceCount> names = namesOf(kSources);
    return names;
}

std::optional<std::size_t> findSource(std::string_view text) {
    for (std::size_t i = 0; i < kSourceCount; ++i) {
        if (kSources[i].name == text) {
            return i;
        }
    }
    if (!common::allDigits(text) || text.size() > 2) {
        return std::nullopt;
    }
    std::size_t index = 0;
    std::from_chars(text.data(), text.data() + text.size(), index);
    return index < kSourceCount ? std::optional(index) : std::nullopt;
}

ResultSlots convert(std::optional<std::size_t> source, std::string_view valueText,
                    const common::NumberSeparators& seps) {
    ResultSlots slots;
    const std::optional<double> value = common::parseNumber(valueText, seps);
    if (!source || *source >= kSourceCount || !value) {
        return slots;
    }
    for (std::size_t i = 0; i < kSlotCount; ++i) {
        const Target& target = kSources[*source].targets[i];
        if (target.caption.empty()) {
            break;
        }
        const double result = target.compute(*value);
        if (!std::isfinite(result)) {
            return {};
        }
        slots.captions[i] = target.caption;
        slots.values[i] = common::formatNumber(result, common::pattern::kLongDecimals, seps);
    }
    return slots;
}

bool acceptsKey(std::string_view currentText, std::string_view key, const common::NumberSeparators& seps) {
    if (key == "\b" || (key.size() == 1 && common::isDigit(key[0]))) {
        return true;
    }
    return key == seps.decimal && currentText.find(seps.decimal) == std::string_view::npos;
}

std::string reformatValue(std::string_view valueText, const common::NumberSeparators& seps) {
    const std::optional<double> value = common::parseNumber(valueText, seps);
    if (!value) {
        return std::string(valueText);
    }
    return common::formatNumber(*value, common::pattern::kLongDecimals, seps);
}

std::optional<std::string> copiedText(std::string_view valueText, std::size_t source,
                                      std::string_view resultText, std::string_view caption,
                                      const common::NumberSeparators& seps) {
    if (source >= kSourceCount || !common::parseNumber(resultText, seps)) {
        return std::nullopt;
    }
    return std::string(valueText) + " " + std::string(kSources[source].name) + " = " +
           std::string(resultText) + " " + shownCaption(caption);
}

std::string shownCaption(std::string_view caption) {
    std::string shown(caption);
    std::erase(shown, '&');
    return shown;
}

}  // namespace zv::convert
