// A type is a block. Its members are in the block's member data, chained by 16-bit offsets from the beginning of
// these data; so do types that need more than one word. References to other types are a table of texts.
#include "platform/sltg_reader.h"

#include <bit>
#include <charconv>

#include "platform/sltg_tables.h"

using typelib::Constant;
using typelib::Member;
using typelib::Parameter;
using typelib::Type;
using typelib::TypeKind;
using typelib::TypeReference;
using typelib::ValueType;
namespace param_flag = typelib::param_flag;

namespace {

constexpr std::uint16_t kNone = SltgTables::kNone;
constexpr std::uint16_t kSameName = 0xFFFE;

std::optional<std::uint32_t> HexNumber(std::string_view text) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, 16);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

// Cuts `text` at its first `separator` and returns what is before it.
std::string_view TakeField(std::string_view& text, char separator) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view field = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return field;
}

/// Reads the block of one type.
class SltgTypeReader {
public:
    SltgTypeReader(SltgTables& tables, LibraryReading& reading, ByteView block, Type& type)
        : tables_(tables), reading_(reading), block_(block), type_(type) {}

    void Read() {
        constexpr std::uint16_t kMark = 0x501;
        constexpr std::size_t kHeadBytes = 0x22;
        constexpr std::size_t kMemberHeadBytes = 9;
        constexpr std::size_t kTailBytes = 0x36;
        const std::size_t memberHead = block_.U32(0xA);
        const std::optional<ByteView> head = block_.Cut(memberHead, kMemberHeadBytes);
        if (!block_.Holds(0, kHeadBytes) || block_.U16(0) != kMark || !head)
            return Broken();
        const std::size_t dataBytes = head->U32(5);
        const std::optional<ByteView> data = block_.Cut(memberHead + kMemberHeadBytes, dataBytes);
        const std::optional<ByteView> tail = block_.Cut(memberHead + kMemberHeadBytes + dataBytes, kTailBytes);
        if (!data || !tail)
            return Broken();
        data_ = *data;
        tail_ = *tail;
        type_.major = block_.U16(0x12);
        type_.minor = block_.U16(0x14);
        type_.flags = static_cast<std::uint32_t>(block_.U8(0x1A) >> 3 | block_.U8(0x1B) << 5);
        type_.size = TailWord(16);
        ReadReferences();
        ReadImplemented();
        ReadFunctions();
        ReadVariables();
        if (type_.kind == TypeKind::Alias)
            ReadAlias();
        type_.isWrapper = type_.kind == TypeKind::Dispatch && !type_.Has(typelib::type_flag::kDual) &&
                          type_.members.empty() && !type_.implemented.empty();
    }

private:
    void Broken() { reading_.Broken("The type \"" + type_.name + "\" is damaged."); }

    [[nodiscard]] std::uint16_t TailWord(std::size_t word) const { return tail_.U16(word * 2); }

    // ---- References

    void ReadReferences() {
        constexpr std::size_t kCount = 0x44;
        constexpr std::size_t kBytesAfter = 7;
        const std::uint32_t place = block_.U32(2);
        if (place == 0xFFFFFFFF)
            return;
        const ByteView table = block_.From(place);
        const std::size_t bytes = table.U32(kCount);
        std::size_t at = kCount + 4 + bytes + kBytesAfter;
        for (std::size_t i = 0; i < bytes / 8; ++i) {
            const std::optional<ByteView> length = table.Cut(at, 2);
            const std::optional<ByteView> text = length ? table.Cut(at + 2, length->U16(0)) : std::nullopt;
            if (!text || !reading_.TakeRecord(2 + text->Size()))
                return Broken();
            references_.push_back(ReferenceOf(text->Text()));
            at += 2 + text->Size();
        }
    }

    // "*\Rffff*#n" is type n of this library, "*\Rxxxx*#n" one of the library that the name at xxxx describes.
    TypeReference ReferenceOf(std::string_view text) {
        constexpr std::string_view kBegin = "*\\R";
        TypeReference reference;
        if (!text.starts_with(kBegin))
            return reference;
        text.remove_prefix(kBegin.size());
        const std::optional<std::uint32_t> library = HexNumber(TakeField(text, '*'));
        const std::optional<std::uint32_t> index = text.starts_with('#') ? HexNumber(text.substr(1)) : std::nullopt;
        if (!library || !index)
            return reference;
        if (*library == kNone) {
            if (*index < tables_.Directory().size())
                reference.own = *index;
        } else if (const std::optional<std::string_view> name = tables_.RawName(*library)) {
            reference.imported = Imported(*name, static_cast<int>(*index & 0xFFFF));
        }
        return reference;
    }

