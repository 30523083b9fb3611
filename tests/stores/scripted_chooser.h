#pragma once

#include "stores/chooser.h"

#include <QUrl>

#include <optional>
#include <vector>

namespace quarlin::fixtures {

/// Answers every question with a prepared answer, and records what it was asked.
struct ScriptedChooser : Chooser {
    std::optional<QUrl> file;
    std::optional<QUrl> folder;
    std::vector<FileQuestion> fileQuestions;
    std::vector<FolderQuestion> folderQuestions;

    std::optional<QUrl> chooseFile(const FileQuestion& question) override {
        fileQuestions.push_back(question);
        return file;
    }
    std::optional<QUrl> chooseFolder(const FolderQuestion& question) override {
        folderQuestions.push_back(question);
        return folder;
    }
};

}  // namespace quarlin::fixtures
