#pragma once

#include "cli/commands/command.h"

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
    /// May be relative.
    QStringList m_folders;
    bool m_reportsAsJSON = false;
};

}  // namespace quarlin