    // The position of a type of another library, "*\G{GUID}#major.minor#lcid#path#".
    std::size_t Imported(std::string_view text, int index) {
        typelib::ImportedLibrary library;
        if (text.starts_with("*\\G"))
            text.remove_prefix(3);
        library.id = reading_.Text(TakeField(text, '#'));
        for (char& c : library.id)
            c = c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c;
        std::string_view version = TakeField(text, '#');
        library.major = static_cast<int>(HexNumber(TakeField(version, '.')).value_or(0) & 0xFFFF);
        library.minor = static_cast<int>(HexNumber(version).value_or(0) & 0xFFFF);
        library.lcid = HexNumber(TakeField(text, '#')).value_or(0);
        library.file = reading_.Text(TakeField(text, '#'));
        std::vector<typelib::ImportedLibrary>& libraries = reading_.Library().importedLibraries;
        std::size_t at = 0;
        while (at < libraries.size() && libraries[at].id != library.id)
            ++at;
        if (at == libraries.size())
            libraries.push_back(std::move(library));
        std::vector<typelib::ImportedType>& types = reading_.Library().importedTypes;
        types.push_back({at, {}, index});
        return types.size() - 1;
    }

    // ---- Types

    // A type of one or more words at `at`, which moves past them. `first` receives the first word, whose high bits
    // belong to a parameter.
    ValueType TypeAt(std::size_t& at, std::uint16_t* first = nullptr) {
        constexpr std::uint16_t kVarTypeBits = 0x3F;
        constexpr std::uint16_t kPointer = 0xE00;
        ValueType type;
        for (int depth = 0; depth < kMaxTypeNesting; ++depth) {
            if (!data_.Holds(at, 2) || !reading_.TakeFromTable(2)) {
                Broken();
                return type;
            }
            const std::uint16_t word = data_.U16(at);
            at += 2;
            if (first && depth == 0)
                *first = word;
            if ((word & kPointer) == kPointer)
                type.levels.push_back({typelib::Ptr, {}});
            type.base = word & kVarTypeBits;
            switch (type.base) {
                case typelib::Ptr:
                    type.levels.push_back({typelib::Ptr, {}});
                    break;
                case typelib::SafeArray:
                    type.levels.push_back({typelib::SafeArray, {}});
                    at += 2;
                    break;
                case typelib::CArray:
                    ReadBounds(data_.U16(at), type.levels.emplace_back());
                    at += 2;
                    break;
                case typelib::UserDefined: {
                    const std::size_t reference = data_.U16(at) / 4U;
                    if (reference < references_.size())
                        type.reference = references_[reference];
                    else
                        Broken();
                    at += 2;
                    return type;
                }
                default:
                    return type;
            }
        }
        reading_.Broken("A type is nested without end.");
        return type;
    }

    ValueType TypeAtOffset(std::uint16_t offset, std::uint16_t* first = nullptr) {
        std::size_t at = offset;
        return TypeAt(at, first);
    }

    void ReadBounds(std::size_t head, typelib::TypeLevel& level) {
        constexpr std::size_t kHeadBytes = 16;
        level.kind = typelib::CArray;
        const std::size_t dimensions = data_.U16(head);
        const std::optional<ByteView> bounds = data_.Cut(head + kHeadBytes, dimensions * 8);
        if (!bounds || !reading_.TakeFromTable(bounds->Size()))
            return Broken();
        for (std::size_t i = 0; i < dimensions; ++i)
            level.bounds.push_back({bounds->I32(i * 8 + 4), bounds->U32(i * 8)});
    }

    void ReadAlias() {
        constexpr std::size_t kType = 10;
        constexpr std::size_t kIsSimple = 14;
        if (TailWord(kIsSimple) == 1)
            type_.aliasOf = ValueType{{}, TailWord(kType), {}};
        else
            type_.aliasOf = TypeAtOffset(TailWord(kType));
    }

    // ---- Members

