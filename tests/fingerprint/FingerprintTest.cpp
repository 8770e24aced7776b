// Hashes over the results of every exported function on a fixed stream of arguments, compared with
// the committed tables exact.txt and clibrary.txt. The same sources serve every compiler, level of
// optimisation and processor.

#include "fingerprint/Rows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

namespace fingerprint {

namespace {

using Table = std::map<std::string, std::string>;

std::string textOf(std::uint64_t hash)
{
    char buffer[17];
    std::snprintf(buffer, sizeof buffer, "%016llx", static_cast<unsigned long long>(hash));
    return buffer;
}

char const *fileOf(Arithmetic arithmetic)
{
    return arithmetic == Arithmetic::Own ? "exact.txt" : "clibrary.txt";
}

/// A table's lines: the hash, a space, the name.
Table readTable(char const *file)
{
    Table table;
    std::ifstream stream(std::string(ORVEL_SOURCE_DIR "/tests/fingerprint/") + file);
    std::string line;
    while (std::getline(stream, line)) {
        if (line.size() > 17 && line[0] != '#') {
            table[line.substr(17)] = line.substr(0, 16);
        }
    }
    return table;
}

Table const &tableOf(Arithmetic arithmetic)
{
    static Table const own = readTable(fileOf(Arithmetic::Own));
    static Table const library = readTable(fileOf(Arithmetic::CLibrary));
    return arithmetic == Arithmetic::Own ? own : library;
}

/// What this machine's C library makes of the functions that the library calls.
std::uint64_t libraryHash()
{
    Stream stream(1, false);
    Hash hash;
    for (int i = 0; i < 100000; ++i) {
        double const x = stream.unit() * 7.0;
        for (double value :
             {std::sin(x), std::cos(x), std::atan(x), std::acos(x / 7.0), std::asin(x / 7.0),
              std::atan2(x, stream.unit()), std::pow(std::fabs(x), 0.3), std::log(std::fabs(x))}) {
            hash.add(value);
        }
    }
    return hash.value();
}

char const *const libraryName = "the C library";

std::vector<Row> allRows()
{
    std::vector<Row> rows;
    for (auto const &part : {baseRows(), planeRows(), constructionRows(), conicRows(), spaceRows(),
                             numericsRows(), structureRows(), scriptRows()}) {
        rows.insert(rows.end(), part.begin(), part.end());
    }
    return rows;
}

class Fingerprint : public testing::TestWithParam<Row>
{
};

std::string testName(testing::TestParamInfo<Row> const &info)
{
    std::string name;
    for (char const c : info.param.name) {
        name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    }
    return name;
}

} // namespace

TEST_P(Fingerprint, IsTheCommittedOne)
{
    Row const &row = GetParam();
    Table const &table = tableOf(row.arithmetic);
    if (row.arithmetic == Arithmetic::CLibrary && table.at(libraryName) != textOf(libraryHash())) {
        GTEST_SKIP() << "this C library gives other sines than the one of the table";
    }
    std::string const actual = textOf(row.fingerprint());
    auto const entry = table.find(row.name);
    ASSERT_NE(table.end(), entry) << actual << ' ' << row.name << " is missing in "
                                  << fileOf(row.arithmetic);
    EXPECT_EQ(entry->second, actual) << row.name << " gives other bits in this build";
}

INSTANTIATE_TEST_SUITE_P(EveryFunction, Fingerprint, testing::ValuesIn(allRows()), testName);

} // namespace fingerprint

// With a folder in ORVEL_WRITE_FINGERPRINTS the program writes both tables there instead of
// testing.
int main(int argc, char **argv)
{
    using namespace fingerprint;
    testing::InitGoogleTest(&argc, argv);
    char const *const folder = std::getenv("ORVEL_WRITE_FINGERPRINTS");
    if (!folder) {
        return RUN_ALL_TESTS();
    }
    std::ofstream own(std::string(folder) + "/exact.txt");
    own << "# Fingerprints of functions whose arithmetic is ours alone: the same bits "
           "everywhere.\n";
    std::ofstream library(std::string(folder) + "/clibrary.txt");
    library << "# Fingerprints of functions that call the C library's sines and their kin.\n"
            << textOf(libraryHash()) << ' ' << libraryName << '\n';
    for (Row const &row : allRows()) {
        (row.arithmetic == Arithmetic::Own ? own : library)
            << textOf(row.fingerprint()) << ' ' << row.name << '\n'
            << std::flush;
    }
    return own && library ? 0 : 1;
}
