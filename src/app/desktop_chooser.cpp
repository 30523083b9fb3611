#include "app/desktop_chooser.h"

#include <QApplication>
#include <QFileDialog>

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

std::optional<QUrl> answer(QFileDialog& dialog) {
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setWindowModality(Qt::ApplicationModal);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedUrls().isEmpty()) {
        return std::nullopt;
    }
    return dialog.selectedUrls().constFirst();
}

}  // namespace

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
    QFileDialog dialog(QApplication::activeWindow(), question.title);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters(question.types));
    dialog.setLabelText(QFileDialog::Accept, question.confirmLabel);
    return answer(dialog);
}

std::optional<QUrl> DesktopChooser::chooseFolder(const FolderQuestion& question) {
    QFileDialog dialog(QApplication::activeWindow(), question.title);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setLabelText(QFileDialog::Accept, question.confirmLabel);
    return answer(dialog);
}

}  // namespace quarlin
