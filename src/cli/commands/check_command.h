#pragma once

#include "cli/commands/command.h"

#include <QUrl>

namespace quarlin {

using namespace Qt::StringLiterals;

/// Reads exported sets back and reports what would go wrong on upload.
class CheckCommand : public Command {
public:
    QString name() const override { return u"check"_s; }
    QString summary() const override;
    QStringList remarks() const override;
    CommandOptions options() override;
    std::vector<ExitMeaning> exitMeanings() const override;
    ExitStatus run() const override;

private:
    /// The sets to check at `location`.
    std::vector<QUrl> setsAt(const QUrl& location) const;

    /// Folders and documents; may be relative.
    QStringList m_paths;
    bool m_isRecursive = false;
    bool m_reportsAsJSON = false;
};

}  // namespace quarlin
