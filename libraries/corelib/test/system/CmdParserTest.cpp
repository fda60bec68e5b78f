#include "libraries/corelib/source/system/CmdParser.h"

#include "libraries/corelib/source/messaging/Logger.h"
#include "test/support/CorelibStateGuard.h"

#include <gtest/gtest.h>

#include <array>

namespace TarvikCorelib {
namespace {

class CmdParserTest : public testing::Test {
protected:
    CmdParserTest() {
        parser.specifyOptionOnlyArg("", 'a', "alpha");
        parser.specifyOptionOnlyArg("", 'b', "beta");
        parser.specifyOptionOnlyArg("", 'c', "");
        parser.specifyOptionWithValueArg("", 'f', "file", {});
        parser.specifyRequiredOptionWithFixedValuesArg("", 'm', "mode", {"off", "on"});
        parser.specifyOptionEqualsValue("", "level");
        parser.specifyRemainder("", "rest");
        parser.specifyValueArg("SOURCE");
        parser.specifyValueArg("TARGET");
    }

    // What the parser kept, in one line.
    std::string given() {
        std::string all;
        for (const char letter : {'a', 'b'}) {
            if (parser.haveOption(letter)) all += std::string(" ") + letter;
        }
        std::string value;
        for (const char* name : {"file", "mode", "level", "rest"}) {
            if (parser.getOptionValue(name, value)) all += std::string(" ") + name + "=" + value;
        }
        while (parser.getNextValueArg(value))
            all += " <" + value + ">";
        return all;
    }