    // Calls `use` with each record of a chain; `size` is what all of them have.
    template <class Use>
    void ForEachRecord(std::uint16_t first, std::size_t count, std::size_t size, const Use& use) {
        std::uint16_t at = first;
        for (std::size_t i = 0; i < count && at != kNone; ++i) {
            const std::optional<ByteView> record = data_.Cut(at, size);
            if (!record || !reading_.TakeRecord(size))
                return Broken();
            use(*record, at);
            at = record->U16(2);
        }
    }

    void ReadImplemented() {
        constexpr std::size_t kBytes = 18;
        ForEachRecord(TailWord(6), TailWord(2), kBytes, [&](const ByteView& record, std::size_t) {
            type_.implemented.push_back({TypeAtOffset(record.U16(8)).reference, record.U8(6)});
        });
    }

    std::string MemberName(std::uint16_t name) {
        if (name != kSameName)
            return tables_.Name(name);
        return type_.members.empty() ? std::string() : type_.members.back().name;
    }

    std::uint32_t HelpContext(std::uint16_t word) const {
        if (word == kSameName)
            return 0;
        if ((word & 1) == 0)
            return data_.U32(word);
        const std::uint32_t base = tail_.U32(24);
        const std::uint32_t distance = word >> 2;
        return (word & 2) != 0 ? base - distance : base + distance;
    }

    std::string HelpText(std::uint16_t offset) {
        return offset == kNone ? std::string() : tables_.HelpText(data_.From(offset));
    }

    void ReadFunctions() {
        constexpr std::size_t kBytes = 0x16;
        ForEachRecord(TailWord(4), TailWord(0), kBytes, [&](const ByteView& record, std::size_t at) {
            Member function;
            function.isFunction = true;
            function.name = MemberName(record.U16(4));
            function.invoke = InvokeKindOf(record.U8(1) >> 4);
            function.id = static_cast<std::int32_t>(record.U32(6));
            function.helpContext = HelpContext(record.U16(0xA));
            function.description = HelpText(record.U16(0xC));
            constexpr unsigned kHasFlags = 0x20;
            if ((record.U8(0) & kHasFlags) != 0)
                function.flags = data_.U16(at + kBytes);
            constexpr unsigned kTypeIsInline = 0x80;
            std::size_t type = (record.U8(0x11) & kTypeIsInline) != 0 ? at + 0x12 : record.U16(0x12);
            function.type = TypeAt(type);
            const std::size_t parameters = record.U8(0x10) >> 3;
            ReadParameters(function, record.U16(0xE), parameters, record.U8(0x11) >> 1 & 0x3F);
            if (type_.kind == TypeKind::Module)
                ReadEntry(function, record.U16(0x14));
            type_.members.push_back(std::move(function));
        });
    }

