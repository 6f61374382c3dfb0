#include "platform/msft_tables.h"

#include <bit>
#include <cstring>

using typelib::Constant;
using typelib::TypeLevel;
using typelib::TypeReference;
using typelib::ValueType;

namespace {

constexpr std::size_t kHeadBytes = 0x54;
constexpr std::size_t kDescriptorBytes = 16;
constexpr std::size_t kImportInfoBytes = 12;
constexpr std::size_t kMaxTypes = 65535;
constexpr std::uint32_t kHasHelpDll = 0x100;

std::size_t At(std::int32_t offset) {
    return static_cast<std::size_t>(static_cast<std::uint32_t>(offset));
}

double Real4(std::uint32_t bits) {
    return static_cast<double>(std::bit_cast<float>(bits));
}

}  // namespace

bool MsftTables::Open() {
    typeCount_ = file_.U32(0x20);
    if (!file_.Holds(0, kHeadBytes) || typeCount_ > kMaxTypes) {
        reading_.Broken("The head of the library is damaged.");
        return false;
    }
    const std::size_t offsets = kHeadBytes + ((file_.U32(0x14) & kHasHelpDll) != 0 ? 4 : 0);
    const std::optional<ByteView> typeOffsets = file_.Cut(offsets, typeCount_ * 4);
    if (!typeOffsets || !FindSegments(offsets + typeCount_ * 4)) {
        reading_.Broken("The directory of the library's tables is damaged.");
        return false;
    }
    typeOffsets_ = *typeOffsets;
    ReadHead();
    ReadImports();
    return true;
}

bool MsftTables::FindSegments(std::size_t directory) {
    for (std::size_t i = 0; i < SegmentCount; ++i) {
        const std::optional<ByteView> entry = file_.Cut(directory + i * kDescriptorBytes, kDescriptorBytes);
        if (!entry)
            return false;
        if (entry->I32(0) == kNone || entry->I32(4) == 0)
            continue;
        const std::optional<ByteView> segment = file_.Cut(entry->U32(0), entry->U32(4));
        if (!segment) {
            // What a torn file still has of it can be read.
            reading_.Broken("Table " + std::to_string(i) + " leaves the file.");
            segments_[i] = file_.From(entry->U32(0));
            continue;
        }
        segments_[i] = *segment;
    }
    return !segments_[TypeInfos].Text().empty() || typeCount_ == 0;
}

void MsftTables::ReadHead() {
    TypeLibrary& library = reading_.Library();
    reading_.SetLanguage(file_.U32(0xC));
    library.id = Guid(file_.I32(8));
    library.lcid = file_.U32(0x10);
    library.sysKind = file_.U32(0x14) & 0xF;
    library.major = file_.U16(0x18);
    library.minor = file_.U16(0x1A);
    library.flags = file_.U32(0x1C);
    library.description = String(file_.I32(0x24));
    library.helpContext = file_.U32(0x2C);
    library.name = Name(file_.I32(0x38));
    library.helpFile = String(file_.I32(0x3C));
}

void MsftTables::ReadImports() {
    constexpr std::uint32_t kById = 0x10000;
    const ByteView& infos = Of(ImportInfos);
    for (std::size_t at = 0; at + kImportInfoBytes <= infos.Size(); at += kImportInfoBytes) {
        typelib::ImportedType type;
        const std::int32_t which = infos.I32(at + 8);
        if ((infos.U32(at) & kById) != 0)
            type.id = which == kNone ? std::string() : Guid(which);
        else
            type.index = which;
        if (const std::optional<std::size_t> library = ImportedLibraryAt(infos.I32(at + 4)))
            type.library = *library;
        else
            reading_.Broken("An imported type is of no library.");
        reading_.Library().importedTypes.push_back(std::move(type));
    }
}

