#include "vastrel/Enums/Error.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>

#include "vastrel/Enums/EnumStringValues.hpp"

namespace vastrel {
namespace {

TEST(ErrorTest, DisplayStringIsDomainAndTheOnlyUserInfoKey) {
    const auto error = Error::emvErrorType(EMVErrorType::GeneralError, "Timeout");
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->domain(), "GENERAL_ERROR");
    EXPECT_EQ(error->code(), 10);
    EXPECT_EQ(error->userInfo(),
              (std::map<std::string, std::string>{{"GENERAL_ERROR", "Timeout"}}));
}

TEST(ErrorTest, EveryDefinedTypeNamesItsDomain) {
    for (std::uint64_t value = 0; value <= 11; ++value) {
        SCOPED_TRACE(value);
        const auto error = Error::emvErrorType(EMVErrorType{value}, "m");
        const auto name = EnumStringValues::valueForAnEnumType(EnumType::EMVErrorType, value);
        ASSERT_TRUE(name.has_value());
        EXPECT_EQ(error->domain(), *name);
        EXPECT_EQ(error->code(), static_cast<std::int64_t>(value));
        EXPECT_EQ(error->userInfo().at(*name), "m");
    }
    EXPECT_EQ(Error::emvErrorType(EMVErrorType::NotInitialized, "x")->domain(), "NOT_INITIALIZED");
}

TEST(ErrorTest, EmptyMessageIsStillAMessage) {
    const auto error = Error::emvErrorType(EMVErrorType::InvalidData, "");
    EXPECT_EQ(error->userInfo(), (std::map<std::string, std::string>{{"INVALID_DATA", ""}}));
}

TEST(ErrorTest, UndefinedTypeOrAbsentMessageThrows) {
    EXPECT_THROW(Error::emvErrorType(EMVErrorType{12}, "Timeout"), std::invalid_argument);
    EXPECT_THROW(Error::emvErrorType(EMVErrorType{17}, "Timeout"), std::invalid_argument);
    EXPECT_THROW(Error::emvErrorType(EMVErrorType{~std::uint64_t{0}}, "Timeout"),
                 std::invalid_argument);
    EXPECT_THROW(Error::emvErrorType(EMVErrorType::GeneralError, std::nullopt),
                 std::invalid_argument);
}

}  // namespace
}  // namespace vastrel
