#include "vastrel/Model/TerminalRequest.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>

namespace vastrel {
namespace {

TEST(TerminalRequestTest, ActionConstructorStoresAnyValueAndNothingElse) {
    for (const std::uint64_t action :
         {std::uint64_t{0}, std::uint64_t{7}, std::numeric_limits<std::uint64_t>::max()}) {
        SCOPED_TRACE(action);
        const TerminalRequest request{TerminalAction{action}};
        EXPECT_EQ(request.terminalAction(), TerminalAction{action});
        EXPECT_EQ(request.totalAmount(), std::nullopt);
        EXPECT_EQ(request.terminalConfiguration().has_value(), false);
        EXPECT_EQ(request.tenderType(), TenderType{0});
        EXPECT_EQ(request.transactionType(), TransactionType{0});
    }
}

TEST(TerminalRequestTest, StoredConfigurationHasNoCapks) {
    TerminalConfiguration config;
    config.setHost("reader.local");
    config.setCapks(TerminalConfiguration::CAPKList{std::make_shared<EMVCAPK>()});

    TerminalRequest request;
    request.setTerminalConfiguration(config);

    ASSERT_TRUE(request.terminalConfiguration().has_value());
    EXPECT_EQ(request.terminalConfiguration()->capks(), std::nullopt);
    EXPECT_EQ(request.terminalConfiguration()->host(), "reader.local");
    EXPECT_TRUE(config.capks().has_value());  // the caller's configuration keeps its keys
}

}  // namespace
}  // namespace vastrel
