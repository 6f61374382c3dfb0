#include "structure/read_types.h"

#include "structure/add_objects.h"
#include "structure/module_reader.h"

namespace {

// The parts that the heads of Type and Enum blocks share.
struct BlockHead {
    Access zugriff;
    int nameNr;

    BlockHead(const ModuleReader& reader, int tokNr, std::string_view blockWord) {
        const std::string_view first = reader.Word(tokNr);
        zugriff = first == kPrivate ? Access::Private : Access::Public;
        nameNr = tokNr + (first == blockWord ? 1 : 2);
    }
};

template <class Block>
Block& NewBlock(ModuleReader& reader, const BlockHead& head, int tokNr) {
    Block& block = reader.modul.New<Block>();
    block.Zugriff = head.zugriff;
    reader.NameIt(block, head.nameNr);
    block.NamePos = reader.tokens.PosOf(head.nameNr);
    block.DeclareStart = reader.tokens.PosOf(tokNr);
    return block;
}

clsVariable& NewMember(ModuleReader& reader, int nameNr, Access zugriff) {
    clsVariable& member = reader.modul.NewInner<clsVariable>();
    member.Zugriff = zugriff;
    reader.NameIt(member, nameNr);
    member.DeclareStart = reader.tokens.PosOf(nameNr);
    return member;
}

// `before` is the last token before an "as" of the same statement: a second "as" there makes no second member.
void ReadTypeMember(ModuleReader& reader, clsType& type, int asNr, int typeNameNr, int& before) {
    const TokenTable& tokens = reader.tokens;
    int nameNr = asNr;
    while (nameNr > typeNameNr && nameNr > before && tokens.ContinuesStatement(nameNr))
        --nameNr;
    const bool isSecond = before != 0 && nameNr == before;
    before = asNr;
    if (nameNr == asNr || isSecond)
        return;
    TypeText text;
    for (int nr = asNr + 1; tokens.ContinuesStatement(nr); ++nr)
        text.Append(reader.Word(nr));
    clsVariable& member = NewMember(reader, nameNr, Access::TypeMember);
    member.MyType = &type;
    member.type = text.AsName(reader.names);
    type.MyVars.AddUnlessPresent(member.NameKey(), &member);
    Add_Member(reader, member, type.Zugriff == Access::Public);
}

void ReadEnumMember(ModuleReader& reader, clsEnum& einEnum, int nameNr) {
    const bool isPublic = einEnum.Zugriff == Access::Public;
    clsVariable& member = NewMember(reader, nameNr, Access::EnumMember);
    member.MyEnum = &einEnum;
    member.IsConst = true;
    member.type = reader.names.Intern("long");
    member.DeclareEnd = reader.tokens.EndOf(nameNr);
    einEnum.MyVars.AddUnlessPresent(member.NameKey(), &member);
    reader.modul.MyVars.AddUnlessPresent(member.NameKey(), &member);
    Add_Member(reader, member, isPublic);
}

}  // namespace

void Analyse_ReadType(ModuleReader& reader, int& tokNr) {
    const BlockHead head(reader, tokNr, "type");
    if (!reader.Exists(head.nameNr))
        return;
    clsType& type = NewBlock<clsType>(reader, head, tokNr);
    int nr = tokNr + 1;
    int before = 0;
    for (; nr <= reader.tokens.Count(); ++nr) {
        const std::string_view word = reader.Word(nr);
        if (Is(word, "type") && Is(reader.Word(nr - 1), "end"))
            break;
        if (Is(word, "as"))
            ReadTypeMember(reader, type, nr, head.nameNr, before);
    }
    tokNr = std::min(nr, reader.tokens.Count());
    type.DeclareEnd = reader.tokens.EndOf(tokNr);
    Add_Type(reader, type);
}

void Analyse_ReadEnum(ModuleReader& reader, int& tokNr) {
    const BlockHead head(reader, tokNr, "enum");
    if (!reader.Exists(head.nameNr))
        return;
    clsEnum& einEnum = NewBlock<clsEnum>(reader, head, tokNr);
    bool headSeen = false;  // the statement of the head has ended; every later statement makes one member
    bool statementTaken = false;
    int nr = tokNr + 1;
    for (; nr <= reader.tokens.Count(); ++nr) {
        const std::string_view word = reader.Word(nr);
        if (Is(word, "enum") && Is(reader.Word(nr - 1), "end"))
            break;
        if (reader.tokens.StartsStatement(nr)) {
            headSeen = true;
            statementTaken = false;
        }
        if (headSeen && !statementTaken && !Is(word, "enum") && !Is(word, "end") && !Is(word, ":")) {
            statementTaken = true;
            ReadEnumMember(reader, einEnum, nr);
        }
    }
    tokNr = std::min(nr, reader.tokens.Count());
    einEnum.DeclareEnd = reader.tokens.EndOf(tokNr);
    Add_Enum(reader, einEnum);
}
