// Exports to failing disks: the message, the files afterwards, and the success of the next export.

#include "failing_disk.h"
#include "limited_writing.h"
#include "rename_hook.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <algorithm>
#include <optional>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

TEST_P(FailingDisk, RunningFullAtAnyFileKeepsTheOldOneAndTheNewOnesBefore) {
    makeOlderSet();
    for (const rlim_t room : {rlim_t{0}, rlim_t{57}}) {
        for (int moment = 0; moment < setNames().size(); ++moment) {
            std::optional<FullDisk> disk;
            if (moment == 0) {
                disk.emplace(room);
            }
            {
                const RenameHook hook({}, [&](int count) {
                    if (count == moment) {
                        disk.emplace(room);
                    }
                });
                EXPECT_EQ(failure(), cannotWrite(setNames()[moment])) << room;
            }
            disk.reset();
            expectReplaced(moment);
            expectNextExportToWork();
            for (const auto& [file, bytes] : older) {
                writeFile(folder.url(u"out/Brick/"_s + file), bytes);
            }
        }
    }
}

TEST_P(FailingDisk, AFolderInThePlaceOfAnyFileStopsThere) {
    for (const QString& file : setNames()) {
        folder.makeFolder(u"out/Brick/"_s + file);
        EXPECT_EQ(failure(), cannotCreate(file));
        QStringList expected = setNames().first(setNames().indexOf(file) + 1);
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(folder.names(u"out/Brick"_s), expected);
        EXPECT_TRUE(QDir().rmdir(setPath() + u'/' + file));
        expectNextExportToWork();
        removeSet();
    }
}

TEST_P(FailingDisk, AReadOnlyFileInThePlaceOfAnyFileStopsThere) {
    makeOlderSet();
    permit(u"out/Brick"_s, 0777);
    for (const QString& file : setNames()) {
        for (const auto& [other, bytes] : older) {
            const QString path = setPath() + u'/' + other;
            writeFile(QUrl::fromLocalFile(path), bytes);
            ASSERT_EQ(chmod(QFile::encodeName(path).constData(), other == file ? 0444 : 0666), 0);
        }
        {
            const OrdinaryUser user;
            ASSERT_TRUE(user.works());
            EXPECT_EQ(failure(), cannotCreate(file));
        }
        expectReplaced(setNames().indexOf(file));
        ASSERT_EQ(chmod(QFile::encodeName(setPath() + u'/' + file).constData(), 0666), 0);
        expectNextExportToWork();
    }
}

TEST_P(FailingDisk, AReadOnlyFolderKeepsItsSet) {
    makeOlderSet();
    permit(u"out/Brick"_s, 0555);
    {
        const OrdinaryUser user;
        ASSERT_TRUE(user.works());
        EXPECT_EQ(failure(), cannotCreate(setNames().constFirst()));
    }
    permit(u"out/Brick"_s, 0755);
    expectReplaced(0);
    expectNextExportToWork();
}

TEST_P(FailingDisk, AReadOnlyParentIsNamedWithItsReason) {
    permit(u"out"_s, 0555);
    {
        const OrdinaryUser user;
        ASSERT_TRUE(user.works());
        EXPECT_EQ(failure(), "Could not create folder: Brick (Permission denied)");
    }
    permit(u"out"_s, 0755);
    expectNextExportToWork();
}

TEST_P(FailingDisk, ANameTooLongForAFolderIsNamedWithItsReason) {
    name = QString(256, u'n');
    EXPECT_EQ(failure(), "Could not create folder: " + name.toStdString() + " (File name too long)");
    EXPECT_EQ(folder.names(u"out"_s), QStringList());
    name = u"Brick"_s;
    expectNextExportToWork();
}

TEST_P(FailingDisk, ANameTooLongForAFileStopsThere) {
    constexpr int longest = 255;
    for (int length = longest - 20; length <= longest; ++length) {
        name = QString(length, u'n');
        const QStringList names = setNames();
        const auto first = std::find_if(names.begin(), names.end(),
                                        [](const QString& file) { return file.size() > longest; });
        EXPECT_EQ(failure(), first == names.end() ? "" : cannotCreate(*first)) << length;
        expectWritten(first - names.begin());
        removeSet();
    }
}

TEST_P(FailingDisk, BytesCountForALongNameAndNotLetters) {
    name = QString(128, u'\u00fc');
    EXPECT_EQ(failure(), "Could not create folder: " + name.toStdString() + " (File name too long)");
    name = QString(120, u'\u00fc') + u'n';
    const QStringList names = setNames();
    EXPECT_EQ(failure(), cannotCreate(names.constLast()));
    expectWritten(names.size() - 1);
}

TEST_P(FailingDisk, ALinkThatLeadsToItselfInThePlaceOfAnyFileStopsThere) {
    for (const QString& file : setNames()) {
        folder.makeFolder(u"out/Brick"_s);
        ASSERT_TRUE(QFile::link(file, setPath() + u'/' + file));
        EXPECT_EQ(failure(), cannotCreate(file));
        EXPECT_TRUE(QFile::remove(setPath() + u'/' + file));
        expectWritten(setNames().indexOf(file));
        removeSet();
    }
}

TEST_P(FailingDisk, AFolderThatVanishesBeforeAFileHasItsNameStopsThere) {
    for (int moment = 1; moment <= setNames().size(); ++moment) {
        {
            const RenameHook hook([&](int count) {
                if (count == moment) {
                    removeSet();
                }
            });
            EXPECT_EQ(failure(), cannotCreate(setNames()[moment - 1]));
        }
        EXPECT_EQ(folder.names(u"out"_s), QStringList());
        expectNextExportToWork();
    }
}

TEST_P(FailingDisk, AFolderThatVanishesBetweenTwoFilesStopsAtTheSecond) {
    for (int moment = 1; moment < setNames().size(); ++moment) {
        {
            const RenameHook hook({}, [&](int count) {
                if (count == moment) {
                    removeSet();
                }
            });
            EXPECT_EQ(failure(), cannotCreate(setNames()[moment]));
        }
        EXPECT_EQ(folder.names(u"out"_s), QStringList());
        expectNextExportToWork();
    }
}

TEST_P(FailingDisk, AFolderMovedAwayKeepsWhatWasWrittenIntoIt) {
    const QString moved = folder.path(u"moved"_s);
    {
        const RenameHook hook({}, [&](int count) {
            if (count == 2) {
                QDir().rename(setPath(), moved);
            }
        });
        EXPECT_EQ(failure(), cannotCreate(setNames()[2]));
    }
    QStringList expected = setNames().first(2);
    std::sort(expected.begin(), expected.end());
    // The drafts of the later files moved away with the folder.
    const QStringList found = QDir(moved).entryList(QDir::Files, QDir::Name);
    EXPECT_EQ(QSet<QString>(found.begin(), found.end()), QSet<QString>(expected.begin(), expected.end()));
    expectNextExportToWork();
}

INSTANTIATE_TEST_SUITE_P(Exports, FailingDisk, allExportKinds(), testing::PrintToStringParamName());

}  // namespace
