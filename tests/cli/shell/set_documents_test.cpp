// The documents that list the files of a set.

#include "cli_test.h"
#include "set_files.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::tests;

namespace {

/// The text of a document, given by its path in the folder `packaging`.
QString document(const QString& path) {
    return QString::fromUtf8(bytesOf(QStringLiteral(PACKAGING_PATH) + u'/' + path));
}

/// Expects `text` to name every file of both sets, `before` and `after` around each name.
void expectEveryFile(const QString& text, const QString& before, const QString& after) {
    for (const QString& name :
         namesOf(fixtures::materialFiles(), u"NAME"_s) + namesOf(fixtures::generatedFiles(), u"NAME"_s)) {
        EXPECT_TRUE(text.contains(before + name + after)) << name.toStdString();
    }
}

TEST(SetDocuments, TheReadmeListsEveryFile) { expectEveryFile(document(u"../README.md"_s), u"`"_s, u"`"_s); }

TEST(SetDocuments, TheManualPageListsEveryFile) {
    expectEveryFile(document(u"man/quarlin.1"_s), {}, u"\t"_s);
}

}  // namespace
