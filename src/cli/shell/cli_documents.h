#pragma once

#include <QByteArray>
#include <QString>

#include <map>

namespace quarlin {

/// The documents on the program that come with it, the manual page and the completions of the shells: each
/// file by its path in the folder `packaging`.
std::map<QString, QByteArray> cliDocuments();

}  // namespace quarlin
