#pragma once

#include <cstddef>
#include <string>
#include <vector>

// The benchmark workload, read once from the data directory (bench/data, or the directory
// named by VASTREL_BENCH_DATA). A missing or empty file stops the program with its path.
namespace vastrel::bench {

struct Workload {
    std::string flatHex;       // 37 short-form elements, uppercase
    std::string flatLowerHex;  // the same in lower case
    std::string nestedHex;     // a 77 and a 70 template, 15 elements in all
    std::vector<std::string> pans;
    std::string session;  // a contact session of 20 exchanges, one APDU a line
};

const Workload& workload();

// The flat blob repeated, whole, to about the given number of bytes (at least once).
std::string repeatedFlatHex(std::size_t bytes);

// About the given number of bytes nested depth levels deep: each level holds a template with
// the next level, then a share of the flat blob's elements, so that every level is
// expanded and the bytes are spread evenly over the levels.
std::string nestedHex(std::size_t depth, std::size_t bytes);

// Elements of three bytes (a one-byte tag of the flat blob, length 1, a value byte), each
// kSmallElementHexSize characters, filling the given number of hex characters: many small
// elements, as in a long reader trace.
inline constexpr std::size_t kSmallElementHexSize = 6;
std::string smallElementsHex(std::size_t hexCharacters);

}  // namespace vastrel::bench
