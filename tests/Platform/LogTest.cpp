#include "vastrel/Platform/Log.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vastrel {
namespace {

class LogTest : public ::testing::Test {
  protected:
    void SetUp() override {
        log::setHandler([this](std::string_view line) { lines.emplace_back(line); });
    }
    void TearDown() override {
        log::setHandler(nullptr);
        log::setEnabled(true);
    }
    std::vector<std::string> lines;
};

TEST_F(LogTest, InstalledHandlerReceivesEachLineVerbatim) {
    log::write("unimplemented");
    log::write("");
    EXPECT_EQ(lines, (std::vector<std::string>{"unimplemented", ""}));
}

TEST_F(LogTest, DisabledLogWritesNothingUntilEnabledAgain) {
    log::setEnabled(false);
    EXPECT_FALSE(log::enabled());
    log::write("dropped");
    log::setEnabled(true);
    log::write("kept");
    EXPECT_EQ(lines, (std::vector<std::string>{"kept"}));
}

TEST_F(LogTest, HandlerMayReplaceItselfWhileRunning) {
    log::setHandler([this](std::string_view line) {
        lines.emplace_back(line);
        log::setHandler(
            [this](std::string_view next) { lines.emplace_back("2:" + std::string(next)); });
    });
    log::write("a");
    log::write("b");
    EXPECT_EQ(lines, (std::vector<std::string>{"a", "2:b"}));
}

TEST(LogDefaultTest, CardDataIsMaskedUntilTurnedOff) {
    EXPECT_TRUE(log::masksSensitiveData());
    log::setMaskSensitiveData(false);
    EXPECT_FALSE(log::masksSensitiveData());
    log::setMaskSensitiveData(true);
    EXPECT_TRUE(log::masksSensitiveData());
}

TEST(LogDefaultTest, DefaultHandlerWritesPrefixedLineToStderr) {
    log::setHandler(nullptr);
    ::testing::internal::CaptureStderr();
    log::write("Invalid TLV");
    const std::string output = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(output.find(" vastrel: Invalid TLV\n"), std::string::npos) << output;
}

}  // namespace
}  // namespace vastrel
