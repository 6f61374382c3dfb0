// generate-project LINES DIRECTORY [--seed N]: writes a project to measure with.

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "generate_project.h"

namespace {

template <class Number>
bool ReadNumber(std::string_view text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

void WriteFile(const std::string& path, std::string_view text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (!file)
        throw std::runtime_error("Can't write " + path);
}

}  // namespace

int main(int argc, char* argv[]) {
    const std::vector<std::string_view> arguments(argv + 1, argv + argc);
    std::size_t lines = 0;
    unsigned seed = 1;
    std::vector<std::string_view> places;
    bool isUnderstood = true;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--seed")
            isUnderstood = isUnderstood && ++i < arguments.size() && ReadNumber(arguments[i], seed);
        else
            places.push_back(arguments[i]);
    }
    if (!isUnderstood || places.size() != 2 || !ReadNumber(places[0], lines) || lines == 0) {
        std::fputs("Usage: generate-project LINES DIRECTORY [--seed N]\n", stderr);
        return 2;
    }
    try {
        std::filesystem::create_directories(places[1]);
        const GeneratedProject project = GenerateProject(std::string(places[1]), lines, seed, WriteFile);
        std::printf("%s: %zu modules, %zu lines, %zu bytes\n", project.projectFile.c_str(), project.moduleFiles.size(),
                    project.lines, project.bytes);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
