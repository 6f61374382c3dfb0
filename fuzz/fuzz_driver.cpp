// Runs a harness without libFuzzer, with the same inputs on every machine:
//
//     module_fuzz CORPUS_DIRECTORY [--runs N] [--seed S]
//     module_fuzz FILE ...                                 (to investigate a failure)
//
// It feeds each file of the corpus, then prefixes of each (all prefixes of small files), then N mutations. An input
// that crashes the program or takes a minute is saved as crash-input in the current directory.

#include "fuzz_driver.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
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
    constexpr std::string_view kText = "The input is kept as crash-input\n";
    (void)!write(STDERR_FILENO, kText.data(), kText.size());
    const int file = open("crash-input", O_WRONLY | O_CREAT | O_TRUNC, 0644);
    (void)!write(file, currentInput.data(), currentInput.size());
    close(file);
}

void OnSignal(int number) {
    KeepInput();
    std::signal(number, SIG_DFL);
    std::raise(number);
}

void CatchFailures() {
    std::vector<int> signals{SIGABRT, SIGALRM};
    if (__sanitizer_set_death_callback)
        __sanitizer_set_death_callback(KeepInput);
    else
        signals.insert(signals.end(), {SIGSEGV, SIGBUS, SIGFPE, SIGILL});
    for (const int number : signals)
        std::signal(number, OnSignal);
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
    for (const fs::path& path : paths)
        corpus.push_back(Read(path));
    return corpus;
}

/// Words that the readers know, and numbers at their limits.
std::vector<std::string> Dictionary() {
    using std::string_literals::operator""s;
    std::istringstream parts(
        "\r\n~\n~\r~ _\r\n~\"~\"\"~'~Rem ~:~(~)~,~;~=~[~]~{~}~.~!~#~&~\\~..\\~|~\t~\0~\xFF~\xFF\xFE~\xFE\xFF~"
        "\xEF\xBB\xBF~\xE4~0~1~-1~255~32768~65536~2147483647~2147483648~-2147483649~4294967296~"
        "99999999999999999999~1e999~&HFFFF~&O7&~ And ~ Or ~ Not ~ = ~#If ~ Then~#Else~#End If~#Const ~Public ~"
        "Private ~Sub ~End Sub~Function ~Property Get ~Dim ~ As ~New ~Type ~Enum ~Const ~Declare ~Begin ~End~"
        "Attribute ~With ~Me~Module=~Class=~Form=~Reference=~Object="s);
    std::vector<std::string> words;
    for (std::string word; std::getline(parts, word, '~');)
        words.push_back(word);
    return words;
}

// ---- Mutations

void ReplaceAll(std::string& text, const std::string& word, const std::string& by) {
    std::size_t found = text.find(word);
    for (int count = 0; !word.empty() && found != std::string::npos && count < 100; ++count) {
        text.replace(found, word.size(), by);
        found = text.find(word, found + by.size());
    }
}

class Mutator {
public:
    Mutator(const std::vector<std::string>& corpus, std::uint64_t seed)
        : corpus_(corpus), isBinary_(std::all_of(corpus.begin(), corpus.end(), IsBinary)), random_(seed) {}

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
    /// Usually a short block or a line, sometimes a block of any length.
    Range AnyRange(const std::string& text) {
        const std::size_t at = Below(text.size() + 1);
        if (Below(4) == 0) {
            const std::size_t before = at == 0 ? std::string::npos : text.rfind('\n', at - 1);
            const std::size_t begin = before == std::string::npos ? 0 : before + 1;
            return {begin, std::min(text.find('\n', at), text.size() - 1) + 1 - begin};
        }
        const std::size_t rest = text.size() - at;
        return {at, Below(std::min(rest, Below(4) ? std::size_t{32} : rest) + 1)};
    }

