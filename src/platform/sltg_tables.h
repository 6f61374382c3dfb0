// What all types of a library in the format SLTG share: its blocks, the directory of types, names, and the dictionary
// of its help texts.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/byte_view.h"
#include "platform/library_reading.h"

class SltgTables {
public:
    static constexpr std::uint16_t kNone = 0xFFFF;

    /// What the directory says of a type.
    struct Entry {
        std::string block;  // name of its block
        typelib::Type type;
    };

    SltgTables(ByteView file, LibraryReading& reading) : file_(file), reading_(reading) {}

    /// Finds the blocks and reads the head of the library and the directory; false if the file cannot be read at all.
    [[nodiscard]] bool Open();

    [[nodiscard]] std::vector<Entry>& Directory() { return directory_; }
    [[nodiscard]] std::optional<ByteView> Block(const std::string& name) const;
    /// The bytes of a name, which end at its NUL; nothing outside of the table.
    [[nodiscard]] std::optional<std::string_view> RawName(std::size_t offset) const;
    [[nodiscard]] std::string Name(std::size_t offset);
    /// A help text, which is coded in words of the dictionary.
    [[nodiscard]] std::string HelpText(const ByteView& coded);

private:
    class Cursor;
    [[nodiscard]] bool FindBlocks();
    [[nodiscard]] bool ReadLibraryBlock();
    void ReadHead(Cursor& cursor);
    void ReadDirectory(Cursor& cursor);
    void FindNames(std::size_t table);

    ByteView file_;
    LibraryReading& reading_;
    std::map<std::string, ByteView, std::less<>> blocks_;
    ByteView libraryBlock_;
    ByteView names_;
    ByteView dictionary_;  // a binary tree of words
    std::vector<Entry> directory_;
};
