// Libraries of the fuzz corpus as bytes that a test changes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

/// Numbers as they are in a file, the lowest byte first.
template <class Number>
[[nodiscard]] std::string LittleEndian(Number number) {
    std::string bytes;
    for (std::size_t i = 0; i < sizeof number; ++i)
        bytes += static_cast<char>(static_cast<std::uint64_t>(number) >> 8 * i & 0xFF);
    return bytes;
}

class LibraryBytes {
public:
    /// @param name  below the corpus, such as "msft/tiny.tlb"
    explicit LibraryBytes(std::string_view name) {
        std::ifstream file(std::filesystem::path(OSTRIVANE_SOURCE_DIR) / "fuzz/corpus" / name, std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        bytes_ = bytes.str();
    }

    [[nodiscard]] const std::string& Bytes() const { return bytes_; }
    LibraryBytes& Set(std::size_t at, std::string_view bytes) {
        bytes_.replace(at, bytes.size(), bytes);
        return *this;
    }
    LibraryBytes& Set32(std::size_t at, std::uint32_t number) { return Set(at, LittleEndian(number)); }

    /// Gives a table of the format MSFT another content, at the end of the file.
    /// @param types  how many the library has; the directory of tables follows their offsets
    LibraryBytes& SetTable(std::size_t table, std::string_view content, std::size_t types) {
        const std::size_t entry = 0x54 + types * 4 + table * 16;
        Set32(entry, static_cast<std::uint32_t>(bytes_.size()));
        Set32(entry + 4, static_cast<std::uint32_t>(content.size()));
        bytes_ += content;
        return *this;
    }

private:
    std::string bytes_;
};