std::optional<std::size_t> MsftTables::ImportedLibraryAt(std::int32_t offset) {
    if (const auto known = libraryAt_.find(offset); known != libraryAt_.end())
        return known->second;
    constexpr std::size_t kFixed = 14;
    const std::optional<ByteView> record = Of(ImportFiles).Cut(At(offset), kFixed);
    if (!record)
        return std::nullopt;
    const std::size_t length = record->U16(12) >> 2;
    const std::optional<ByteView> file = Of(ImportFiles).Cut(At(offset) + kFixed, length);
    typelib::ImportedLibrary library;
    library.id = Guid(record->I32(0));
    library.lcid = record->U32(4);
    library.major = record->U16(8);
    library.minor = record->U16(10);
    if (file)
        library.file = reading_.Text(file->Text());
    std::vector<typelib::ImportedLibrary>& libraries = reading_.Library().importedLibraries;
    libraries.push_back(std::move(library));
    return libraryAt_[offset] = libraries.size() - 1;
}

std::optional<ByteView> MsftTables::TypeInfo(std::size_t index) {
    return Of(TypeInfos).Cut(typeOffsets_.U32(index * 4), kTypeInfoBytes);
}

std::string MsftTables::Name(std::int32_t offset) {
    if (offset == kNone)
        return {};
    constexpr std::size_t kFixed = 12;
    const std::optional<ByteView> record = Of(Names).Cut(At(offset), kFixed);
    const std::optional<ByteView> text = record ? Of(Names).Cut(At(offset) + kFixed, record->U8(8)) : std::nullopt;
    if (!text) {
        reading_.Broken("A name is outside of the table of names.");
        return {};
    }
    return reading_.Text(text->Text());
}

std::string MsftTables::String(std::int32_t offset) {
    if (offset == kNone)
        return {};
    const std::optional<ByteView> length = Of(Strings).Cut(At(offset), 2);
    const std::optional<ByteView> text = length ? Of(Strings).Cut(At(offset) + 2, length->U16(0)) : std::nullopt;
    if (!text) {
        reading_.Broken("A text is outside of the table of texts.");
        return {};
    }
    return reading_.Text(text->Text());
}

std::string MsftTables::Guid(std::int32_t offset) {
    if (offset == kNone)
        return {};
    const std::optional<ByteView> guid = Of(Guids).Cut(At(offset), 16);
    if (!guid) {
        reading_.Broken("An identifier is outside of the table of identifiers.");
        return {};
    }
    return GuidText(*guid, 0);
}

TypeReference MsftTables::Reference(std::int32_t href) {
    TypeReference reference;
    if (href == kNone)
        return reference;
    const std::size_t offset = At(href);
    if (offset % 4 == 0 && offset % kTypeInfoBytes == 0 && offset / kTypeInfoBytes < typeCount_)
        reference.own = offset / kTypeInfoBytes;
    else if (const std::size_t info = (offset - 1) / kImportInfoBytes;
             offset % 4 == 1 && (offset - 1) % kImportInfoBytes == 0 && info < reading_.Library().importedTypes.size())
        reference.imported = info;
    else
        reading_.Broken("A reference leads to no type.");
    return reference;
}

ValueType MsftTables::Type(std::int32_t dataType) {
    constexpr std::uint16_t kVarTypeBits = 0xFFF;
    ValueType type;
    for (int depth = 0; depth < kMaxTypeNesting; ++depth) {
        if (dataType < 0) {
            type.base = static_cast<std::uint16_t>(static_cast<std::uint32_t>(dataType) & kVarTypeBits);
            return type;
        }
        const std::optional<ByteView> descriptor = Of(TypeDescriptors).Cut(At(dataType), 8);
        if (!descriptor || !reading_.TakeFromTable(8)) {
            reading_.Broken("A type is outside of the table of types.");
            return type;
        }
        const std::uint16_t kind = descriptor->U16(0) & kVarTypeBits;
        dataType = descriptor->I32(4);
        switch (kind) {
            case typelib::Ptr:
            case typelib::SafeArray:
                type.levels.push_back({static_cast<typelib::VarType>(kind), {}});
                break;
            case typelib::CArray:
                if (!ReadBounds(dataType, type.levels.emplace_back()))
                    return type;
                break;
            case typelib::UserDefined:
                type.base = kind;
                type.reference = Reference(dataType);
                return type;
            default:
                type.base = kind;
                return type;
        }
    }
    reading_.Broken("A type is nested without end.");
    return type;
}

