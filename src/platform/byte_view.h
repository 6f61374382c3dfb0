// A bounded stretch of foreign bytes: a file, a segment of it, or one record. Every read stays inside; what lies
// outside reads as zeros, so a caller checks once, by `Cut`, that a record is there. Numbers are little-endian.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

class ByteView {
public:
    ByteView() = default;
    explicit ByteView(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] std::size_t Size() const { return bytes_.size(); }
    [[nodiscard]] std::string_view Text() const { return bytes_; }
    [[nodiscard]] bool Holds(std::size_t at, std::size_t length) const {
        return at <= bytes_.size() && length <= bytes_.size() - at;
    }
    /// `length` bytes from `at`, or nothing if they leave this view.
    [[nodiscard]] std::optional<ByteView> Cut(std::size_t at, std::size_t length) const {
        return Holds(at, length) ? std::optional(ByteView(bytes_.substr(at, length))) : std::nullopt;
    }
    /// Everything from `at` on; empty if that is outside.
    [[nodiscard]] ByteView From(std::size_t at) const { return ByteView(bytes_.substr(std::min(at, bytes_.size()))); }

    [[nodiscard]] std::uint8_t U8(std::size_t at) const { return static_cast<std::uint8_t>(Number(at, 1)); }
    [[nodiscard]] std::uint16_t U16(std::size_t at) const { return static_cast<std::uint16_t>(Number(at, 2)); }
    [[nodiscard]] std::int16_t I16(std::size_t at) const { return static_cast<std::int16_t>(U16(at)); }
    [[nodiscard]] std::uint32_t U32(std::size_t at) const { return static_cast<std::uint32_t>(Number(at, 4)); }
    [[nodiscard]] std::int32_t I32(std::size_t at) const { return static_cast<std::int32_t>(U32(at)); }
    [[nodiscard]] std::uint64_t U64(std::size_t at) const { return Number(at, 8); }

private:
    [[nodiscard]] std::uint64_t Number(std::size_t at, std::size_t length) const {
        if (!Holds(at, length))
            return 0;
        std::uint64_t number = 0;
        for (std::size_t i = length; i-- > 0;)
            number = number << 8 | static_cast<unsigned char>(bytes_[at + i]);
        return number;
    }
    std::string_view bytes_;
};

/// The 16 bytes at `at` as "{00020430-0000-0000-C000-000000000046}".
[[nodiscard]] std::string GuidText(const ByteView& bytes, std::size_t at);