    void ReadParameters(Member& function, std::size_t at, std::size_t count, std::size_t optional) {
        constexpr std::size_t kAnyNumber = 0x3F;
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint16_t word = data_.U16(at);
            if (!data_.Holds(at, 4) || !reading_.TakeRecord(4))
                return Broken();
            Parameter& parameter = function.parameters.emplace_back();
            std::uint16_t first = 0;
            at += 2;
            if ((word & 1) != 0) {
                parameter.type = TypeAt(at, &first);
            } else {
                parameter.type = TypeAtOffset(data_.U16(at), &first);
                at += 2;
            }
            if (word != kNone && word != kSameName)
                parameter.name = tables_.Name(word & ~1U);
            parameter.flags = ParameterFlags(first);
        }
        function.hasParamArray = optional == kAnyNumber;
        // After optional parameters a result counts as one of them, so the number does not say which.
        if (function.hasParamArray || count == 0 || function.parameters.back().Has(param_flag::kRetVal))
            return;
        for (std::size_t i = count - std::min(optional, count); i < count; ++i)
            function.parameters[i].flags |= param_flag::kOptional;
    }

    static std::uint32_t ParameterFlags(std::uint16_t word) {
        constexpr std::uint16_t kRetVal = 0x80;
        constexpr std::uint16_t kLcid = 0x2000;
        constexpr std::uint32_t kDirections[] = {param_flag::kIn, param_flag::kOut, param_flag::kIn | param_flag::kOut,
                                                 0};
        return kDirections[word >> 14] | ((word & kRetVal) != 0 ? param_flag::kRetVal : 0) |
               ((word & kLcid) != 0 ? param_flag::kLcid : 0);
    }

    void ReadEntry(Member& function, std::size_t offset) {
        constexpr std::size_t kHeadBytes = 0x15;
        constexpr std::size_t kEntryBytes = 16;
        const std::uint32_t table = block_.U32(6);
        if (table == 0xFFFFFFFF || offset == kNone)
            return;
        const std::optional<ByteView> entry = block_.Cut(std::size_t{table} + kHeadBytes + offset, kEntryBytes);
        if (!entry)
            return Broken();
        if (type_.dll.empty())
            type_.dll = tables_.Name(entry->U16(2) & ~1U);
        function.entry = '#' + std::to_string(entry->U16(4));
    }

    void ReadVariables() {
        constexpr std::size_t kBytes = 0x12;
        constexpr unsigned kTypeIsInline = 2;
        constexpr unsigned kConstant = 0x10;
        constexpr unsigned kDispatch = 0x40;
        constexpr unsigned kReadOnly = 0x80;
        ForEachRecord(TailWord(5), TailWord(1), kBytes, [&](const ByteView& record, std::size_t at) {
            Member variable;
            const unsigned bits = record.U8(1);
            variable.name = MemberName(record.U16(4));
            variable.id = static_cast<std::int32_t>(record.U32(0xA));
            variable.helpContext = HelpContext(record.U16(0xE));
            variable.description = HelpText(record.U16(0x10));
            constexpr unsigned kHasFlags = 0x20;
            if ((record.U8(0) & kHasFlags) != 0)
                variable.flags = data_.U16(at + kBytes);
            if ((bits & kReadOnly) != 0)
                variable.flags |= typelib::var_flag::kReadOnly;
            std::size_t type = (bits & kTypeIsInline) != 0 ? at + 8 : record.U16(8);
            variable.type = TypeAt(type);
            if ((bits & kDispatch) != 0) {
                variable.variableKind = typelib::VariableKind::Dispatch;
            } else if ((bits & kConstant) != 0) {
                variable.variableKind = typelib::VariableKind::Constant;
                variable.value = ValueOf(variable.type.base, record, bits);
            }
            type_.members.push_back(std::move(variable));
        });
    }

    Constant ValueOf(std::uint16_t type, const ByteView& record, unsigned bits) {
        constexpr unsigned kValueIsInline = 8;
        Constant constant;
        constant.type = type;
        const std::uint16_t place = record.U16(6);
        if ((bits & kValueIsInline) != 0) {
            constant.number = record.I16(6);
            constant.real = record.I16(6);
            return constant;
        }
        switch (type) {
            case typelib::Bstr:
            case typelib::LpStr:
            case typelib::LpWStr: {
                constant.type = typelib::Bstr;
                const std::size_t length = data_.U16(place) == kNone ? 0 : data_.U16(place);
                if (const std::optional<ByteView> text = data_.Cut(std::size_t{place} + 2, length))
                    constant.text = reading_.Text(text->Text());
                else
                    Broken();
                break;
            }
            case typelib::I2:
            case typelib::Bool:
                constant.number = data_.I16(place);
                break;
            case typelib::R4:
                constant.real = static_cast<double>(std::bit_cast<float>(data_.U32(place)));
                break;
            case typelib::R8:
            case typelib::Date:
                constant.real = std::bit_cast<double>(data_.U64(place));
                break;
            case typelib::Cy:
                constant.number = static_cast<std::int64_t>(data_.U64(place));
                break;
            case typelib::UI4:
            case typelib::UInt:
                constant.number = data_.U32(place);
                break;
            default:
                constant.number = data_.I32(place);
        }
        return constant;
    }

    SltgTables& tables_;
    LibraryReading& reading_;
    ByteView block_;
    Type& type_;
    ByteView data_;  // the member data
    ByteView tail_;
    std::vector<TypeReference> references_;
};

}  // namespace

void ReadSltg(ByteView file, LibraryReading& reading) {
    SltgTables tables(file, reading);
    if (!tables.Open())
        return;
    for (SltgTables::Entry& entry : tables.Directory()) {
        if (const std::optional<ByteView> block = tables.Block(entry.block))
            SltgTypeReader(tables, reading, *block, entry.type).Read();
        else
            reading.Broken("The type \"" + entry.type.name + "\" is missing.");
        reading.Library().types.push_back(std::move(entry.type));
    }
}
