// The files that remain if the process of an export is killed at any moment.

#include "failing_disk.h"
#include "limited_writing.h"
#include "rename_hook.h"

#include <QDateTime>
#include <QFileInfo>

#include <csignal>
#include <vector>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class KilledExport : public FailingDisk {
protected:
    /// Runs the export in a process of its own that is killed when `count` files have their names. The next
    /// file is complete but not renamed yet.
    void killAfter(int count) const {
        const pid_t child = fork();
        if (child == 0) {
            const RenameHook hook([&](int next) {
                if (next == count + 1) {
                    raise(SIGKILL);
                }
            });
            failure();
            _exit(0);
        }
        expectKilledBy(child, SIGKILL);
    }

    /// The same, but killed while it writes the first file that is larger than `bytes`.
    void killWithin(rlim_t bytes) const {
        const pid_t child = fork();
        if (child == 0) {
            const rlimit noDump{0, 0};
            setrlimit(RLIMIT_CORE, &noDump);
            const rlimit limit{bytes, bytes};
            setrlimit(RLIMIT_FSIZE, &limit);
            std::signal(SIGXFSZ, SIG_DFL);
            failure();
            _exit(0);
        }
        expectKilledBy(child, SIGXFSZ);
    }

    QStringList drafts() const { return folder.names(u"out/Brick"_s).filter(u".quarlin-"_s); }
    /// Removes the hidden drafts that a killed export left, and returns their sizes.
    std::vector<qsizetype> takeDrafts() const {
        std::vector<qsizetype> sizes;
        for (const QString& file : drafts()) {
            sizes.push_back(QFileInfo(setPath() + u'/' + file).size());
            EXPECT_TRUE(QFile::remove(setPath() + u'/' + file));
        }
        return sizes;
    }

private:
    static void expectKilledBy(pid_t child, int signal) {
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "ended by itself with status " << status;
        EXPECT_EQ(WTERMSIG(status), signal);
    }
};

TEST_P(KilledExport, LeavesWholeFilesAndHiddenDraftsOfTheRest) {
    makeOlderSet();
    const qsizetype images = setNames().filter(u".png"_s).size();
    for (int count = 0; count < setNames().size(); ++count) {
        killAfter(count);
        // Drafts of images are written at the same time, those of texts one by one.
        EXPECT_EQ(takeDrafts().size(), static_cast<std::size_t>(std::max<qsizetype>(images - count, 1)));
        expectReplaced(count);
        for (const auto& [file, bytes] : older) {
            writeFile(folder.url(u"out/Brick/"_s + file), bytes);
        }
    }
}

TEST_P(KilledExport, InTheMiddleOfAFileLeavesTheOldOneWhole) {
    makeOlderSet();
    for (const rlim_t bytes : {rlim_t{1}, rlim_t{100}, rlim_t{500}, rlim_t{1000}}) {
        killWithin(bytes);
        for (const qsizetype size : takeDrafts()) {
            EXPECT_LE(size, static_cast<qsizetype>(bytes));
        }
        // The first file, the noise, is larger than any of these limits.
        expectReplaced(0);
    }
}

TEST_P(KilledExport, DoesNotDisturbTheNext) {
    killAfter(1);
    killAfter(0);
    const qsizetype left = drafts().size();
    EXPECT_GT(left, 0);
    EXPECT_EQ(failure(), "");
    EXPECT_EQ(drafts().size(), left) << "they might belong to another export that runs";
    takeDrafts();
    expectWritten(setNames().size());
}

TEST_P(KilledExport, IsTidiedUpAfterByTheFirstOneADayLater) {
    killAfter(0);
    const QStringList left = drafts();
    const auto makeOld = [&](const QString& file, int hours) {
        QFile draft(setPath() + u'/' + file);
        EXPECT_TRUE(draft.open(QIODevice::ReadWrite));
        EXPECT_TRUE(draft.setFileTime(QDateTime::currentDateTimeUtc().addSecs(-3600 * hours),
                                      QFileDevice::FileModificationTime));
    };
    for (const QString& file : left) {
        makeOld(file, 25);
    }
    const QStringList kept{u".quarlin-0"_s, u".quarlin-notes"_s, u".quarlin-00112233445566778"_s,
                           u"quarlin-00"_s};
    for (const QString& file : kept) {
        writeFile(QUrl::fromLocalFile(setPath() + u'/' + file), "somebody's");
        makeOld(file, file == kept.constFirst() ? 23 : 1000);
    }
    EXPECT_EQ(failure(), "");
    for (const QString& file : left) {
        EXPECT_FALSE(QFile::exists(setPath() + u'/' + file)) << file.toStdString();
    }
    for (const QString& file : kept) {
        EXPECT_TRUE(QFile::exists(setPath() + u'/' + file)) << file.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Exports, KilledExport, allExportKinds(), testing::PrintToStringParamName());

}  // namespace
