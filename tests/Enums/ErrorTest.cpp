#include "vastrel/Enums/Error.hpp"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>

namespace vastrel {
namespace {

using UserInfo = std::map<std::string, std::string>;

TEST(ErrorTest, DisplayStringIsDomainAndTheOnlyUserInfoKey) {
    const auto error = Error::emvErrorType(EMVErrorType::GeneralError, "Timeout");
    EXPECT_EQ(error->domain(), "GENERAL_ERROR");
    EXPECT_EQ(error->code(), 10);
    EXPECT_EQ(error->userInfo(), (UserInfo{{"GENERAL_ERROR", "Timeout"}}));

    const auto first = Error::emvErrorType(EMVErrorType::NotInitialized, "");
    EXPECT_EQ(first->code(), 0);
    EXPECT_EQ(first->userInfo(), (UserInfo{{"NOT_INITIALIZED", ""}}));  // empty is a message
    EXPECT_EQ(Error::emvErrorType(EMVErrorType::BatteryTooLow, "m")->domain(), "BATTERY_TOO_LOW");
}

TEST(ErrorTest, UndefinedTypeOrAbsentMessageThrows) {
    EXPECT_THROW(Error::emvErrorType(EMVErrorType{12}, "Timeout"), std::invalid_argument);
    EXPECT_THROW(Error::emvErrorType(EMVErrorType{17}, "Timeout"), std::invalid_argument);
    EXPECT_THROW(Error::emvErrorType(EMVErrorType::GeneralError, std::nullopt),
                 std::invalid_argument);
}

}  // namespace
}  // namespace vastrel