    /// Puts something in the place of a part of the input, or in front of it.
    void Mutate(std::string& input) {
        const Range range = AnyRange(input);
        const std::string part = input.substr(range.begin, range.length);
        const std::string& other = AnyOf(corpus_);
        const Range fromOther = AnyRange(other);
        std::string put;
        switch (Below(8)) {
            case 0:  // changes a byte
                put = part;
                if (!put.empty())
                    put[Below(put.size())] ^= static_cast<char>(Below(2) ? 1 << Below(8) : Below(256));
                break;
            case 1:
            case 2:
                put = AnyOf(dictionary_);
                break;
            case 3:
                put = other.substr(fromOther.begin, fromOther.length);
                break;
            case 4:
                for (std::size_t count = Below(16); count > 0 && put.size() < kMaxInput; --count)
                    put += part;
                break;
            case 5:  // goes on as the other input does
                input.resize(range.begin);
                input += other.substr(fromOther.begin);
                return;
            case 6:
                return ReplaceAll(input, part.substr(0, 8), AnyOf(dictionary_));
            default:
                break;
        }
        input.replace(range.begin, Below(2) ? range.length : 0, put);
    }

    static bool IsBinary(const std::string& input) { return input.find('\0') != std::string::npos; }

    /// Formats full of offsets fall apart at once when bytes are inserted, so most changes keep everything in its
    /// place.
    void MutateNumber(std::string& input) {
        if (input.size() < 8)
            return;
        const std::size_t bytes = std::size_t{1} << Below(3);
        const std::size_t at = Below((input.size() - bytes) / bytes + 1) * bytes;
        const auto numberAt = [&](std::size_t place) {
            std::uint32_t number = 0;
            std::memcpy(&number, input.data() + place, bytes);
            return number;
        };
        const std::uint32_t numbers[] = {numberAt(at) + static_cast<std::uint32_t>(Below(65)) - 32,
                                         numberAt(at) ^ std::uint32_t{1} << Below(8 * bytes),
                                         numberAt(Below(input.size() - bytes + 1)),
                                         static_cast<std::uint32_t>(Below(input.size() + 1)),
                                         0xFFFFFFFF >> Below(32),
                                         static_cast<std::uint32_t>(random_())};
        std::memcpy(input.data() + at, &numbers[Below(std::size(numbers))], bytes);
    }

    const std::vector<std::string>& corpus_;
    const std::vector<std::string> dictionary_ = Dictionary();
    const bool isBinary_;
    std::mt19937_64 random_;
};

}  // namespace

int main(int argc, char** argv) {
    std::vector<fs::path> paths;
    std::uint64_t runs = 1000;
    std::uint64_t seed = 1;
    for (int i = 1; i < argc; ++i) {
        const std::string_view text = argv[i];
        if ((text == "--runs" || text == "--seed") && i + 1 < argc)
            (text == "--runs" ? runs : seed) = std::stoull(argv[++i]);
        else
            paths.emplace_back(text);
    }
    const bool isCorpus = !paths.empty() && fs::is_directory(paths.front());
    std::vector<std::string> corpus;
    if (isCorpus)
        corpus = ReadCorpus(paths.front());
    else
        std::transform(paths.begin(), paths.end(), std::back_inserter(corpus), Read);
    if (corpus.empty()) {
        std::cerr << "Use: " << argv[0] << " CORPUS_DIRECTORY [--runs N] [--seed S], or FILE ...\n";
        return 2;
    }
    CatchFailures();
    std::uint64_t prefixes = 0;
    for (const std::string& input : corpus) {
        RunInput(input);
        const std::size_t step = input.size() <= kSmallFile ? 1 : input.size() / kPrefixesOfOthers;
        for (std::size_t length = 0; isCorpus && length < input.size(); length += step, ++prefixes)
            RunInput(std::string_view(input).substr(0, length));
    }
    std::cout << corpus.size() << " files and " << prefixes << " prefixes ran\n";
    if (!isCorpus)
        return 0;
    Mutator mutator(corpus, seed);
    for (std::uint64_t i = 0; i < runs; ++i)
        RunInput(mutator.Next());
    std::cout << runs << " mutations with seed " << seed << " ran\n";
    return 0;
}