    CmdParser parser;
    std::string output;
    tarvik_test::CorelibStateGuard guard;
};

struct WordsCase {
    const char* name;
    std::vector<std::string> words;
    const char* given;
    const char* error = "";
};

const auto accepted = std::to_array<WordsCase>({
    {"a value in single quotes keeps them", {"-f", "'x'"}, " file='x'"},
    {"a lone quote stays", {"-f", R"(")"}, R"( file=")"},
    {"name=value", {"level=a=b"}, " level=a=b"},
    {"the name of such a one behind dashes", {"--level", "x"}, " level=x"},
    {"all the rest", {"-a", "--rest", "x", "", "-b", "--"}, " a rest=x  -b --"},
    {"plain words", {"x", "-a", "y"}, " a <x> <y>"},
    {"behind two dashes all is plain", {"--", "-x", "a=b"}, " <-x> <a=b>"},
    {"ignored words", {"skip", "-a", "these", "x"}, " a <x>"},
    {"but not as values", {"-f", "skip"}, " file=skip"},
});

TEST_F(CmdParserTest, WordsAreRead) {
    for (const WordsCase& row : accepted) {
        EXPECT_TRUE(parser.parse(row.words, output, "skip,these")) << row.name << ": " << output;
        EXPECT_EQ(given(), row.given) << row.name;
    }
}

const auto rejected = std::to_array<WordsCase>({
    {"a dash in a bundle begins a name", {"-a-x"}, " a", "Unknown option 'x'"},
    {"an empty name", {"-a-"}, " a", "Unknown option ''"},
    {"a value that is not fixed", {"-m", "maybe"}, "", "Invalid argument to 'm' option"},
    {"a fixed one in quotes", {"-m", R"("on")"}, "", "Invalid argument to 'm' option"},
});

TEST_F(CmdParserTest, ABadWordEndsTheParseAndWhatCameBeforeItIsKept) {
    for (const WordsCase& row : rejected) {
        EXPECT_TRUE(parser.parse("an earlier", output, "")) << "its plain words are forgotten";
        EXPECT_FALSE(parser.parse(row.words, output, "")) << row.name;
        EXPECT_EQ(output, row.error) << row.name;
        EXPECT_EQ(given(), row.given) << row.name;
    }
}

TEST_F(CmdParserTest, UnknownOptionsMayBePlainWordsButNotWithAnEqualsSign) {
    parser.init("", false, true, false);
    EXPECT_TRUE(parser.parse("-axb --alpha --what y z", output, ""));
    EXPECT_EQ(given(), " a <-xb> <--what> <y> <z>");
    EXPECT_FALSE(parser.parse("what=x", output, ""));
    EXPECT_EQ(output, "Unknown option 'what'");
}

TEST_F(CmdParserTest, WordsAreIgnoredInEveryFormOfACommandLine) {
    const std::array<const char*, 2> words{"skip", "-a"};
    EXPECT_TRUE(parser.parse(2, words.data(), output, "skip"));
    EXPECT_EQ(given(), " a");
    EXPECT_TRUE(parser.parse("skip -b", output, "skip"));
    EXPECT_EQ(given(), " b");
}

TEST_F(CmdParserTest, ASecondInitChangesNothing) {
    parser.init("", false, true, false);
    parser.init("app", true, false, true);
    EXPECT_TRUE(parser.parse("-x", output, ""));
    EXPECT_EQ(given(), " <-x>");
    EXPECT_TRUE(parser.parse("--help", output, ""));
    EXPECT_EQ(given(), " <--help>");
}

TEST(CmdParserArgumentsTest, OptionsOfConfigurationFilesAreAllowedOnRequest) {
    for (const bool confOptions : {false, true}) {
        CmdParser parser;
        std::string output;
        parser.init("", true, false, confOptions);
        EXPECT_EQ(parser.parse("-c a --filereg b", output, ""), confOptions) << output;
    }
}

TEST_F(CmdParserTest, OfEqualNamesTheOneWithBothALetterAndANameIsMeant) {
    parser.specifyOptionOnlyArg("", 0, "alpha");
    parser.specifyOptionOnlyArg("", 'b', "");
    EXPECT_TRUE(parser.parse("--alpha -b", output, ""));
    EXPECT_TRUE(parser.haveOption('a'));
    EXPECT_TRUE(parser.haveOption("beta"));
}

TEST_F(CmdParserTest, NoLetterAndNoNameAreNoOptions) {
    EXPECT_TRUE(parser.parse("level=1 -c", output, ""));
    EXPECT_FALSE(parser.haveOption('\0'));
    EXPECT_FALSE(parser.haveOption(""));
}

TEST_F(CmdParserTest, AMappedValueMustBeInTheMap) {
    int number = 7;
    EXPECT_TRUE(parser.parse(R"(-f one -m on "--alpha" 'a b')", output, ""));
    EXPECT_TRUE(parser.getOptionValue('f', number, {{"one", 1}}));
    EXPECT_FALSE(parser.getOptionValue("mode", number, {{"one", 2}}));
    EXPECT_FALSE(parser.getOptionValue("alpha", number, {{"", 3}}));
    EXPECT_EQ(number, 1);
    EXPECT_EQ(given(), " a file=one mode=on <a b>");
}

TEST_F(CmdParserTest, OptionsThatCannotBeAreNotSpecified) {
    EXPECT_FALSE(parser.specifyOptionOnlyArg("", 'a', "alpha"));
    EXPECT_TRUE(parser.specifyOptionWithValueArg("", 'a', "alpha", {}));
    EXPECT_TRUE(parser.specifyOptionOnlyArg("", 'a', ""));
    EXPECT_FALSE(parser.specifyOptionWithValueArg("", 0, "", {}));
    EXPECT_FALSE(parser.specifyRequiredOptionWithFixedValuesArg("", 'x', "x", {}));
}

TEST(CmdParserArgumentsTest, TheWordsOfMainAreUnescaped) {
    CmdParser parser("app", false);
    parser.specifyValueArg("X");
    std::string output;
    const std::array<const char*, 3> words{"app", R"(\"a\'b\0c\d\)", nullptr};
    EXPECT_TRUE(parser.parse(2, words.data(), output, ""));
    EXPECT_TRUE(parser.getNextValueArg(output));
    EXPECT_EQ(output, R"("a\b0c\d)");
}

TEST(CmdParserArgumentsTest, WithoutAnyWordsTheExecutableIsMissing) {
    CmdParser parser("app", true);
    const std::array<const char*, 1> noWords{nullptr};
    for (const char* const* words : {static_cast<const char* const*>(nullptr), noWords.data()}) {
        std::string output;
        EXPECT_FALSE(parser.parse(1, words, output, ""));
        EXPECT_EQ(output, "Missing executable argument");
    }
}

TEST_F(CmdParserTest, OneTextIsReturnedAndTheVersionTakesPrecedence) {
    parser.init("", true, false, false);
    EXPECT_TRUE(parser.parse("--revision", output, ""));
    EXPECT_EQ(output, "25267");
    EXPECT_TRUE(parser.parse("--revision --version", output, ""));
    EXPECT_EQ(output, "7.0.0.0");
}

TEST_F(CmdParserTest, AnUnknownDebugLevelSilencesAllLogs) {
    parser.init("", true, false, false);
    EXPECT_TRUE(parser.parse("--debug Warning", output, ""));
    EXPECT_EQ(Logger::MainLevel, 3);
    EXPECT_TRUE(parser.parse("--debug nonsense", output, ""));
    EXPECT_EQ(Logger::MainLevel, 0);
}

TEST(CmdParserUsageTest, EveryTypeHasItsRow) {
    CmdParser parser("app", false);
    parser.specifyOptionWithValueArg("Only a letter", 'x', "", {});
    parser.specifyRemainder("Rest", "all-the-remainder-of-the-command");
    parser.specifyOptionEqualsValue("Level", "level");
    parser.specifyRequiredOptionWithFixedValuesArg("Mode", 'm', "mode",
                                                   {"automatic", "half-way", "no", "on"});
    parser.specifyValueArg("SOURCE");
    parser.specifyValueArg("TARGET");
    const std::string values(47, ' ');  // The widest name takes 36; 33 are left for the values.
    EXPECT_EQ(parser.getUsageText(),
              "Usage: app [options] <SOURCE> <TARGET>\n"
              "Options:\n"
              "  -x <arg>                                   : Only a letter\n"
              "  --all-the-remainder-of-the-command <arg>   : Rest\n"
              "  level=<value>                              : Level\n"
              "  -m <arg>\n"
              "    --mode <arg>                             : Mode\n" +
                  values + "(One of: automatic, half-way, no,\n" + values + "on)\n");
}

TEST(CmdParserUsageTest, ANameThatLeavesNoRoomLeavesItsValuesInOneLine) {
    CmdParser parser;
    const std::string name(70, 'x');
    parser.specifyRequiredOptionWithFixedValuesArg("Mode", 0, name, {"a", "b"});
    EXPECT_EQ(parser.getUsageText(), "Usage: [options]\nOptions:\n  --" + name +
                                         " <arg>   : Mode\n" + std::string(85, ' ') +
                                         "(One of: a, b)\n");
}

std::string x(std::size_t count) {
    return std::string().append(count, 'x');
}

struct DocCase {
    const char* name;
    std::string line;
    std::string shown;
};

const auto docCases = std::to_array<DocCase>({
    {"60 characters fit, even if one of them could break", x(50) + " " + x(9), x(50) + " " + x(9)},
    {"a blank behind them breaks", x(60) + " y", x(60) + "\ny"},
    {"a dash behind them still goes with them", x(60) + "-y", x(60) + "-\ny"},
    {"the last place to break", x(31) + " " + x(40), x(31) + "\n" + x(40)},
    {"one earlier there is none", x(30) + " " + x(40), x(30) + " " + x(40)},
    {"white space behind the break goes", x(60) + " \t\v y", x(60) + "\ny"},
    {"before it stays", x(50) + "  " + x(20), x(50) + " \n" + x(20)},
    {"the rest gets the indent", " \t" + x(57) + " " + x(60), " \t" + x(57) + "\n \t" + x(60)},
    {"blanks at the end leave the indent", "  " + x(58) + " ", "  " + x(58) + "\n  "},
    {"a line may break often", x(50) + "-" + x(50) + "-x", x(50) + "-\n" + x(50) + "-x"},
    {"an indent does not break", std::string(70, ' ') + "x y", std::string(70, ' ') + "x y"},
    {"nor does it keep a line from ending", std::string(59, ' ') + "--x",
     std::string(59, ' ') + "--\n" + std::string(59, ' ') + "x"},
});

TEST(CmdParserUsageTest, LongDocLinesAreWrappedUnderTheirIndent) {
    for (const DocCase& row : docCases) {
        CmdParser parser;
        parser.addDocLine(row.line);
        EXPECT_EQ(parser.getUsageText(), "Usage:\n\n" + row.shown + "\n") << row.name;
    }
}

}  // namespace
}  // namespace TarvikCorelib