// `dataType` is the place of the bounds before, and the type of the elements after.
bool MsftTables::ReadBounds(std::int32_t& dataType, TypeLevel& level) {
    level.kind = typelib::CArray;
    const std::optional<ByteView> head = Of(ArrayDescriptors).Cut(At(dataType), 8);
    const std::size_t dimensions = head ? head->U16(4) : 0;
    const std::optional<ByteView> bounds = Of(ArrayDescriptors).Cut(At(dataType) + 8, dimensions * 8);
    if (!head || !bounds || !reading_.TakeFromTable(8 + dimensions * 8)) {
        reading_.Broken("The bounds of an array are outside of their table.");
        return false;
    }
    for (std::size_t i = 0; i < dimensions; ++i)
        level.bounds.push_back({bounds->I32(i * 8 + 4), bounds->U32(i * 8)});
    dataType = head->I32(0);
    return true;
}

std::optional<Constant> MsftTables::Value(std::int32_t value) {
    if (value == kNone)
        return std::nullopt;
    if (value >= 0) {
        const ByteView stored = Of(Values).From(At(value));
        if (stored.Size() < 2) {
            reading_.Broken("A value is outside of the table of values.");
            return std::nullopt;
        }
        return StoredValue(stored);
    }
    const auto bits = static_cast<std::uint32_t>(value);
    const std::uint32_t payload = bits & 0x3FFFFFF;
    Constant constant;
    constant.type = static_cast<std::uint16_t>(bits >> 26 & 0x1F);
    switch (constant.type) {
        case typelib::I2:
        case typelib::Bool:
            constant.number = static_cast<std::int16_t>(payload);
            break;
        case typelib::I1:
            constant.number = static_cast<std::int64_t>(payload & 0x7F) - static_cast<std::int64_t>(payload & 0x80);
            break;
        default:
            constant.number = payload;
            // A compiler writes reals that are whole numbers like this, as the number.
            constant.real = payload;
    }
    return constant;
}

Constant MsftTables::StoredValue(const ByteView& value) {
    Constant constant;
    constant.type = value.U16(0);
    const ByteView data = value.From(2);
    std::size_t bytes = 4;
    switch (constant.type) {
        case typelib::I2:
        case typelib::Bool:
            constant.number = data.I16(0);
            bytes = 2;
            break;
        case typelib::UI2:
            constant.number = data.U16(0);
            bytes = 2;
            break;
        case typelib::I4:
        case typelib::Int:
        case typelib::Error:
        case typelib::HResult:
            constant.number = data.I32(0);
            break;
        case typelib::UI4:
        case typelib::UInt:
            constant.number = data.U32(0);
            break;
        case typelib::R4:
            constant.real = Real4(data.U32(0));
            break;
        case typelib::R8:
        case typelib::Date:
            constant.real = std::bit_cast<double>(data.U64(0));
            bytes = 8;
            break;
        case typelib::Cy:
        case typelib::I8:
        case typelib::UI8:
            constant.number = static_cast<std::int64_t>(data.U64(0));
            bytes = 8;
            break;
        case typelib::Bstr: {
            const std::size_t length = data.I32(0) < 0 ? 0 : data.U32(0);
            if (const std::optional<ByteView> text = data.Cut(4, length))
                constant.text = reading_.Text(text->Text());
            bytes = 4 + length;
            break;
        }
        default:
            constant.isKnown = false;
            bytes = 0;
    }
    if (!data.Holds(0, bytes)) {
        reading_.Broken("A value is outside of the table of values.");
        constant.isKnown = false;
    }
    return constant;
}
