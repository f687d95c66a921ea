#pragma once

// Test vectors kept in text files, in the manner of BoringSSL's FileTest: blocks of
// "key: value" lines separated by blank lines, '#' starting a comment line. A key may
// repeat within a block (a list). Values are taken verbatim after "key: ", with the escapes
// \n, \t, \\ and \xHH, so that line breaks, control bytes and trailing blanks survive
// editors.

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "support/TestSupport.hpp"

namespace vastrel::testing {

// One block of a vector file.
class Vector {
  public:
    Vector(std::string file, int line) : where_(std::move(file) + ":" + std::to_string(line)) {}

    void add(std::string key, std::string value) {
        entries_.emplace_back(std::move(key), std::move(value));
    }

    // "file:line" of the block's first line, for SCOPED_TRACE.
    const std::string& where() const { return where_; }

    bool has(const std::string& key) const {
        for (const auto& entry : entries_) {
            if (entry.first == key) return true;
        }
        return false;
    }

    // The value of key; the block must have it.
    const std::string& get(const std::string& key) const {
        for (const auto& entry : entries_) {
            if (entry.first == key) return entry.second;
        }
        throw std::runtime_error(where_ + ": no '" + key + "'");
    }

    // The value of key, or fallback when the block has none.
    std::string get(const std::string& key, const std::string& fallback) const {
        return has(key) ? get(key) : fallback;
    }

    // Every value of key, in order.
    std::vector<std::string> all(const std::string& key) const {
        std::vector<std::string> values;
        for (const auto& entry : entries_) {
            if (entry.first == key) values.push_back(entry.second);
        }
        return values;
    }

  private:
    std::string where_;
    std::vector<std::pair<std::string, std::string>> entries_;
};

inline std::string unescapeVectorValue(const std::string& text, const std::string& where) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            out += text[i];
            continue;
        }
        if (++i == text.size()) throw std::runtime_error(where + ": '\\' ends a value");
        switch (text[i]) {
            case 'n':
                out += '\n';
                break;
            case 't':
                out += '\t';
                break;
            case '\\':
                out += '\\';
                break;
            case 'x':
                if (i + 2 >= text.size()) {
                    throw std::runtime_error(where + ": \\x needs two digits");
                }
                out += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
                i += 2;
                break;
            default:
                throw std::runtime_error(where + ": unknown escape \\" + text[i]);
        }
    }
    return out;
}

// The blocks of a vector file, by its path from the top of the source tree.
inline std::vector<Vector> readVectors(const std::string& path) {
    std::istringstream text(readSourceFile(path));
    std::vector<Vector> vectors;
    bool inBlock = false;
    int lineNumber = 0;
    for (std::string line; std::getline(text, line);) {
        ++lineNumber;
        if (line.empty()) {
            inBlock = false;
            continue;
        }
        if (line.front() == '#') continue;
        const std::string where = path + ":" + std::to_string(lineNumber);
        const std::size_t colon = line.find(':');
        if (colon == std::string::npos) throw std::runtime_error(where + ": no 'key:'");
        if (!inBlock) vectors.emplace_back(path, lineNumber);
        inBlock = true;
        const std::size_t valueStart = std::min(line.size(), colon + 2);
        vectors.back().add(line.substr(0, colon),
                           unescapeVectorValue(line.substr(valueStart), where));
    }
    return vectors;
}

}  // namespace vastrel::testing
