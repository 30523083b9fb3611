#pragma once

#include "model/enumeration.h"

#include <QString>

namespace quarlin {

using namespace Qt::StringLiterals;

/// Why a picture is not used.
enum class UnusedReason {
    noSlotInName,
    otherMap,
    secondChoice,
    formatNotRead,
    tile,
    exportedSet,
    notBaseColor
};

template <>
struct EnumerationTable<UnusedReason> {
    struct Row {
        /// The identifier for scripts, which never changes.
        QLatin1StringView rawValue;
        /// A short name for the documents.
        QLatin1StringView title;
        /// Whether something may be missing from a material because of it.
        bool isFailureIfStrict;
    };
    static constexpr std::array rows{
        Row{"no-slot-in-name"_L1, "the name matches no slot"_L1, true},
        Row{"other-map"_L1, "a map that the material has no slot for"_L1, false},
        Row{"second-choice"_L1, "another file is used for the slot"_L1, true},
        Row{"format-not-read"_L1, "files of this format are not read"_L1, true},
        Row{"udim-tile"_L1, "a tile of a UDIM texture"_L1, true},
        Row{"exported-set"_L1, "the folder is an exported set"_L1, false},
        Row{"not-base-color"_L1, "not a base color"_L1, false},
    };
};

/// A picture, or a folder of pictures, that is not used, and why.
struct UnusedFile {
    /// Absolute.
    QString path;
    UnusedReason reason = UnusedReason::noSlotInName;
    /// The reason for the user, a clause.
    QString text;
};

}  // namespace quarlin
