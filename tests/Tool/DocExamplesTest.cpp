// The shell examples of README.md and docs/cli.md, run as written: every `$ vastrel ...`
// line of a console block must print exactly the lines below it ("..." ends a listing that
// was cut), and `$ echo $?` the status of the command before it.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "ToolRunner.hpp"
#include "support/TestSupport.hpp"

namespace vastrel::tool::testing {
namespace {

struct Example {
    std::string command;  // without the "$ "
    std::vector<std::string> output;
    int line = 0;
};

// The commands of every ```console block, with the lines each is shown to print.
std::vector<Example> examplesIn(const std::string& text) {
    std::vector<Example> examples;
    std::istringstream lines(text);
    std::string line;
    bool inConsole = false;
    for (int number = 1; std::getline(lines, line); ++number) {
        if (line.starts_with("```")) {
            inConsole = line == "```console";
        } else if (inConsole && line.starts_with("$ ")) {
            examples.push_back({line.substr(2), {}, number});
        } else if (inConsole && !examples.empty()) {
            examples.back().output.push_back(line);
        }
    }
    return examples;
}

// Words as the shell splits them: blanks between words, quotes kept together.
std::vector<std::string> shellWords(const std::string& text) {
    std::vector<std::string> words;
    std::string word;
    bool inWord = false;
    char quote = 0;
    for (const char c : text) {
        if (quote != 0) {
            if (c == quote) {
                quote = 0;
            } else {
                word += c;
            }
        } else if (c == '"' || c == '\'') {
            quote = c;
            inWord = true;
        } else if (c == ' ') {
            if (inWord) words.push_back(word);
            word.clear();
            inWord = false;
        } else {
            word += c;
            inWord = true;
        }
    }
    if (inWord) words.push_back(word);
    return words;
}

// Runs `vastrel ARGS`, `vastrel ARGS < FILE` or `echo 'TEXT' | vastrel ARGS`.
RunResult runExample(const std::string& command) {
    std::vector<std::string> words = shellWords(command);
    std::string input;
    if (words.size() > 3 && words[0] == "echo" && words[2] == "|") {
        input = words[1] + "\n";
        words.erase(words.begin(), words.begin() + 3);
    }
    if (words.size() > 2 && words[words.size() - 2] == "<") {
        input = vastrel::testing::readSourceFile(words.back());
        words.resize(words.size() - 2);
    }
    EXPECT_EQ(words.front(), "vastrel") << command;
    return runTool({words.begin() + 1, words.end()}, input);
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

void expectExamplesRun(const std::string& document) {
    const auto examples = examplesIn(vastrel::testing::readSourceFile(document));
    ASSERT_FALSE(examples.empty()) << document;
    int lastStatus = 0;
    for (const auto& example : examples) {
        SCOPED_TRACE(document + ":" + std::to_string(example.line) + ": " + example.command);
        if (example.command == "echo $?") {
            EXPECT_EQ(example.output, std::vector<std::string>{std::to_string(lastStatus)});
            continue;
        }
        const RunResult run = runExample(example.command);
        lastStatus = run.status;
        std::vector<std::string> printed = linesOf(run.out + run.err);
        std::vector<std::string> shown = example.output;
        if (!shown.empty() && shown.back() == "...") {
            shown.pop_back();
            if (printed.size() > shown.size()) printed.resize(shown.size());
        }
        EXPECT_EQ(printed, shown);
    }
}

TEST(DocExamplesTest, ReadmeExamplesPrintWhatTheyShow) { expectExamplesRun("README.md"); }

TEST(DocExamplesTest, ManualExamplesPrintWhatTheyShow) { expectExamplesRun("docs/cli.md"); }

}  // namespace
}  // namespace vastrel::tool::testing
