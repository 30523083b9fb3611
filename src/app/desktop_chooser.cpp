#include "app/desktop_chooser.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFileDialog>
#include <QSettings>

#include <functional>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// The patterns of a file type, in lower and upper case: some dialogs distinguish them.
QString patterns(ImageFileType type) {
    QStringList result;
    for (const QString& extension : extensions(type).split(u' ')) {
        result << u"*."_s + extension << u"*."_s + extension.toUpper();
    }
    return result.join(u' ');
}

/// Lets the windows below a dialog that has closed paint what it has covered. The work that follows keeps the
/// program from painting, and without a compositor nobody else does it.
void repaintWindows() {
    // A window manager takes its frame away and activates the window below when it gets round to it.
    constexpr int longest = 250;
    QDeadlineTimer patience(longest);
    while (QGuiApplication::focusWindow() == nullptr && !patience.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
    }
    // Until the display server has said what has been uncovered.
    constexpr int settling = 40;
    patience.setRemainingTime(settling);
    while (!patience.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, settling);
    }
}

/// The answer of `dialog`, which begins in the folder `place` if that is valid.
std::optional<QUrl> answerOf(QFileDialog& dialog, const QUrl& place) {
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setWindowModality(Qt::ApplicationModal);
    if (place.isValid()) {
        dialog.setDirectoryUrl(place);
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedUrls().isEmpty()) {
        return std::nullopt;
    }
    return dialog.selectedUrls().constFirst();
}

/// Asks with a dialog that `prepare` has set up, and returns once it is gone from the screen.
std::optional<QUrl> ask(const QString& title, const QUrl& place,
                        const std::function<void(QFileDialog&)>& prepare) {
    std::optional<QUrl> answer;
    {
        QFileDialog dialog(QApplication::activeWindow(), title);
        prepare(dialog);
        answer = answerOf(dialog, place);
        // Its end takes the list of suggestions from the screen as well.
    }
    repaintWindows();
    return answer;
}

}  // namespace

DesktopChooser::DesktopChooser() {
    // Qt's own dialog writes a history of folders into a settings file. Here that file cannot be made.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, u"/dev/null"_s);
}

QStringList DesktopChooser::nameFilters(const std::vector<ImageFileType>& types) {
    QStringList all;
    QStringList filters;
    for (const ImageFileType type : types) {
        all << patterns(type);
        filters << title(type) + u" Image ("_s + patterns(type) + u')';
    }
    filters.prepend(u"All Images ("_s + all.join(u' ') + u')');
    return filters;
}

std::optional<QUrl> DesktopChooser::chooseFile(const FileQuestion& question) {
    auto file = ask(question.title, m_texturePlace, [&question](QFileDialog& dialog) {
        dialog.setFileMode(QFileDialog::ExistingFile);
        dialog.setOption(QFileDialog::HideNameFilterDetails);
        dialog.setNameFilters(nameFilters(question.types));
        dialog.setLabelText(QFileDialog::Accept, question.confirmLabel);
    });
    if (file) {
        m_texturePlace = file->adjusted(QUrl::RemoveFilename | QUrl::StripTrailingSlash);
    }
    return file;
}

std::optional<QUrl> DesktopChooser::chooseFolder(const FolderQuestion& question) {
    auto folder = ask(question.title, m_exportPlace, [&question](QFileDialog& dialog) {
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly);
        dialog.setLabelText(QFileDialog::Accept, question.confirmLabel);
    });
    if (folder) {
        m_exportPlace = *folder;
    }
    return folder;
}

}  // namespace quarlin
