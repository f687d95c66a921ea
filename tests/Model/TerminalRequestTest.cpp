#include "vastrel/Model/TerminalRequest.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace vastrel {
namespace {

// Record setters store through the value type's copy(), so its quirks carry over.
TEST(TerminalRequestTest, StoredConfigurationGoesThroughCopyAndLosesItsCapks) {
    TerminalConfiguration config;
    config.setHost("reader.local");
    config.setCapks(TerminalConfiguration::CAPKList{std::make_shared<EMVCAPK>()});

    TerminalRequest request;
    request.setTerminalConfiguration(config);

    ASSERT_TRUE(request.terminalConfiguration().has_value());
    EXPECT_EQ(request.terminalConfiguration()->capks(), std::nullopt);
    EXPECT_EQ(request.terminalConfiguration()->host(), "reader.local");
    EXPECT_TRUE(config.capks().has_value());
}

}  // namespace
}  // namespace vastrel
