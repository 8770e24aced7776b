#include <gtest/gtest.h>

#include <dlfcn.h>

// The library in a process that has nothing to do with it otherwise: neither this program nor any
// other module of the process is linked with it or with the companion.
namespace {

bool isLoaded(char const *file)
{
    void *const handle = dlopen(file, RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) {
        dlclose(handle);
    }
    return handle != nullptr;
}

} // namespace

TEST(LoneLoad, BothLibrariesGoWithTheLastHandle)
{
    ASSERT_FALSE(isLoaded(ORVELCORE_LIBRARY));
    for (int round = 0; round < 3; ++round) {
        void *const handle = dlopen(ORVELMATH_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(nullptr, handle) << dlerror();
        EXPECT_TRUE(isLoaded(ORVELCORE_LIBRARY));
        auto *const accuracy = reinterpret_cast<int (*)()>(dlsym(handle, "_Z11GetAccuracyv"));
        EXPECT_EQ(2, accuracy());
        EXPECT_EQ(0, dlclose(handle));
        EXPECT_FALSE(isLoaded(ORVELMATH_LIBRARY));
        EXPECT_FALSE(isLoaded(ORVELCORE_LIBRARY));
    }
}
