// Runs a harness without libFuzzer, with the same inputs on every machine:
//
//     module_fuzz CORPUS_DIRECTORY [--runs N] [--seed S]
//     module_fuzz FILE ...                                 (to investigate a failure)
//
// It feeds each file of the corpus, then prefixes of each (all prefixes of small files), then N mutations. Words for
// these come from dictionary_NAME.txt beside the corpus directory NAME, one per line, if that file exists. An input
// that crashes the program or takes a minute is saved as crash-HASH in the current directory.

#include "fuzz_driver.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

// From the run-time library of the sanitizers; null without them.
extern "C" [[gnu::weak]] void __sanitizer_set_death_callback(
    void (*callback)());  // NOLINT(bugprone-reserved-identifier)

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kSmallFile = 2048;
constexpr std::size_t kPrefixesOfOthers = 64;
constexpr std::size_t kMaxInput = std::size_t{1} << 18;
constexpr unsigned kSecondsAnInput = 60;

// ---- Saves the input if it crashes the program

std::string_view currentInput;

/// Only calls functions that a signal handler may call.
void KeepInput() {
    std::uint64_t hash = 14695981039346656037U;
    for (const char c : currentInput)
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    std::array<char, 23> name{"crash-0000000000000000"};
    for (std::size_t i = 21; i >= 6; --i, hash >>= 4)
        name[i] = "0123456789abcdef"[hash & 15];
    const int file = open(name.data(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    for (const std::string_view part :
         {std::string_view("The input is kept as "), std::string_view(name.data()), std::string_view("\n")})
        (void)!write(STDERR_FILENO, part.data(), part.size());
    (void)!write(file, currentInput.data(), currentInput.size());
    close(file);
}

void OnSignal(int number) {
    if (number == SIGALRM) {
        constexpr std::string_view kText = "One input took a minute.\n";
        (void)!write(STDERR_FILENO, kText.data(), kText.size());
    }
    KeepInput();
    std::signal(number, SIG_DFL);
    std::raise(number);
}

void CatchFailures() {
    std::signal(SIGABRT, OnSignal);
    std::signal(SIGALRM, OnSignal);
    if (__sanitizer_set_death_callback) {
        __sanitizer_set_death_callback(KeepInput);
    } else {
        for (const int number : {SIGSEGV, SIGBUS, SIGFPE, SIGILL})
            std::signal(number, OnSignal);
    }
}

void RunInput(std::string_view input) {
    // A separate block of the exact size, so that a sanitizer detects each read beyond it.
    const auto data = std::make_unique<std::uint8_t[]>(input.size());
    std::copy(input.begin(), input.end(), data.get());
    currentInput = input;
    alarm(kSecondsAnInput);
    LLVMFuzzerTestOneInput(data.get(), input.size());
    alarm(0);
}

// ---- Corpus and dictionary

std::string Read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

std::vector<std::string> ReadCorpus(const fs::path& directory) {
    std::vector<fs::path> paths;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(directory))
        if (entry.is_regular_file())
            paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    std::vector<std::string> corpus;
    corpus.reserve(paths.size());
    for (const fs::path& path : paths)
        corpus.push_back(Read(path));
    return corpus;
}

std::vector<std::string> ReadDictionary(const fs::path& corpusDirectory) {
    const fs::path directory = fs::absolute(corpusDirectory / "").parent_path();
    const std::string own = Read(directory.parent_path() / ("dictionary_" + directory.filename().string() + ".txt"));
    std::istringstream lines(own);
    std::vector<std::string> words;
    for (std::string line; std::getline(lines, line);)
        if (!line.empty())
            words.push_back(line);
    if (!words.empty())
        return words;
    using std::string_literals::operator""s;
    return {"\r\n",
            "\n",
            "\r",
            " _\r\n",
            "\"",
            "\"\"",
            "'",
            "Rem ",
            ":",
            "(",
            ")",
            ",",
            ";",
            "=",
            "[",
            "]",
            "{",
            "}",
            ".",
            "!",
            "#",
            "&",
            "\\",
            "..\\",
            "|",
            "\t",
            "\0"s,
            "\xFF",
            "\xFF\xFE",
            "\xFE\xFF",
            "\xEF\xBB\xBF",
            "\xE4",
            "0",
            "1",
            "-1",
            "255",
            "32768",
            "65536",
            "2147483647",
            "2147483648",
            "-2147483649",
            "4294967296",
            "99999999999999999999",
            "1e999",
            "&HFFFF",
            "&O7&",
            " And ",
            " Or ",
            " Not ",
            " = ",
            "#If ",
            " Then",
            "#Else",
            "#End If",
            "#Const ",
            "Public ",
            "Private ",
            "Sub ",
            "End Sub",
            "Function ",
            "Property Get ",
            "Dim ",
            " As ",
            "New ",
            "Type ",
            "Enum ",
            "Const ",
            "Declare ",
            "Begin ",
            "End",
            "Attribute ",
            "With ",
            "Me",
            "Module=",
            "Class=",
            "Form=",
            "Reference=",
            "Object="};
}

// ---- Mutations

class Mutator {
public:
    Mutator(const std::vector<std::string>& corpus, const std::vector<std::string>& dictionary, std::uint64_t seed)
        : corpus_(corpus),
          dictionary_(dictionary),
          isBinary_(std::all_of(corpus.begin(), corpus.end(), IsBinary)),
          random_(seed) {}

    std::string Next() {
        std::string input = AnyOf(corpus_);
        for (std::size_t count = 1 + Below(Below(2) ? 3 : 12); count > 0; --count) {
            if (isBinary_ && Below(8) != 0)
                MutateNumber(input);
            else
                Mutate(input);
        }
        if (input.size() > kMaxInput)
            input.resize(kMaxInput);
        return input;
    }

private:
    /// A number from 0 to `count` - 1. The standard's generators give the same numbers everywhere, its distributions do
    /// not.
    std::size_t Below(std::size_t count) { return count == 0 ? 0 : static_cast<std::size_t>(random_() % count); }
    const std::string& AnyOf(const std::vector<std::string>& texts) { return texts[Below(texts.size())]; }

    struct Range {
        std::size_t begin = 0;
        std::size_t length = 0;
    };
    /// Usually short, sometimes of any length.
    Range AnyBlock(const std::string& text) {
        const std::size_t begin = Below(text.size() + 1);
        const std::size_t rest = text.size() - begin;
        return {begin, Below(std::min(rest, Below(4) ? std::size_t{32} : rest) + 1)};
    }
    Range AnyLine(const std::string& text) {
        const std::size_t at = Below(text.size());
        const std::size_t before = at == 0 ? std::string::npos : text.rfind('\n', at - 1);
        const std::size_t begin = before == std::string::npos ? 0 : before + 1;
        const std::size_t end = text.find('\n', at);
        return {begin, end == std::string::npos ? text.size() - begin : end + 1 - begin};
    }
    static std::string Part(const std::string& text, Range range) { return text.substr(range.begin, range.length); }

    void Mutate(std::string& input) {
        const std::size_t at = Below(input.size() + 1);
        const std::string& other = AnyOf(corpus_);
        switch (Below(12)) {
            case 0:
                if (!input.empty())
                    input[at % input.size()] ^= static_cast<char>(1 << Below(8));
                break;
            case 1:
                if (!input.empty())
                    input[at % input.size()] = static_cast<char>(Below(256));
                break;
            case 2:
                input.insert(at, Part(input, AnyBlock(input)));
                break;
            case 3: {
                const Range block = AnyBlock(input);
                input.erase(block.begin, block.length);
                break;
            }
            case 4: {
                const Range block = AnyBlock(input);
                std::string repeated;
                for (std::size_t count = Below(16); count > 0 && repeated.size() < kMaxInput; --count)
                    repeated += Part(input, block);
                input.insert(block.begin, repeated);
                break;
            }
            case 5:
                input = input.substr(0, at) + Part(other, {Below(other.size() + 1), std::string::npos});
                break;
            case 6:
                input.insert(at, Part(other, AnyBlock(other)));
                break;
            case 7:
                input.insert(at, AnyOf(dictionary_));
                break;
            case 8: {
                const Range block = AnyBlock(input);
                input.replace(block.begin, block.length, AnyOf(dictionary_));
                break;
            }
            case 9: {
                const Range line = AnyLine(input);
                input.erase(line.begin, line.length);
                break;
            }
            case 10: {  // insert a line of this or another input
                const std::string line =
                    Part(Below(2) ? input : other, AnyLine(other.size() < input.size() ? other : input));
                input.insert(AnyLine(input).begin, line);
                break;
            }
            default: {  // replace all occurrences of a word of the input
                const Range block = AnyBlock(input);
                const std::string word = Part(input, {block.begin, std::min(block.length, std::size_t{8})});
                const std::string& by = AnyOf(dictionary_);
                if (word.empty())
                    break;
                std::size_t found = input.find(word);
                for (int count = 0; found != std::string::npos && count < 100; ++count) {
                    input.replace(found, word.size(), by);
                    found = input.find(word, found + by.size());
                }
            }
        }
    }

    static bool IsBinary(const std::string& input) { return input.find('\0') != std::string::npos; }

    /// Formats full of offsets fall apart at once when bytes are inserted, so most changes keep everything in its
    /// place.
    void MutateNumber(std::string& input) {
        if (input.size() < 8)
            return;
        const std::size_t bytes = std::size_t{1} << Below(3);
        const std::size_t at = Below((input.size() - bytes) / bytes + 1) * bytes;
        std::uint32_t number = 0;
        std::memcpy(&number, input.data() + at, bytes);
        switch (Below(6)) {
            case 0:
                number += static_cast<std::uint32_t>(Below(65)) - 32;
                break;
            case 1:
                number ^= std::uint32_t{1} << Below(8 * bytes);
                break;
            case 2:
                std::memcpy(&number, input.data() + Below(input.size() - bytes + 1), bytes);
                break;
            case 3:
                number = static_cast<std::uint32_t>(Below(input.size() + 1));
                break;
            case 4:
                number = 0xFFFFFFFF >> Below(32);
                break;
            default:
                number = static_cast<std::uint32_t>(random_());
        }
        std::memcpy(input.data() + at, &number, bytes);
    }

    const std::vector<std::string>& corpus_;
    const std::vector<std::string>& dictionary_;
    const bool isBinary_;
    std::mt19937_64 random_;
};

struct Arguments {
    std::vector<fs::path> paths;
    std::uint64_t runs = 1000;
    std::uint64_t seed = 1;
};

std::optional<Arguments> Parse(const std::vector<std::string_view>& texts) {
    Arguments arguments;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::string_view text = texts[i];
        if (text != "--runs" && text != "--seed") {
            arguments.paths.emplace_back(text);
            continue;
        }
        const std::string_view number = ++i < texts.size() ? texts[i] : std::string_view();
        std::uint64_t& value = text == "--runs" ? arguments.runs : arguments.seed;
        const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
        if (error != std::errc() || end != number.data() + number.size())
            return {};
    }
    return arguments.paths.empty() ? std::nullopt : std::optional(arguments);
}

}  // namespace

