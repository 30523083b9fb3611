// Writes the manual page of quarlin-cli and the completions of the shells.
//   write_cli_documents FOLDER

#include "cli/shell/cli_documents.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

int main(int argumentCount, char* arguments[]) {
    if (argumentCount != 2) {
        std::fputs("usage: write_cli_documents FOLDER\n", stderr);
        return 2;
    }
    const QDir folder(QFile::decodeName(arguments[1]));
    for (const auto& [name, text] : quarlin::cliDocuments()) {
        QFile file(folder.filePath(name));
        if (!QDir().mkpath(QFileInfo(file).path()) || !file.open(QIODevice::WriteOnly) ||
            file.write(text) != text.size()) {
            std::fprintf(stderr, "write_cli_documents: can't write %s\n", qPrintable(file.fileName()));
            return 1;
        }
    }
    return 0;
}
