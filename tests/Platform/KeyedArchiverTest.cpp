#include "vastrel/Platform/KeyedArchiver.hpp"
#include "vastrel/Platform/KeyedUnarchiver.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vastrel {
namespace {

TEST(KeyedArchiverTest, RoundTripsStringsBoolsAndAbsentValues) {
    KeyedArchiver archiver;
    archiver.encodeBool(true, "production_key");
    archiver.encodeObject(std::string("A0"), "rid");
    archiver.encodeObject(std::nullopt, "label");
    EXPECT_EQ(archiver.keys(), (std::vector<std::string>{"production_key", "rid", "label"}));
    EXPECT_EQ(archiver.data(), R"({"production_key":true,"rid":"A0","label":null})");

    const KeyedUnarchiver unarchiver(archiver.data());
    EXPECT_TRUE(unarchiver.decodeBoolForKey("production_key"));
    EXPECT_EQ(unarchiver.decodeObjectForKey("rid"), "A0");
    EXPECT_TRUE(unarchiver.containsValueForKey("label"));
    EXPECT_EQ(unarchiver.decodeObjectForKey("label"), std::nullopt);
    EXPECT_FALSE(unarchiver.containsValueForKey("pix"));
    EXPECT_FALSE(unarchiver.decodeBoolForKey("pix"));  // a missing flag reads as false
}

TEST(KeyedArchiverTest, RewritingAKeyKeepsItsFirstPosition) {
    KeyedArchiver archiver;
    archiver.encodeObject(std::string("1"), "a");
    archiver.encodeObject(std::string("2"), "b");
    archiver.encodeObject(std::string("3"), "a");
    EXPECT_EQ(archiver.data(), R"({"a":"3","b":"2"})");
}

TEST(KeyedUnarchiverTest, MismatchedTypesReadAsAbsentOrFalse) {
    const KeyedUnarchiver unarchiver(R"({"flag":"true","text":true,"n":7})");
    EXPECT_FALSE(unarchiver.decodeBoolForKey("flag"));
    EXPECT_EQ(unarchiver.decodeObjectForKey("text"), std::nullopt);
    EXPECT_EQ(unarchiver.decodeObjectForKey("n"), std::nullopt);
    EXPECT_TRUE(unarchiver.containsValueForKey("n"));
}

TEST(KeyedUnarchiverTest, RejectsAnythingButAJsonObject) {
    for (const char* text : {"", "[]", "\"rid\"", "{", "{\"a\":}", "null", "{} trailing"}) {
        EXPECT_THROW(KeyedUnarchiver{text}, std::invalid_argument) << text;
    }
}

}  // namespace
}  // namespace vastrel
