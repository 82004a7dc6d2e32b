#include "tests/server/ServerProcesses.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

bool maps(int id, const std::string& fileName)
{
    std::ifstream file("/proc/" + std::to_string(id) + "/maps");
    for (std::string line; std::getline(file, line);)
        if (line.size() > fileName.size() &&
            line.compare(line.size() - fileName.size() - 1, std::string::npos, "/" + fileName) == 0)
            return true;
    return false;
}

std::vector<int> processesWith(const std::string& fileName)
{
    std::vector<int> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        if (std::all_of(name.begin(), name.end(), [](unsigned char c) { return std::isdigit(c); }) &&
            maps(std::stoi(name), fileName))
            found.push_back(std::stoi(name));
    }
    return found;
}

bool unloads(const std::string& fileName)
{
    for (int tries = 0; tries < 100; ++tries) {
        if (processesWith(fileName).empty())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    return false;
}