int main(int argc, char** argv) {
    const std::optional<Arguments> arguments = Parse({argv + 1, argv + argc});
    if (!arguments) {
        std::cerr << "Use: " << argv[0] << " CORPUS_DIRECTORY [--runs N] [--seed S], or FILE ...\n";
        return 2;
    }
    CatchFailures();
    if (!fs::is_directory(arguments->paths.front())) {
        for (const fs::path& path : arguments->paths)
            RunInput(Read(path));
        std::cout << arguments->paths.size() << " inputs ran\n";
        return 0;
    }

    const fs::path& directory = arguments->paths.front();
    const std::vector<std::string> corpus = ReadCorpus(directory);
    if (corpus.empty()) {
        std::cerr << "There is no file in " << directory << '\n';
        return 2;
    }
    std::uint64_t prefixes = 0;
    for (const std::string& input : corpus) {
        RunInput(input);
        const std::size_t step = input.size() <= kSmallFile ? 1 : input.size() / kPrefixesOfOthers;
        for (std::size_t length = 0; length < input.size(); length += step, ++prefixes)
            RunInput(std::string_view(input).substr(0, length));
    }
    const std::vector<std::string> dictionary = ReadDictionary(directory);
    Mutator mutator(corpus, dictionary, arguments->seed);
    for (std::uint64_t i = 0; i < arguments->runs; ++i)
        RunInput(mutator.Next());
    std::cout << corpus.size() + prefixes + arguments->runs << " inputs ran: " << corpus.size() << " files, "
              << prefixes << " prefixes, " << arguments->runs << " mutations with seed " << arguments->seed << '\n';
    return 0;
}
