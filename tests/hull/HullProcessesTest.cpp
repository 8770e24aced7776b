#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace {

/// What the program that hashes the hulls of fixed clouds prints in a process of its own.
std::string hullHash(std::string const &environment)
{
    std::FILE *const pipe = popen((environment + " '" ORVEL_HULL_HASH "'").c_str(), "r");
    if (!pipe) {
        return {};
    }
    char line[64] = "";
    bool const read = std::fgets(line, sizeof line, pipe) != nullptr;
    return pclose(pipe) == 0 && read ? line : "";
}

} // namespace

TEST(HullProcesses, GiveTheSameHulls)
{
    // Addresses differ from process to process, and so do the seeds of hashes.
    std::string const first = hullHash("QT_HASH_SEED=1");
    ASSERT_EQ(17u, first.size());
    for (int seed = 2; seed < 8; ++seed) {
        EXPECT_EQ(first, hullHash("QT_HASH_SEED=" + std::to_string(seed)));
    }
    EXPECT_EQ(first, hullHash("MALLOC_ARENA_TEST=1 MALLOC_TOP_PAD_=4096 MALLOC_PERTURB_=85"));
}
