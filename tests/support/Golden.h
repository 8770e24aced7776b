#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace support {

/// One line of a golden file: the arguments of a call and what it gives, all as doubles.
struct GoldenCase
{
    std::string where; ///< file and line, for messages
    std::vector<double> arguments;
    std::vector<double> results;
};

/// The cases of `function` in tests/golden/FILE; tests/golden/README.md describes the format.
///
/// Fails the calling test for a line that cannot be read, and where there is no case at all.
inline std::vector<GoldenCase> goldenCases(std::string const &file, std::string const &function)
{
    std::vector<GoldenCase> cases;
    std::ifstream stream(ORVEL_SOURCE_DIR "/tests/golden/" + file);
    std::string line;
    for (int number = 1; std::getline(stream, line); ++number) {
        std::istringstream words(line.substr(0, line.find('#')));
        std::string word;
        if (!(words >> word) || word != function) {
            continue;
        }
        GoldenCase item;
        item.where = file + ':' + std::to_string(number);
        std::vector<double> *values = &item.arguments;
        while (words >> word) {
            if (word == "->") {
                values = &item.results;
                continue;
            }
            char *end = nullptr;
            values->push_back(std::strtod(word.c_str(), &end));
            EXPECT_EQ('\0', *end) << item.where << ": no number: " << word;
        }
        EXPECT_EQ(&item.results, values) << item.where << ": no arrow";
        cases.push_back(item);
    }
    EXPECT_FALSE(cases.empty()) << "no case of " << function << " in tests/golden/" << file;
    return cases;
}

} // namespace support
