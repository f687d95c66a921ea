#pragma once

#include <cstddef>
#include <string>

// The peak resident memory of the command-line tool decoding a large trace, measured in a
// child process so that the figure is the tool's own.
namespace vastrel::bench {

struct PeakMemory {
    std::size_t inputCharacters = 0;
    std::size_t elements = 0;
    long peakKibibytes = 0;  // 0 when the measurement failed
    std::string failure;     // why, when it failed
};

// Runs `vastrel decode` on a mebibyte of hex made of three-byte elements, fed through a pipe,
// with its output thrown away. Call it early, while this program is still small: a forked
// child's peak starts from the size of its parent.
PeakMemory measureDecodePeakMemory();

}  // namespace vastrel::bench
