// A type is a record of fixed size. Its functions and variables are in a block of their own, as records of different
// sizes, followed by three arrays: their ids, their names, and their places in the block.
#include "platform/msft_reader.h"

#include "platform/msft_tables.h"

using typelib::ImplementedType;
using typelib::Member;
using typelib::Parameter;
using typelib::Type;
using typelib::TypeKind;

namespace {

constexpr std::size_t kFunctionBytes = 0x18;
constexpr std::size_t kVariableBytes = 0x14;
constexpr std::size_t kParameterBytes = 12;

// Bits of a function.
constexpr std::uint32_t kHasDefaults = 0x1000;
constexpr std::uint32_t kEntryIsOrdinal = 0x2000;

class MsftReader {
public:
    MsftReader(ByteView file, LibraryReading& reading) : tables_(file, reading), reading_(reading) {}

    void Read() {
        if (!tables_.Open())
            return;
        for (std::size_t i = 0; i < tables_.TypeCount(); ++i) {
            const std::optional<ByteView> record = tables_.TypeInfo(i);
            if (!record || !reading_.TakeRecord(MsftTables::kTypeInfoBytes)) {
                reading_.Broken("Type " + std::to_string(i) + " is outside of the table of types.");
                return;
            }
            // References count positions, so even a type without a readable kind keeps its own.
            reading_.Library().types.push_back(ReadType(*record));
        }
    }

private:
    Type ReadType(const ByteView& record) {
        Type type;
        type.name = tables_.Name(record.I32(0x34));
        if (const auto kind = TypeKindOf(record.U32(0) & 0xF))
            type.kind = *kind;
        else
            reading_.Broken("The kind of the type \"" + type.name + "\" is unknown.");
        type.id = tables_.Guid(record.I32(0x2C));
        type.flags = record.U32(0x30);
        type.major = record.U16(0x38);
        type.minor = record.U16(0x3A);
        type.description = tables_.String(record.I32(0x3C));
        type.helpContext = record.U32(0x44);
        ReadWhatItIsMadeOf(record, type);
        ReadMembers(record, type);
        return type;
    }

    void ReadWhatItIsMadeOf(const ByteView& record, Type& type) {
        const std::int32_t data = record.I32(0x54);
        switch (type.kind) {
            case TypeKind::Enum:
                break;
            case TypeKind::Record:
            case TypeKind::Union:
                type.size = record.U32(0x50);
                break;
            case TypeKind::Module:
                type.dll = tables_.String(data);
                break;
            case TypeKind::Dispatch:
            case TypeKind::Interface:
                if (data == MsftTables::kNone)
                    break;
                type.implemented.push_back({tables_.Reference(data), 0});
                type.isWrapper = type.kind == TypeKind::Dispatch && !type.Has(typelib::type_flag::kDual);
                break;
            case TypeKind::CoClass:
                ReadImplemented(data, record.U16(0x4C), type);
                break;
            case TypeKind::Alias:
                type.aliasOf = tables_.Type(data);
                break;
        }
    }

    void ReadImplemented(std::int32_t offset, std::size_t count, Type& type) {
        constexpr std::size_t kBytes = 16;
        for (std::size_t i = 0; i < count && offset != MsftTables::kNone; ++i) {
            const std::optional<ByteView> record =
                tables_.Of(MsftTables::References).Cut(static_cast<std::uint32_t>(offset), kBytes);
            if (!record || !reading_.TakeRecord(kBytes)) {
                reading_.Broken("The interfaces of the class \"" + type.name + "\" are damaged.");
                return;
            }
            type.implemented.push_back({tables_.Reference(record->I32(0)), record->U32(4)});
            offset = record->I32(12);
        }
    }

