#pragma once

#include <QByteArray>
#include <QString>

#include <map>

namespace quarlin {

/// The generated files that are packaged with the program: the manual page and the completion scripts, each
/// by its path in the folder `packaging`.
std::map<QString, QByteArray> cliDocuments();

}  // namespace quarlin
