#include "cli_documents.h"

#include "commands.h"
#include "manual_page.h"
#include "shell_completion.h"

namespace quarlin {

std::map<QString, QByteArray> cliDocuments() {
    const Commands commands;
    return {{QStringLiteral("man/quarlin-cli.1"), manualPage(commands.all()).toUtf8()},
            {QStringLiteral("completion/bash/quarlin-cli"), bashCompletion(commands.all()).toUtf8()},
            {QStringLiteral("completion/zsh/_quarlin-cli"), zshCompletion(commands.all()).toUtf8()},
            {QStringLiteral("completion/fish/quarlin-cli.fish"), fishCompletion(commands.all()).toUtf8()}};
}

}  // namespace quarlin
