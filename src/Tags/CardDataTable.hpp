#pragma once

// The rows behind CardDataPolicy, visible at compile time so that the decoder's log masking
// (SensitiveData) builds its own shorter list from the same rows.

#include <array>

#include "vastrel/Tags/CardDataPolicy.hpp"

namespace vastrel::tags {

inline constexpr std::array<CardDataTag, 15> kCardData = {{
    {0x5A, "card number", CardDataMasking::CardNumber, true},
    {0x57, "track 2 equivalent data", CardDataMasking::Track2, true},
    {0x9F6B, "track 2 data (Card CVM Limit under Visa)", CardDataMasking::Track2, true,
     PaymentScheme::Visa},
    {0x56, "track 1 data", CardDataMasking::Whole, true},
    {0x9F1F, "track 1 discretionary data", CardDataMasking::Whole, false},
    {0x9F20, "track 2 discretionary data", CardDataMasking::Whole, false},
    {0xDF812A, "track 1 data (Mastercard kernel)", CardDataMasking::Whole, false},
    {0xDF812B, "track 2 data (Mastercard kernel)", CardDataMasking::Whole, false},
    {0xDF13, "reader's track 1 data", CardDataMasking::Whole, true},
    {0xDF14, "reader's track 2 data", CardDataMasking::Whole, true},
    {0xDF15, "reader's track 3 data", CardDataMasking::Whole, true},
    {0x5F20, "cardholder name", CardDataMasking::Whole, true},
    {0x9F0B, "cardholder name extended", CardDataMasking::Whole, true},
    {0x99, "transaction PIN data", CardDataMasking::Whole, true},
    {0xDF16, "reader's enciphered PIN block", CardDataMasking::Whole, true},
}};

}  // namespace vastrel::tags
