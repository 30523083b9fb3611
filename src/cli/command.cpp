#include "command.h"

#include "local_file.h"

namespace quarlin {

CommandOptions Command::options() {
    CommandOptions all = ownOptions();
    all.push_back(
        required(pathOption(QStringLiteral("output"), QStringLiteral("DIR"),
                            QStringLiteral("folder in which the set's own folder is made"), m_output)));
    all.push_back(switchOption(QStringLiteral("json"),
                               QStringLiteral("report folder and files as one JSON object"), m_reportsAsJSON,
                               true));
    return all;
}

QUrl Command::parentDirectory() const { return localFile(m_output); }

}  // namespace quarlin