    void ReadMembers(const ByteView& record, Type& type) {
        const std::size_t functions = record.U16(0x18);
        const std::size_t count = functions + record.U16(0x1A);
        if (count == 0)  // the place of the block means nothing then
            return;
        const std::size_t block = record.U32(4);
        const std::size_t bytes = tables_.File().U32(block);
        const std::optional<ByteView> records = tables_.File().Cut(block + 4, bytes);
        const std::optional<ByteView> arrays = tables_.File().Cut(block + 4 + bytes, count * 12);
        if (!records || !arrays)
            return MembersAreBroken(type);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t offset = arrays->U32((2 * count + i) * 4);
            const std::optional<ByteView> size = records->Cut(offset, 2);
            const std::optional<ByteView> member = size ? records->Cut(offset, size->U16(0)) : std::nullopt;
            const bool isFunction = i < functions;
            if (!member || member->Size() < (isFunction ? kFunctionBytes : kVariableBytes) ||
                !reading_.TakeRecord(member->Size()))
                return MembersAreBroken(type);
            Member& read = type.members.emplace_back();
            read.isFunction = isFunction;
            read.id = arrays->I32(i * 4);
            const std::int32_t name = arrays->I32((count + i) * 4);
            if (name != MsftTables::kNone)
                read.name = tables_.Name(name);
            else if (i > 0)  // the accessors of one property may have their name once
                read.name = type.members[i - 1].name;
            if (isFunction)
                ReadFunction(*member, read);
            else
                ReadVariable(*member, read);
        }
    }

    void MembersAreBroken(const Type& type) {
        reading_.Broken("The members of the type \"" + type.name + "\" are damaged.");
    }

    void ReadFunction(const ByteView& record, Member& function) {
        const std::uint32_t bits = record.U32(0x10);
        const std::size_t parameters = record.U16(0x14);
        const std::size_t defaultBytes = (bits & kHasDefaults) != 0 ? 4 * parameters : 0;
        const std::size_t parameterBytes = kParameterBytes * parameters + defaultBytes;
        function.type = tables_.Type(record.I32(4));
        function.flags = record.U32(8);
        function.invoke = InvokeKindOf(bits >> 3 & 0xF);
        function.hasParamArray = record.I16(0x16) == -1;
        if (kFunctionBytes + parameterBytes > record.Size()) {
            reading_.Broken("The parameters of \"" + function.name + "\" are damaged.");
            return;
        }
        const std::size_t attributes = (record.Size() - kFunctionBytes - parameterBytes) / 4;
        if (attributes >= 1)
            function.helpContext = record.U32(kFunctionBytes);
        if (attributes >= 2)
            function.description = tables_.String(record.I32(kFunctionBytes + 4));
        if (attributes >= 3)
            function.entry = (bits & kEntryIsOrdinal) != 0 ? '#' + std::to_string(record.U32(kFunctionBytes + 8))
                                                           : tables_.String(record.I32(kFunctionBytes + 8));
        const std::size_t first = record.Size() - kParameterBytes * parameters;
        for (std::size_t i = 0; i < parameters; ++i) {
            const std::size_t at = first + i * kParameterBytes;
            Parameter& parameter = function.parameters.emplace_back();
            parameter.type = tables_.Type(record.I32(at));
            parameter.name = tables_.Name(record.I32(at + 4));
            parameter.flags = record.U32(at + 8);
            if (defaultBytes != 0 && parameter.Has(typelib::param_flag::kHasDefault))
                parameter.defaultValue = tables_.Value(record.I32(first - defaultBytes + 4 * i));
        }
    }

    void ReadVariable(const ByteView& record, Member& variable) {
        variable.type = tables_.Type(record.I32(4));
        variable.flags = record.U32(8);
        variable.variableKind = static_cast<typelib::VariableKind>(record.U16(0xC) & 3);
        if (variable.variableKind == typelib::VariableKind::Constant)
            variable.value = tables_.Value(record.I32(0x10));
        if (record.Holds(kVariableBytes, 4))
            variable.helpContext = record.U32(kVariableBytes);
        if (record.Holds(kVariableBytes + 4, 4))
            variable.description = tables_.String(record.I32(kVariableBytes + 4));
    }

    MsftTables tables_;
    LibraryReading& reading_;
};

}  // namespace

void ReadMsft(ByteView file, LibraryReading& reading) {
    MsftReader(file, reading).Read();
}
