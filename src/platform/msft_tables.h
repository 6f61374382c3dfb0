// The tables of a type library in the format MSFT: names, texts, identifiers, types, values. All of them are segments
// of the file, and records refer to them by offsets; -1 is none.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "platform/byte_view.h"
#include "platform/library_reading.h"

class MsftTables {
public:
    enum Segment : std::size_t {
        TypeInfos = 0,
        ImportInfos = 1,
        ImportFiles = 2,
        References = 3,
        Guids = 5,
        Names = 7,
        Strings = 8,
        TypeDescriptors = 9,
        ArrayDescriptors = 10,
        Values = 11,
        SegmentCount = 15
    };
    static constexpr std::int32_t kNone = -1;
    static constexpr std::size_t kTypeInfoBytes = 100;

    MsftTables(ByteView file, LibraryReading& reading) : file_(file), reading_(reading) {}

    /// Finds the segments and reads the head of the library; false if the file cannot be read at all.
    [[nodiscard]] bool Open();

    [[nodiscard]] const ByteView& File() const { return file_; }
    [[nodiscard]] const ByteView& Of(Segment segment) const { return segments_[segment]; }
    [[nodiscard]] std::size_t TypeCount() const { return typeCount_; }
    /// Record of a type, or nothing.
    [[nodiscard]] std::optional<ByteView> TypeInfo(std::size_t index);

    [[nodiscard]] std::string Name(std::int32_t offset);
    [[nodiscard]] std::string String(std::int32_t offset);
    /// Empty for none.
    [[nodiscard]] std::string Guid(std::int32_t offset);
    [[nodiscard]] typelib::TypeReference Reference(std::int32_t href);
    [[nodiscard]] typelib::ValueType Type(std::int32_t dataType);
    [[nodiscard]] std::optional<typelib::Constant> Value(std::int32_t value);

private:
    [[nodiscard]] bool FindSegments(std::size_t directory);
    void ReadHead();
    void ReadImports();
    [[nodiscard]] std::optional<std::size_t> ImportedLibraryAt(std::int32_t offset);
    [[nodiscard]] bool ReadBounds(std::int32_t& dataType, typelib::TypeLevel& level);
    [[nodiscard]] typelib::Constant StoredValue(const ByteView& value);

    ByteView file_;
    LibraryReading& reading_;
    std::array<ByteView, SegmentCount> segments_;
    ByteView typeOffsets_;
    std::size_t typeCount_ = 0;
    std::map<std::int32_t, std::size_t> libraryAt_;  // position of an imported library by its offset
};
