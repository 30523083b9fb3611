// Parses arguments. No command is run, so no file is touched.

#include "cli/commands/maps_command.h"
#include "cli/commands/material_command.h"
#include "cli/options/option_parser.h"
#include "cli/options/usage_error.h"
#include "expectation.h"

#include <QString>
#include <QStringList>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

using namespace quarlin;
using namespace quarlin::fuzz;

namespace {

using Assignments = std::vector<std::pair<QString, QString>>;

struct Outcome {
    std::optional<Request> request;
    QString complaint;
    Assignments assignments;

    bool operator==(const Outcome&) const = default;
};

Outcome parse(const QStringList& words, Command& command) {
    Outcome outcome;
    CommandOptions options = command.options();
    for (CommandOption& option : options) {
        option.apply = [&outcome, name = option.name, apply = option.apply](const QString& value) {
            apply(value);
            outcome.assignments.emplace_back(name, value);
        };
    }
    try {
        outcome.request = parseOptions(words, options);
    } catch (const UsageError& error) {
        outcome.complaint = error.message();
    }
    return outcome;
}

/// Whether `value` is among the arguments: as one of its own, or after an equals sign.
bool isGiven(const QStringList& words, const QString& value) {
    return value.isEmpty() || std::any_of(words.begin(), words.end(), [&](const QString& word) {
               return word == value || word.endsWith(u'=' + value);
           });
}

void expectWellFormed(const QStringList& words, const CommandOptions& options, const Outcome& outcome) {
    for (const auto& [name, value] : outcome.assignments) {
        expect(isGiven(words, value), "a value was given");
        expect(std::any_of(words.begin(), words.end(),
                           [&, option = name](const QString& word) { return word.contains(option); }),
               "an option was given");
    }
    const auto isSet = [&](const CommandOption& option) {
        return std::count_if(outcome.assignments.begin(), outcome.assignments.end(),
                             [&](const auto& assignment) { return assignment.first == option.name; });
    };
    for (const CommandOption& option : options) {
        expect(isSet(option) <= 1, "an option is set once");
        expect(!option.required || isSet(option) == 1 || outcome.request != Request::work,
               "no work without the required options");
    }
    if (outcome.request) {
        expect(*outcome.request == Request::work || outcome.assignments.empty(),
               "asking for help sets nothing");
    } else {
        expect(!outcome.complaint.isEmpty(), "a complaint says something");
    }
}

template <typename SomeCommand>
void parseFor(const QStringList& words) {
    SomeCommand command;
    const Outcome outcome = parse(words, command);
    expectWellFormed(words, command.options(), outcome);
    SomeCommand another;
    expect(parse(words, another) == outcome, "the same words give the same outcome");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // One argument per line.
    const QString text = QString::fromLocal8Bit(QByteArrayView(data, static_cast<qsizetype>(size)));
    const QStringList words = text.isEmpty() ? QStringList() : text.split(u'\n');
    parseFor<MaterialCommand>(words);
    parseFor<MapsCommand>(words);
    return 0;
}
