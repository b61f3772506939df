// Runs a fuzz target over files and folders of inputs, without libFuzzer:
//
//     fuzz_replay_<target> <file or folder>...
//
// Names each input before it runs, so that the last name is that of the one that crashed or hung.

#include "fuzztarget.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <vector>

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// Inputs take milliseconds, also under sanitizers; one that takes longer is on its way to a hang.
static constexpr std::chrono::seconds timeLimit(5);

static std::vector<fs::path> inputsAt(const fs::path &path)
{
    if (!fs::is_directory(path))
        return {path};
    std::vector<fs::path> inputs;
    for (const fs::directory_entry &entry : fs::directory_iterator(path))
        inputs.push_back(entry.path());
    return inputs;
}

static bool replay(const fs::path &path)
{
    std::cout << path.string() << std::endl;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::cout << "    cannot be read" << std::endl;
        return false;
    }
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    // On the heap in its exact size, where a sanitizer sees a read behind its end.
    const std::unique_ptr<uint8_t[]> data(new uint8_t[content.size()]);
    std::copy(content.begin(), content.end(), data.get());

    const Clock::time_point start = Clock::now();
    LLVMFuzzerTestOneInput(data.get(), content.size());
    const bool isInTime = Clock::now() - start < timeLimit;
    if (!isInTime)
        std::cout << "    takes longer than " << timeLimit.count() << " s" << std::endl;
    return isInTime;
}

int main(int argc, char **argv)
{
    int count = 0;
    int failed = 0;
    for (int i = 1; i < argc; ++i) {
        for (const fs::path &path : inputsAt(argv[i])) {
            ++count;
            failed += replay(path) ? 0 : 1;
        }
    }
    std::cout << count << " inputs, " << failed << " failed" << std::endl;
    return count > 0 && failed == 0 ? 0 : 1;
}
