#pragma once

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
};

const Workload& workload();

}  // namespace vastrel::bench
