#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace vastrel {

// An exact base-10 amount (IEEE 754-2008 decimal128): 34 significant digits, so money
// values never pick up binary rounding errors.
class Decimal {
  public:
    // Zero.
    Decimal() noexcept;

    // Parses plain decimal text: an optional '-', digits, and an optional '.' followed by
    // digits ("12.50", "-3", "0.001"). Throws std::invalid_argument for anything else,
    // including exponents, blanks and values that need more than 34 digits.
    explicit Decimal(std::string_view text);

    [[nodiscard]] static Decimal zero() noexcept { return Decimal(); }

    // The canonical text: no exponent, no trailing zeros after the point ("12.5", "0",
    // "100", "-0.01").
    [[nodiscard]] std::string description() const;

    friend bool operator==(const Decimal& lhs, const Decimal& rhs) noexcept;
    friend std::weak_ordering operator<=>(const Decimal& lhs, const Decimal& rhs) noexcept;
    friend Decimal operator+(const Decimal& lhs, const Decimal& rhs) noexcept;
    friend Decimal operator-(const Decimal& lhs, const Decimal& rhs) noexcept;
    friend Decimal operator*(const Decimal& lhs, const Decimal& rhs) noexcept;

  private:
    struct Bits {
        std::uint64_t low = 0;
        std::uint64_t high = 0;
    };
    explicit Decimal(Bits bits) noexcept : bits_(bits) {}

    Bits bits_;
};

}  // namespace vastrel
