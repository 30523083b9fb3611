#include "cli/options/option_parser.h"

#include "cli/options/nearest_name.h"
#include "cli/options/usage_error.h"

#include <QCommandLineOption>
#include <QCommandLineParser>

#include <algorithm>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

const auto helpName = u"help"_s;

/// A message of Qt's parser without its full stop, as the other messages are written.
QString withoutFullStop(QString sentence) {
    if (sentence.endsWith(u'.')) {
        sentence.chop(1);
    }
    return sentence;
}

void declare(QCommandLineParser& parser, const CommandOptions& options) {
    parser.addOption(QCommandLineOption(QStringList{u"h"_s, helpName}));
    for (const CommandOption& option : options) {
        if (!option.name.isEmpty()) {
            QCommandLineOption declared(option.name);
            declared.setValueName(option.valueName);
            parser.addOption(declared);
        }
    }
}

/// The option that the first unknown one may be meant for.
QString suggestionFor(const QCommandLineParser& parser, const CommandOptions& options) {
    const QStringList unknown = parser.unknownOptionNames();
    QStringList names{helpName};
    for (const CommandOption& option : options) {
        names += option.name;
    }
    return unknown.isEmpty() ? QString() : suggestion(unknown.first(), names);
}

bool isGiven(const QCommandLineParser& parser, const QString& name) {
    return !name.isEmpty() && parser.isSet(name);
}

/// The values given for `option`; for a switch that is given, one empty value.
QStringList valuesOf(const QCommandLineParser& parser, const CommandOption& option) {
    if (option.name.isEmpty()) {
        return parser.positionalArguments();
    }
    if (!parser.isSet(option.name)) {
        return {};
    }
    return option.valueName.isEmpty() ? QStringList{QString()} : parser.values(option.name);
}

void apply(const QCommandLineParser& parser, const CommandOption& option) {
    const QStringList values = valuesOf(parser, option);
    const QString usage = option.name.isEmpty() ? option.valueName : u"--"_s + option.name;
    if (values.isEmpty() && option.required && !isGiven(parser, option.alternative)) {
        const QString other = option.alternative.isEmpty() ? QString() : u" or --"_s + option.alternative;
        throw UsageError(usage + other + u" is required"_s);
    }
    if (values.size() > 1 && !option.repeatable) {
        throw UsageError(usage + u" is given more than once"_s);
    }
    for (const QString& value : values) {
        option.apply(value);
    }
}

bool takesPositionalArguments(const CommandOptions& options) {
    return std::any_of(options.begin(), options.end(),
                       [](const CommandOption& option) { return option.name.isEmpty(); });
}

}  // namespace

Request parseOptions(const QStringList& arguments, const CommandOptions& options) {
    QCommandLineParser parser;
    declare(parser, options);
    // The parser skips the first argument, the name of the program.
    if (!parser.parse(QStringList{QString()} + arguments)) {
        throw UsageError(withoutFullStop(parser.errorText()) + suggestionFor(parser, options));
    }
    if (parser.isSet(helpName)) {
        return Request::help;
    }
    const QStringList positional = parser.positionalArguments();
    if (!positional.isEmpty() && !takesPositionalArguments(options)) {
        throw UsageError(u"Unexpected argument '"_s + positional.first() + u'\'');
    }
    for (const CommandOption& option : options) {
        apply(parser, option);
    }
    return Request::work;
}

}  // namespace quarlin
