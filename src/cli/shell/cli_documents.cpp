#include "cli/shell/cli_documents.h"

#include "cli/commands/commands.h"
#include "cli/shell/manual_page.h"
#include "cli/shell/shell_completion.h"

namespace quarlin {

using namespace Qt::StringLiterals;

std::map<QString, QByteArray> cliDocuments() {
    const Commands commands;
    return {{u"man/quarlin-cli.1"_s, manualPage(commands.all()).toUtf8()},
            {u"completion/bash/quarlin-cli"_s, bashCompletion(commands.all()).toUtf8()},
            {u"completion/zsh/_quarlin-cli"_s, zshCompletion(commands.all()).toUtf8()},
            {u"completion/fish/quarlin-cli.fish"_s, fishCompletion(commands.all()).toUtf8()}};
}

}  // namespace quarlin
