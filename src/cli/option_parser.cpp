#include "option_parser.h"

#include "usage_error.h"

#include <QCommandLineOption>
#include <QCommandLineParser>

namespace quarlin {

namespace {

const auto helpName = QStringLiteral("help");

/// A sentence of the parser without its full stop, which the other messages do not have either.
QString withoutFullStop(QString sentence) {
    if (sentence.endsWith(u'.')) {
        sentence.chop(1);
    }
    return sentence;
}

void declare(QCommandLineParser& parser, const CommandOptions& options) {
    parser.addOption(QCommandLineOption(helpName));
    for (const CommandOption& option : options) {
        QCommandLineOption declared(option.name);
        declared.setValueName(option.valueName);
        parser.addOption(declared);
    }
}

void apply(const QCommandLineParser& parser, const CommandOption& option) {
    if (!parser.isSet(option.name)) {
        if (option.required) {
            throw UsageError(QStringLiteral("--") + option.name + QStringLiteral(" is required"));
        }
        return;
    }
    const bool takesValue = !option.valueName.isEmpty();
    if (takesValue && parser.values(option.name).size() > 1) {
        throw UsageError(QStringLiteral("--") + option.name + QStringLiteral(" is given more than once"));
    }
    option.apply(takesValue ? parser.value(option.name) : QString());
}

}  // namespace

Request parseOptions(const QStringList& words, const CommandOptions& options) {
    QCommandLineParser parser;
    declare(parser, options);
    // The parser skips the first word, the name of the program.
    if (!parser.parse(QStringList{QString()} + words)) {
        throw UsageError(withoutFullStop(parser.errorText()));
    }
    if (parser.isSet(helpName)) {
        return Request::help;
    }
    if (const QStringList stray = parser.positionalArguments(); !stray.isEmpty()) {
        throw UsageError(QStringLiteral("Unexpected word '") + stray.first() + u'\'');
    }
    for (const CommandOption& option : options) {
        apply(parser, option);
    }
    return Request::work;
}

}  // namespace quarlin
