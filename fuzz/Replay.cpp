// Feeds a target every file of a folder, so that what fuzzers once found stays mended.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

#include "Target.h"

int main(int argc, char** argv)
{
    int count = 0;
    for (int i = 1; i < argc; ++i)
    {
        for (std::filesystem::directory_entry const& entry : std::filesystem::directory_iterator(argv[i]))
        {
            std::ifstream file(entry.path(), std::ios::binary);
            std::vector<char> const bytes{std::istreambuf_iterator<char>(file), {}};
            std::cout << entry.path().filename().string() << std::endl; // the last name is the culprit's
            LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size());
            ++count;
        }
    }
    std::cout << count << " inputs" << std::endl;
    return count > 0 ? 0 : 1;
}
