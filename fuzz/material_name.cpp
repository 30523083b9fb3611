// The rule that turns typed names into file names, and the names of exported files.

#include "model/material_name.h"
#include "expectation.h"
#include "imaging/files/file_names.h"
#include "model/conversion_settings.h"
#include "model/normal_generator_settings.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <QDir>
#include <QFile>
#include <QString>
#include <QUrl>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fuzz;

namespace {

/// Any sequence of 16-bit units, valid text or not, or the text that a file name of any bytes is read as.
QString takeName(FuzzedDataProvider& input) {
    const bool isUtf16 = input.ConsumeBool();
    const auto bytes = input.ConsumeRemainingBytes<char>();
    if (!isUtf16) {
        return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    }
    QString name;
    for (std::size_t index = 0; index + 1 < bytes.size(); index += 2) {
        name += QChar(static_cast<uchar>(bytes[index]), static_cast<uchar>(bytes[index + 1]));
    }
    return name;
}

void expectSafe(const QString& safe) {
    expect(!safe.isEmpty(), "a safe name is never empty");
    for (const char32_t scalar : safe.toUcs4()) {
        expect(QChar::isLetterOrNumber(scalar) || QChar::isMark(scalar) || scalar == U'-' || scalar == U'_',
               "a safe name holds letters, marks, numbers, hyphens and underscores");
    }
    const QByteArray bytes = QFile::encodeName(safe);
    expect(!bytes.contains('/') && !bytes.contains('\\') && !bytes.contains('\0') && !bytes.contains('.'),
           "a safe name is one step of a path");
    const QUrl folder = QUrl::fromLocalFile(u"/chosen/folder"_s);
    const QString path = fileIn(folder, safe).toLocalFile();
    expect(QDir::cleanPath(path) == path && path == u"/chosen/folder/"_s + safe,
           "a safe name stays in its folder");
}

/// The rule character by character, as it is worded.
void expectRuleFollowed(const QString& name, const QString& safe, const QString& fallback) {
    const QList<uint> scalars = name.toUcs4();
    qsizetype first = 0;
    qsizetype last = scalars.size();
    while (first < last && scalars[first] == U' ') {
        ++first;
    }
    while (last > first && scalars[last - 1] == U' ') {
        --last;
    }
    if (first == last) {
        expect(safe == fallback, "nothing left of a name gives the name that stands in");
        return;
    }
    const QList<uint> kept = safe.toUcs4();
    expect(kept.size() == last - first, "a safe name has one character for each of the trimmed name's");
    for (qsizetype index = 0; index < kept.size(); ++index) {
        expect(kept[index] == scalars[first + index] || kept[index] == U'_',
               "a character is kept or becomes an underscore");
    }
}

template <typename Settings>
void expectSafeIn(const QString& name) {
    Settings settings;
    settings.materialName = name;
    const QString safe = settings.safeMaterialName();
    expectSafe(safe);
    expectRuleFollowed(name, safe, Settings::defaultMaterialName());
    settings.materialName = safe;
    expect(settings.safeMaterialName() == safe, "a safe name is its own safe name");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const QString name = takeName(input);
    expectSafeIn<ConversionSettings>(name);
    expectSafeIn<NormalGeneratorSettings>(name);
    return 0;
}
