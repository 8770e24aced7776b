// Runs a fuzzer's entry point over the files of a folder, over every file cut short at each byte,
// and over copies with single bits flipped. The order of the inputs is the same in every run.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size);

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t flippedBitsPerFile = 4096;

Bytes contentOf(std::filesystem::path const &path)
{
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::size_t replay(Bytes const &input)
{
    std::size_t runs = 0;
    for (std::size_t size = 0; size <= input.size(); ++size, ++runs) {
        LLVMFuzzerTestOneInput(input.data(), size);
    }
    Bytes changed = input;
    std::size_t const bits = std::min(input.size() * 8, flippedBitsPerFile);
    for (std::size_t i = 0; i < bits; ++i, ++runs) {
        std::uint8_t const mask = static_cast<std::uint8_t>(1U << i % 8);
        changed[i / 8] ^= mask;
        LLVMFuzzerTestOneInput(changed.data(), changed.size());
        changed[i / 8] ^= mask;
    }
    return runs;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2 || !std::filesystem::is_directory(argv[1])) {
        std::cerr << "usage: " << argv[0] << " FOLDER\n";
        return 2;
    }
    std::vector<std::filesystem::path> files;
    for (auto const &entry : std::filesystem::directory_iterator(argv[1])) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    std::size_t runs = 0;
    for (std::filesystem::path const &path : files) {
        runs += replay(contentOf(path));
    }
    std::cout << files.size() << " files, " << runs << " inputs\n";
    return files.empty() ? 1 : 0;
}
