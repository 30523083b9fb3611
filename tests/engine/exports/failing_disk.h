#pragma once

#include "export_kind.h"

#include <QDir>
#include <QFile>

#include <algorithm>

#include <sys/stat.h>

namespace quarlin {

using namespace Qt::StringLiterals;

/// An export to a failing disk, with or without an older set.
class FailingDisk : public EitherExport {
protected:
    using Files = std::map<QString, QByteArray>;

    /// An older set, and the set that the new pictures should give.
    void makeOlderSet() {
        loadPictures(2);
        exported();
        newer = files();
        loadPictures(1);
        exported();
        older = files();
        loadPictures(2);
        for (const QString& file : setNames()) {
            if (file.endsWith(u".png"_s)) {
                ASSERT_NE(older.at(file), newer.at(file)) << file.toStdString();
            }
        }
    }

    /// Expects that the first `count` files of the set are new, all others are old, and no other files exist.
    void expectReplaced(qsizetype count) const {
        const Files found = files();
        const QStringList names = setNames();
        EXPECT_EQ(found.size(), static_cast<std::size_t>(names.size()));
        for (qsizetype index = 0; index < names.size(); ++index) {
            const QString& file = names[index];
            ASSERT_TRUE(found.count(file)) << file.toStdString();
            EXPECT_EQ(found.at(file), (index < count ? newer : older).at(file))
                << file.toStdString() << " with " << count << " files written";
        }
    }

    /// Expects exactly the first `count` files of the set, by name, including hidden ones.
    void expectWritten(qsizetype count) const {
        QStringList expected = setNames().first(count);
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(folder.names(u"out/"_s + name), expected);
    }

    void expectNextExportToWork() const {
        EXPECT_EQ(failure(), "");
        expectWritten(setNames().size());
    }

    void removeSet() const { QDir(setPath()).removeRecursively(); }

    /// Sets whether an ordinary user can write to the export folder.
    void permit(const QString& subfolder, mode_t mode) const {
        ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
        ASSERT_EQ(chmod(QFile::encodeName(folder.path(u"in"_s)).constData(), 0755), 0);
        ASSERT_EQ(chmod(QFile::encodeName(folder.path(subfolder)).constData(), mode), 0);
    }

    Files older;
    Files newer;
};

}  // namespace quarlin
