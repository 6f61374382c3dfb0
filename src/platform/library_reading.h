// What the readers of both formats share while they read one type library: limits, problems, texts.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/byte_view.h"
#include "platform/code_page.h"
#include "platform/type_library.h"

/// Type nesting, and other chains that a damaged file may have closed to a ring.
inline constexpr int kMaxTypeNesting = 32;

class LibraryReading {
public:
    /// @param fileBytes  size of the whole library, which limits what can be in it
    LibraryReading(TypeLibrary& library, std::size_t fileBytes)
        : library_(library), recordsLeft_(fileBytes), tableUseLeft_(fileBytes * kTableUse + kSmallTables) {}

    [[nodiscard]] TypeLibrary& Library() { return library_; }

    /// Notes what is broken. The same thing once is enough, and a damaged library can have thousands.
    void Broken(std::string what);

    /// Accounts for a record that exists once in the file. In a sound file records do not overlap, so all of them
    /// together are no larger than the file; false beyond that.
    [[nodiscard]] bool TakeRecord(std::size_t bytes) { return Take(recordsLeft_, bytes); }
    /// The same for tables that many records refer to, such as texts: a file stands for no more than a multiple of
    /// itself.
    [[nodiscard]] bool TakeFromTable(std::size_t bytes) { return Take(tableUseLeft_, bytes); }

    /// Texts are in the code page of this language from now on.
    void SetLanguage(std::uint32_t lcid);
    /// A text in UTF-8; empty once the tables have been used up.
    [[nodiscard]] std::string Text(std::string_view bytes);

private:
    static constexpr std::size_t kTableUse = 16;
    static constexpr std::size_t kSmallTables = std::size_t{64} << 10;

    bool Take(std::size_t& left, std::size_t bytes);

    TypeLibrary& library_;
    CodePage page_{"1252"};
    std::size_t recordsLeft_;
    std::size_t tableUseLeft_;
};

/// The kind of a number of a file, or nothing for a number above 7.
[[nodiscard]] std::optional<typelib::TypeKind> TypeKindOf(unsigned number);
/// Func for a number that is no kind of call.
[[nodiscard]] typelib::InvokeKind InvokeKindOf(unsigned number);
