#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <cstddef>
#include <optional>

namespace quarlin {

// The closed enumerations of the model. Each one counts its cases from zero, in display order, and has a
// specialization of `EnumerationTable` with one row per case, in the same order. A row has at least a
// `rawValue`, the stable identifier of the case; the other columns are its labels and properties.

/// The rows of an enumeration, as `static constexpr std::array rows`. Every enumeration specializes it.
template <typename Enum>
struct EnumerationTable;

/// The row of `value`.
template <typename Enum>
constexpr const auto& tableRow(Enum value) {
    return EnumerationTable<Enum>::rows[static_cast<std::size_t>(value)];
}

/// Every case, in display order.
template <typename Enum>
constexpr auto allCases() {
    std::array<Enum, EnumerationTable<Enum>::rows.size()> cases{};
    for (std::size_t index = 0; index < cases.size(); ++index) {
        cases[index] = static_cast<Enum>(index);
    }
    return cases;
}

/// The identifier of `value`, such as "baseColor".
template <typename Enum>
QString rawValue(Enum value) {
    return tableRow(value).rawValue;
}

/// The identity of `value`: its raw value.
template <typename Enum>
QString id(Enum value) {
    return rawValue(value);
}

/// The text that names `value` to the user.
template <typename Enum>
QString title(Enum value) {
    return tableRow(value).title;
}

/// The case whose raw value is `text`, or nothing.
template <typename Enum>
std::optional<Enum> fromRawValue(QStringView text) {
    for (const Enum value : allCases<Enum>()) {
        if (tableRow(value).rawValue == text) {
            return value;
        }
    }
    return std::nullopt;
}

/// One value for each case of an enumeration of the model, in the order of the cases.
template <typename Enum, typename Value>
struct PerCase {
    std::array<Value, EnumerationTable<Enum>::rows.size()> values{};

    constexpr Value& operator[](Enum which) { return values[static_cast<std::size_t>(which)]; }
    constexpr const Value& operator[](Enum which) const { return values[static_cast<std::size_t>(which)]; }

    bool operator==(const PerCase&) const = default;
};

}  // namespace quarlin
