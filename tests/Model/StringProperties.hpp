#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vastrel::test {

// One string property of a record, so tests can fill and compare every string of a
// record from a table instead of field by field.
template <class Record>
struct StringProperty {
    std::string_view name;
    const std::optional<std::string>& (Record::*get)() const;
    void (Record::*set)(std::optional<std::string>);
};

// Gives every listed property a text of its own ("<name> value").
template <class Record>
void fillStrings(Record& record, std::span<const StringProperty<Record>> properties) {
    for (const auto& property : properties) {
        (record.*property.set)(std::string(property.name) + " value");
    }
}

// Expects every listed property of actual to hold the text fillStrings gave it.
template <class Record>
void expectFilledStrings(const Record& actual, std::span<const StringProperty<Record>> properties) {
    for (const auto& property : properties) {
        SCOPED_TRACE(property.name);
        EXPECT_EQ((actual.*property.get)(), std::string(property.name) + " value");
    }
}

}  // namespace vastrel::test
