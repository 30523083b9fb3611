#include "cli_test.h"
#include "set_files.h"

#include <QDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::tests;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class Usage : public CliTest {};

TEST_F(Usage, VersionIsOneLine) {
    const Outcome outcome = runCli({u"--version"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "quarlin-cli " QUARLIN_VERSION "\n");
    EXPECT_EQ(outcome.errors, "");
}

TEST_F(Usage, HelpNamesTheCommands) {
    const Outcome outcome = runCli({u"--help"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_THAT(outcome.output, StartsWith("Usage: quarlin-cli COMMAND [OPTION...]\n"));
    EXPECT_THAT(outcome.output, HasSubstr("\n  material "));
    EXPECT_THAT(outcome.output, HasSubstr("\n  maps "));
    EXPECT_THAT(outcome.output, HasSubstr("\n  check "));
}

struct CommandWords {
    const char* name;
    std::vector<const char*> options;
};

class CommandHelp : public testing::TestWithParam<CommandWords> {};

TEST_P(CommandHelp, NamesEveryOption) {
    const QString command = QString::fromLatin1(GetParam().name);
    const Outcome outcome = runCli({command, u"--help"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_THAT(outcome.output, StartsWith("Usage: quarlin-cli " + command.toStdString() + " --"));
    for (const std::string option : GetParam().options) {
        EXPECT_THAT(outcome.output, HasSubstr("\n  --" + option + " "));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Commands, CommandHelp,
    testing::Values(CommandWords{"material",
                                 {"base-color FILE", "normal FILE", "occlusion FILE", "roughness FILE",
                                  "metallic FILE", "name TEXT", "size SIZE", "gloss", "flip-normal-green",
                                  "default-occlusion F", "default-roughness F", "default-metallic F",
                                  "output DIR", "json", "folder DIR", "recursive", "jobs N", "dry-run"}},
                    CommandWords{"maps",
                                 {"source FILE", "name TEXT", "size SIZE", "strength F", "smoothing N",
                                  "invert-height", "flip-green", "roughness-min F", "roughness-max F",
                                  "metallic-strength F", "ao-strength F", "output DIR", "json", "recursive",
                                  "jobs N", "dry-run"}}),
    [](const auto& tested) { return std::string(tested.param.name); });

template <typename File>
void expectFileOptions(const QString& command, const std::vector<File>& files) {
    const Outcome outcome = runCli({command, u"--help"_s});
    for (const File& file : fixtures::withSwitch(files)) {
        EXPECT_THAT(outcome.output,
                    testing::ContainsRegex("\n  " + std::string(file.option) + " +" + file.help + "\n"));
    }
}

TEST(CommandHelp, NamesTheOptionThatLeavesOutAFile) {
    expectFileOptions(u"maps"_s, fixtures::generatedFiles());
    expectFileOptions(u"material"_s, fixtures::materialFiles());
}

struct BadWords {
    const char* name;
    const char* words;
    const char* message;
    /// The command whose help is pointed to.
    const char* help;
};

class WordsThatAreOff : public CliTest, public testing::WithParamInterface<BadWords> {};

TEST_P(WordsThatAreOff, AreRejectedBeforeAnyWork) {
    const BadWords& bad = GetParam();
    writeGray(u"in.png"_s, 128);
    QStringList words;
    for (const QString& word : QString::fromLatin1(bad.words).split(u' ', Qt::SkipEmptyParts)) {
        words += word == u"''"_s ? QString() : word;
    }
    const Outcome outcome = runCli(words, path({}));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors,
              std::string("quarlin-cli: ") + bad.message + "\nTry 'quarlin-cli " + bad.help + "--help'.\n");
    EXPECT_FALSE(QDir(path(u"out"_s)).exists());
}

INSTANTIATE_TEST_SUITE_P(
    Words, WordsThatAreOff,
    testing::Values(
        BadWords{"None", "", "A command is missing", ""},
        BadWords{"UnknownCommand", "bake", "Unknown command 'bake'", ""},
        BadWords{"OptionsWithoutCommand", "--json", "Unknown command '--json'", ""},
        BadWords{"NoBaseColor", "material --output out", "--base-color is required", "material "},
        BadWords{"NoMaterialOutput", "material --base-color in.png", "--output is required", "material "},
        BadWords{"NoSource", "maps --output out", "--source is required", "maps "},
        BadWords{"NoMapsOutput", "maps --source in.png", "--output is required", "maps "},
        BadWords{"UnknownOption", "maps --source in.png --output out --sharpness 3",
                 "Unknown option 'sharpness'", "maps "},
        BadWords{"OptionOfTheOtherCommand", "material --base-color in.png --output out --strength 3",
                 "Unknown option 'strength'", "material "},
        BadWords{"StrayWord", "material --base-color in.png --output out more", "Unexpected word 'more'",
                 "material "},
        BadWords{"MissingValue", "maps --source in.png --output", "Missing value after '--output'", "maps "},
        BadWords{"ValueOfASwitch", "maps --source in.png --output out --no-orm=yes",
                 "Unexpected value after '--no-orm'", "maps "},
        BadWords{"TwoValues", "maps --source in.png --output out --strength 3 --strength 4",
                 "--strength is given more than once", "maps "},
        BadWords{"EmptyFile", "material --base-color '' --output out", "--base-color takes a path, not ''",
                 "material "},
        BadWords{"EmptyOutput", "maps --source in.png --output ''", "--output takes a path, not ''", "maps "},
        BadWords{"EmptySource", "maps --source in.png --source '' --output out",
                 "--source takes a path, not ''", "maps "},
        BadWords{"EmptyFolder", "material --folder '' --output out", "--folder takes a path, not ''",
                 "material "},
        BadWords{"NoJobs", "maps --source in.png --output out --jobs 0",
                 "--jobs takes a whole number from 1 to 64, not '0'", "maps "},
        BadWords{"TooManyJobs", "maps --source in.png --output out --jobs 65",
                 "--jobs takes a whole number from 1 to 64, not '65'", "maps "},
        BadWords{"UnknownSize", "maps --source in.png --output out --size 256",
                 "--size takes base, 512, 1024, 2048 or 4096, not '256'", "maps "},
        BadWords{"StrengthTooSmall", "maps --source in.png --output out --strength 0.19",
                 "--strength takes a number from 0.2 to 10, not '0.19'", "maps "},
        BadWords{"StrengthTooLarge", "maps --source in.png --output out --strength 10.001",
                 "--strength takes a number from 0.2 to 10, not '10.001'", "maps "},
        BadWords{"StrengthNotANumber", "maps --source in.png --output out --strength nan",
                 "--strength takes a number from 0.2 to 10, not 'nan'", "maps "},
        BadWords{"StrengthInfinite", "maps --source in.png --output out --strength inf",
                 "--strength takes a number from 0.2 to 10, not 'inf'", "maps "},
        BadWords{"StrengthWithComma", "maps --source in.png --output out --strength 1,5",
                 "--strength takes a number from 0.2 to 10, not '1,5'", "maps "},
        BadWords{"SmoothingNegative", "maps --source in.png --output out --smoothing -1",
                 "--smoothing takes a whole number from 0 to 4, not '-1'", "maps "},
        BadWords{"SmoothingTooLarge", "maps --source in.png --output out --smoothing 5",
                 "--smoothing takes a whole number from 0 to 4, not '5'", "maps "},
        BadWords{"SmoothingBroken", "maps --source in.png --output out --smoothing 1.5",
                 "--smoothing takes a whole number from 0 to 4, not '1.5'", "maps "},
        BadWords{"RoughnessMin", "maps --source in.png --output out --roughness-min -0.1",
                 "--roughness-min takes a number from 0 to 1, not '-0.1'", "maps "},
        BadWords{"RoughnessMax", "maps --source in.png --output out --roughness-max 1.1",
                 "--roughness-max takes a number from 0 to 1, not '1.1'", "maps "},
        BadWords{"MetallicStrength", "maps --source in.png --output out --metallic-strength 2",
                 "--metallic-strength takes a number from 0 to 1, not '2'", "maps "},
        BadWords{"AoStrength", "maps --source in.png --output out --ao-strength x",
                 "--ao-strength takes a number from 0 to 1, not 'x'", "maps "},
        BadWords{"DefaultOcclusion", "material --base-color in.png --output out --default-occlusion 1.01",
                 "--default-occlusion takes a number from 0 to 1, not '1.01'", "material "},
        BadWords{"DefaultRoughness", "material --base-color in.png --output out --default-roughness 65%",
                 "--default-roughness takes a number from 0 to 1, not '65%'", "material "},
        BadWords{"DefaultMetallic", "material --base-color in.png --output out --default-metallic ''",
                 "--default-metallic takes a number from 0 to 1, not ''", "material "}),
    [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
