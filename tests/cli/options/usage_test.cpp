#include "cli_test.h"
#include "set_files.h"

#include <QDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::tests;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

class Usage : public CliTest {};

TEST_F(Usage, VersionIsOneLine) {
    const Outcome outcome = runCli({u"--version"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "quarlin-cli " QUARLIN_VERSION "\n");
    EXPECT_EQ(outcome.errors, "");
}

#ifdef Q_OS_LINUX
// Loading them, with all that they need, takes longer than everything else at the start.
TEST_F(Usage, StartsWithoutTheLibrariesThatFewFilesNeed) {
    const Outcome libraries =
        runCliThroughShell(u"LD_TRACE_LOADED_OBJECTS=1 exec \"$@\""_s, {u"--version"_s});
    EXPECT_THAT(libraries.output, HasSubstr("libQt6Core"));
    EXPECT_THAT(libraries.output, Not(HasSubstr("libvips")));
    EXPECT_THAT(libraries.output, Not(HasSubstr("libheif")));
}
#endif

TEST_F(Usage, HelpNamesTheCommands) {
    const Outcome outcome = runCli({u"--help"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_THAT(outcome.output, StartsWith("Usage: quarlin-cli COMMAND [OPTION...]\n"));
    EXPECT_THAT(outcome.output, HasSubstr("\n  material "));
    EXPECT_THAT(outcome.output, HasSubstr("\n  maps "));
    EXPECT_THAT(outcome.output, HasSubstr("\n  check "));
}

TEST_F(Usage, HelpListsTheInputFormats) {
    const auto sentence =
        HasSubstr("\nTextures can be PNG, JPEG, TIFF, BMP, GIF, HEIC, WebP, AVIF or Targa files.\n");
    EXPECT_THAT(runCli({u"--help"_s}).output, sentence);
    EXPECT_THAT(runCli({u"material"_s, u"--help"_s}).output, sentence);
    EXPECT_THAT(runCli({u"maps"_s, u"--help"_s}).output, sentence);
}

TEST_F(Usage, HelpHasThreeNames) {
    const std::string help = runCli({u"--help"_s}).output;
    EXPECT_EQ(runCli({u"-h"_s}).output, help);
    EXPECT_EQ(runCli({u"help"_s}).output, help);
    for (const QString& command : {u"material"_s, u"maps"_s, u"check"_s}) {
        const std::string own = runCli({command, u"--help"_s}).output;
        EXPECT_EQ(runCli({command, u"-h"_s}).output, own);
        EXPECT_EQ(runCli({u"help"_s, command}).output, own);
    }
    EXPECT_EQ(runCli({u"help"_s, u"bake"_s}).status, 2);
}

struct CommandOptionNames {
    const char* name;
    std::vector<const char*> options;
};

class CommandHelp : public testing::TestWithParam<CommandOptionNames> {};

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
    testing::Values(CommandOptionNames{"material",
                                       {"base-color FILE",
                                        "normal FILE",
                                        "occlusion FILE",
                                        "roughness FILE",
                                        "metallic FILE",
                                        "name TEXT",
                                        "size SIZE",
                                        "gloss",
                                        "flip-normal-green",
                                        "raw-data",
                                        "default-occlusion F",
                                        "default-roughness F",
                                        "default-metallic F",
                                        "output DIR",
                                        "json",
                                        "folder DIR",
                                        "recursive",
                                        "keep-tree",
                                        "prefer WORD,...",
                                        "suffix KIND=WORD,...",
                                        "rules FILE",
                                        "strict",
                                        "update",
                                        "jobs N",
                                        "dry-run"}},
                    CommandOptionNames{"maps",
                                       {"source FILE", "name TEXT", "size SIZE", "strength F", "smoothing N",
                                        "invert-height", "flip-green", "roughness-min F", "roughness-max F",
                                        "metallic-strength F", "ao-strength F", "output DIR", "json",
                                        "recursive", "keep-tree", "all", "update", "jobs N", "dry-run"}}),
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

struct InvalidArgument {
    const char* name;
    const char* arguments;
    const char* message;
    /// The command whose help the message refers to.
    const char* help;
};

class InvalidArguments : public CliTest, public testing::WithParamInterface<InvalidArgument> {};

TEST_P(InvalidArguments, AreRejectedBeforeAnyWork) {
    const InvalidArgument& bad = GetParam();
    writeGray(u"in.png"_s, 128);
    QStringList arguments;
    for (const QString& word : QString::fromLatin1(bad.arguments).split(u' ', Qt::SkipEmptyParts)) {
        arguments += word == u"''"_s ? QString() : word;
    }
    const Outcome outcome = runCli(arguments, path({}));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors,
              std::string("quarlin-cli: ") + bad.message + "\nTry 'quarlin-cli " + bad.help + "--help'.\n");
    EXPECT_FALSE(QDir(path(u"out"_s)).exists());
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, InvalidArguments,
    testing::Values(
        InvalidArgument{"None", "", "A command is missing", ""},
        InvalidArgument{"UnknownCommand", "bake", "Unknown command 'bake'", ""},
        InvalidArgument{"MistypedCommand", "materiel", "Unknown command 'materiel'; did you mean 'material'?",
                        ""},
        InvalidArgument{"MistypedOption", "maps --source in.png --ouput out",
                        "Unknown option 'ouput'; did you mean 'output'?", "maps "},
        InvalidArgument{"OptionsWithoutCommand", "--json", "Unknown command '--json'", ""},
        InvalidArgument{"NoBaseColor", "material --output out", "--base-color or --folder is required",
                        "material "},
        InvalidArgument{"NoMaterialOutput", "material --base-color in.png", "--output is required",
                        "material "},
        InvalidArgument{"NoSource", "maps --output out", "--source is required", "maps "},
        InvalidArgument{"NoMapsOutput", "maps --source in.png", "--output is required", "maps "},
        InvalidArgument{"UnknownOption", "maps --source in.png --output out --sharpness 3",
                        "Unknown option 'sharpness'", "maps "},
        InvalidArgument{"OptionOfTheOtherCommand", "material --base-color in.png --output out --strength 3",
                        "Unknown option 'strength'", "material "},
        InvalidArgument{"StrayArgument", "material --base-color in.png --output out more",
                        "Unexpected argument 'more'", "material "},
        InvalidArgument{"MissingValue", "maps --source in.png --output", "Missing value after '--output'",
                        "maps "},
        InvalidArgument{"ValueOfASwitch", "maps --source in.png --output out --no-orm=yes",
                        "Unexpected value after '--no-orm'", "maps "},
        InvalidArgument{"TwoValues", "maps --source in.png --output out --strength 3 --strength 4",
                        "--strength is given more than once", "maps "},
        InvalidArgument{"EmptyFile", "material --base-color '' --output out",
                        "--base-color takes a path, not ''", "material "},
        InvalidArgument{"EmptyOutput", "maps --source in.png --output ''", "--output takes a path, not ''",
                        "maps "},
        InvalidArgument{"EmptySource", "maps --source in.png --source '' --output out",
                        "--source takes a path, not ''", "maps "},
        InvalidArgument{"EmptyFolder", "material --folder '' --output out", "--folder takes a path, not ''",
                        "material "},
        InvalidArgument{"NoJobs", "maps --source in.png --output out --jobs 0",
                        "--jobs takes a whole number from 1 to 64, not '0'", "maps "},
        InvalidArgument{"TooManyJobs", "maps --source in.png --output out --jobs 65",
                        "--jobs takes a whole number from 1 to 64, not '65'", "maps "},
        InvalidArgument{
            "UnknownPreference", "material --folder . --output out --prefer gl,big",
            "--prefer takes larger, smaller, lossless, lossy, gl, dx, roughness, gloss, separate, "
            "packed, a resolution (2k) or an extension (png), not 'big'",
            "material "},
        InvalidArgument{"SuffixWithoutKind", "material --folder . --output out --suffix tint",
                        "--suffix: 'tint' is not of the form KIND=WORD", "material "},
        InvalidArgument{"MissingRules", "material --folder . --output out --rules none.txt",
                        "--rules: none.txt can't be read", "material "},
        InvalidArgument{"EmptyChannelFile", "material --base-color in.png --roughness '' --output out",
                        "--roughness takes a path, not ''", "material "},
        InvalidArgument{"UnknownSize", "maps --source in.png --output out --size 256",
                        "--size takes base, 512, 1024, 2048 or 4096, not '256'", "maps "},
        InvalidArgument{"StrengthTooSmall", "maps --source in.png --output out --strength 0.19",
                        "--strength takes a number from 0.2 to 10, not '0.19'", "maps "},
        InvalidArgument{"StrengthTooLarge", "maps --source in.png --output out --strength 10.001",
                        "--strength takes a number from 0.2 to 10, not '10.001'", "maps "},
        InvalidArgument{"StrengthNotANumber", "maps --source in.png --output out --strength nan",
                        "--strength takes a number from 0.2 to 10, not 'nan'", "maps "},
        InvalidArgument{"StrengthInfinite", "maps --source in.png --output out --strength inf",
                        "--strength takes a number from 0.2 to 10, not 'inf'", "maps "},
        InvalidArgument{"StrengthWithComma", "maps --source in.png --output out --strength 1,5",
                        "--strength takes a number from 0.2 to 10, not '1,5'", "maps "},
        InvalidArgument{"SmoothingNegative", "maps --source in.png --output out --smoothing -1",
                        "--smoothing takes a whole number from 0 to 4, not '-1'", "maps "},
        InvalidArgument{"SmoothingTooLarge", "maps --source in.png --output out --smoothing 5",
                        "--smoothing takes a whole number from 0 to 4, not '5'", "maps "},
        InvalidArgument{"SmoothingFraction", "maps --source in.png --output out --smoothing 1.5",
                        "--smoothing takes a whole number from 0 to 4, not '1.5'", "maps "},
        InvalidArgument{"RoughnessMin", "maps --source in.png --output out --roughness-min -0.1",
                        "--roughness-min takes a number from 0 to 1, not '-0.1'", "maps "},
        InvalidArgument{"RoughnessMax", "maps --source in.png --output out --roughness-max 1.1",
                        "--roughness-max takes a number from 0 to 1, not '1.1'", "maps "},
        InvalidArgument{"MetallicStrength", "maps --source in.png --output out --metallic-strength 2",
                        "--metallic-strength takes a number from 0 to 1, not '2'", "maps "},
        InvalidArgument{"AoStrength", "maps --source in.png --output out --ao-strength x",
                        "--ao-strength takes a number from 0 to 1, not 'x'", "maps "},
        InvalidArgument{"DefaultOcclusion",
                        "material --base-color in.png --output out --default-occlusion 1.01",
                        "--default-occlusion takes a number from 0 to 1, not '1.01'", "material "},
        InvalidArgument{"DefaultRoughness",
                        "material --base-color in.png --output out --default-roughness 65%",
                        "--default-roughness takes a number from 0 to 1, not '65%'", "material "},
        InvalidArgument{"DefaultMetallic", "material --base-color in.png --output out --default-metallic ''",
                        "--default-metallic takes a number from 0 to 1, not ''", "material "}),
    [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
