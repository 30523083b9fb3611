#pragma once

#include "matching/map_words.h"
#include "matching/texture_preference.h"

#include <QString>
#include <QStringList>
#include <QUrl>

#include <exception>
#include <utility>

namespace quarlin {

/// How the files of a folder are matched to slots.
struct TextureRules {
    MapWords words;
    TexturePreference preference;
};

/// A rule for names is invalid.
class TextureRuleError : public std::exception {
public:
    explicit TextureRuleError(QString reason) : m_reason(std::move(reason)) {}

    /// A clause for the user.
    const QString& reason() const { return m_reason; }
    const char* what() const noexcept override { return "a rule for names is invalid"; }

private:
    QString m_reason;
};

/// The names that a rule may give before "=": the kinds of map, "normal-gl" and "normal-dx".
QStringList ruleNames();

/// Adds a rule "KIND=WORD,...": names that end in one of the words are of the kind. Throws
/// `TextureRuleError`.
void addSuffixRule(const QString& rule, MapWords& words);

/// Adds the rules of a text file in UTF-8, one per line; empty lines and those that begin with "#" are
/// skipped. Throws `TextureRuleError`, which names the file and the line.
void addRulesOfFile(const QUrl& file, MapWords& words);

}  // namespace quarlin
