// What an export leaves whose process is killed at any moment.

#include "failing_disk.h"
#include "limited_writing.h"
#include "rename_hook.h"

#include <QFileInfo>

#include <csignal>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class KilledExport : public FailingDisk {
protected:
    /// Runs the export in a process of its own that meets its end when `count` files have their names; the
    /// next is complete but has none yet.
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

    /// The same with an end in the middle of writing the first file that is larger than `bytes`.
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

    /// Takes the one hidden file away that a killed export may leave, and returns its size; -1 without one.
    qsizetype takeTemporaryFile() const {
        qsizetype size = -1;
        for (const QString& file : folder.names(QStringLiteral("out/Brick"))) {
            if (file.startsWith(QStringLiteral(".quarlin-"))) {
                EXPECT_EQ(size, -1) << "more than one";
                size = QFileInfo(setPath() + u'/' + file).size();
                EXPECT_TRUE(QFile::remove(setPath() + u'/' + file));
            }
        }
        return size;
    }

private:
    static void expectKilledBy(pid_t child, int signal) {
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "ended by itself with status " << status;
        EXPECT_EQ(WTERMSIG(status), signal);
    }
};

TEST_P(KilledExport, LeavesWholeFilesAndAtMostOneHiddenOne) {
    makeOlderSet();
    for (int count = 0; count < setNames().size(); ++count) {
        killAfter(count);
        EXPECT_EQ(takeTemporaryFile(), newer.at(setNames()[count]).size());
        expectReplaced(count);
        for (const auto& [file, bytes] : older) {
            writeFile(folder.url(QStringLiteral("out/Brick/") + file), bytes);
        }
    }
}

TEST_P(KilledExport, InTheMiddleOfAFileLeavesTheOldOneWhole) {
    makeOlderSet();
    for (const rlim_t bytes : {rlim_t{1}, rlim_t{100}, rlim_t{500}, rlim_t{1000}}) {
        killWithin(bytes);
        EXPECT_LE(takeTemporaryFile(), static_cast<qsizetype>(bytes));
        // The first file, the noise, is larger than any of these limits.
        expectReplaced(0);
    }
}

TEST_P(KilledExport, DoesNotDisturbTheNext) {
    killAfter(1);
    killAfter(0);
    const auto leftOver = [&] {
        return folder.names(QStringLiteral("out/Brick")).filter(QStringLiteral(".quarlin-")).size();
    };
    EXPECT_EQ(leftOver(), 2);
    EXPECT_EQ(failure(), "");
    EXPECT_EQ(files().size(), static_cast<std::size_t>(setNames().size() + 2));
    for (const QString& file :
         folder.names(QStringLiteral("out/Brick")).filter(QStringLiteral(".quarlin-"))) {
        EXPECT_TRUE(QFile::remove(setPath() + u'/' + file));
    }
    expectWritten(setNames().size());
}

INSTANTIATE_TEST_SUITE_P(Exports, KilledExport, testing::Values(ExportKind::material, ExportKind::maps),
                         testing::PrintToStringParamName());

}  // namespace
