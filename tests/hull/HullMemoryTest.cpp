#include "HullTestSupport.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool sanitizersKeepMemory = true;
#else
constexpr bool sanitizersKeepMemory = false;
#endif

/// Lets the system forget the peak of the process's memory; false if it can't.
bool forgetPeak()
{
    std::ofstream file("/proc/self/clear_refs");
    file << "5" << std::flush;
    return file.good();
}

/// A line of the process's status in bytes: "VmRSS" for now, "VmHWM" for the peak.
double statusBytes(std::string const &key)
{
    std::ifstream file("/proc/self/status");
    std::string word;
    while (file >> word) {
        if (word == key + ":") {
            double kilobytes = 0.0;
            file >> kilobytes;
            return 1024.0 * kilobytes;
        }
    }
    return 0.0;
}

/// Bytes a point that a build takes at its peak.
double peakBytesPerPoint(Points3 const &points)
{
    ConvexHullBuilderC builder(points);
    double const before = statusBytes("VmRSS");
    builder.buildHull();
    return (statusBytes("VmHWM") - before) / points.size();
}

} // namespace

TEST(HullMemory, ABuildTakesFewBytesAPoint)
{
    if (sanitizersKeepMemory) {
        GTEST_SKIP() << "the sanitizers keep memory of their own";
    }
    for (Cloud kind : {Cloud::Ball, Cloud::Cube, Cloud::Copies, Cloud::Grid}) {
        Points3 const points = makeCloud(kind, 400000, 4);
        if (!forgetPeak()) {
            GTEST_SKIP() << "the system doesn't reset the peak";
        }
        // 64 of working memory and 8 for the place in an outside set; few faces in these clouds.
        EXPECT_LT(peakBytesPerPoint(points), 72.0) << "cloud " << int(kind);
    }
}
