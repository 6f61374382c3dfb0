#include "platform/pe_resources.h"

#include <optional>

#include "platform/ascii.h"
#include "platform/byte_view.h"

namespace {

constexpr std::uint32_t kHighBit = 0x80000000;
constexpr std::size_t kSectionBytes = 40;
constexpr std::size_t kSectionAddress = 0xC;
constexpr std::size_t kSectionSize = 0x10;
constexpr std::size_t kSectionPlace = 0x14;
constexpr std::size_t kNodeBytes = 16;
constexpr std::size_t kEntryBytes = 8;

// The sections of a file. They map addresses in memory to positions in the file.
class PeFile {
public:
    /// Sets `problem` if the file is none.
    PeFile(ByteView file, std::string& problem) : file_(file) {
        const std::size_t pe = file.U32(0x3C);
        if (file.U32(pe) != 0x4550) {
            problem = "The file is no 32-bit or 64-bit program: the PE header is missing.";
            return;
        }
        const std::size_t header = pe + 0x18;
        const std::size_t headerBytes = file.U16(pe + 0x14);
        const std::uint16_t magic = file.U16(header);
        if (magic != 0x10B && magic != 0x20B) {
            problem = "The PE header is damaged: its magic number is unknown.";
            return;
        }
        const std::size_t directories = header + (magic == 0x10B ? 0x60 : 0x70);
        if (file.U32(directories - 4) >= 3)
            resources_ = file.U32(directories + 16);
        sections_ = file.From(header + headerBytes);
        sectionCount_ = file.U16(pe + 6);
    }

    /// Address of the tree of resources, or 0.
    [[nodiscard]] std::uint32_t Resources() const { return resources_; }

    /// Bytes up to the end of the table of sections.
    [[nodiscard]] std::size_t HeadBytes() const {
        return file_.Size() - sections_.Size() + sectionCount_ * kSectionBytes;
    }

    /// Number of the section that holds an address.
    [[nodiscard]] std::optional<std::size_t> SectionOf(std::uint32_t address) const {
        for (std::size_t i = 0; i < sectionCount_; ++i) {
            const std::optional<ByteView> section = Section(i);
            if (!section)
                break;
            const std::uint32_t begin = section->U32(kSectionAddress);
            if (address >= begin && address - begin < section->U32(kSectionSize))
                return i;
        }
        return std::nullopt;
    }
    [[nodiscard]] std::size_t Sections() const { return sectionCount_; }
    [[nodiscard]] std::optional<ByteView> Section(std::size_t number) const {
        return sections_.Cut(number * kSectionBytes, kSectionBytes);
    }

    /// The file from an address on, to the end of its section.
    [[nodiscard]] std::optional<ByteView> At(std::uint32_t address) const {
        const std::optional<std::size_t> number = SectionOf(address);
        if (!number)
            return std::nullopt;
        const ByteView section = *Section(*number);
        const std::size_t inSection = address - section.U32(kSectionAddress);
        // The last section of a torn file holds less than it says.
        const std::string_view rest = file_.From(section.U32(kSectionPlace) + inSection).Text();
        return ByteView(rest.substr(0, section.U32(kSectionSize) - inSection));
    }

private:
    ByteView file_;
    ByteView sections_;
    std::size_t sectionCount_ = 0;
    std::uint32_t resources_ = 0;
};

struct Entry {
    std::uint32_t key;
    std::uint32_t target;
    [[nodiscard]] bool IsNode() const { return (target & kHighBit) != 0; }
};

// The tree of resources: types, their names, their languages.
class ResourceTree {
public:
    ResourceTree(const PeFile& file, ByteView tree, PeResources& found) : file_(file), tree_(tree), found_(found) {}

    void Read(const PeResourceKey& type) {
        for (const Entry& entry : Entries(0))
            if (entry.IsNode() && Matches(entry.key, type))
                for (const Entry& name : Entries(entry.target & ~kHighBit))
                    ReadResource(name);
    }

private:
    void ReadResource(const Entry& name) {
        std::uint32_t data = name.target;
        if (name.IsNode()) {
            const std::vector<Entry> languages = Entries(name.target & ~kHighBit);
            if (languages.empty() || languages[0].IsNode())
                return Broken();
            data = languages[0].target;
        }
        const std::optional<ByteView> record = tree_.Cut(data, 16);
        const std::optional<ByteView> memory = record ? file_.At(record->U32(0)) : std::nullopt;
        const std::optional<ByteView> bytes = memory ? memory->Cut(0, record->U32(4)) : std::nullopt;
        if (!bytes)
            return Broken();
        found_.resources.push_back({(name.key & kHighBit) != 0 ? 0 : name.key, bytes->Text()});
    }

    std::vector<Entry> Entries(std::size_t node) {
        std::vector<Entry> entries;
        const std::optional<ByteView> head = tree_.Cut(node, kNodeBytes);
        if (!head) {
            Broken();
            return entries;
        }
        const std::size_t count = std::size_t{head->U16(0xC)} + head->U16(0xE);
        for (std::size_t i = 0; i < count; ++i) {
            const std::optional<ByteView> entry = tree_.Cut(node + kNodeBytes + i * kEntryBytes, kEntryBytes);
            // In damaged files nodes can share their entries, so that a few of them stand for very many.
            if (!entry || ++entriesSeen_ > tree_.Size() / kEntryBytes) {
                Broken();
                break;
            }
            entries.push_back({entry->U32(0), entry->U32(4)});
        }
        return entries;
    }

    [[nodiscard]] bool Matches(std::uint32_t key, const PeResourceKey& asked) const {
        if (const auto* number = std::get_if<std::uint32_t>(&asked))
            return key == *number;
        if ((key & kHighBit) == 0)
            return false;
        const std::size_t at = key & ~kHighBit;
        const std::string& text = std::get<std::string>(asked);
        if (tree_.U16(at) != text.size())
            return false;
        std::string name;
        for (std::size_t i = 0; i < text.size(); ++i)
            name += static_cast<char>(tree_.U16(at + 2 + i * 2) < 0x80 ? tree_.U8(at + 2 + i * 2) : 0);
        return ascii::SameText(name, text);
    }

    void Broken() { found_.problem = "The resources of the file are damaged."; }

    const PeFile& file_;
    ByteView tree_;
    PeResources& found_;
    std::size_t entriesSeen_ = 0;
};

// A version control system that takes a program for a text replaces every LF by CR LF.
bool HasConvertedLineEnds(std::string_view file) {
    constexpr std::size_t kEnoughBytes = 4096;
    if (file.size() < kEnoughBytes)
        return false;
    for (std::size_t at = file.find('\n'); at != std::string_view::npos; at = file.find('\n', at + 1))
        if (at == 0 || file[at - 1] != '\r')
            return false;
    return true;
}

}  // namespace

bool IsProgramFile(std::string_view file) {
    return file.starts_with("MZ");
}

FileBytes ReadForResources(const Files& files, std::string_view path, std::size_t most) {
    constexpr std::size_t kEnoughForHeaders = 8192;
    FileBytes file = files.ReadStretch(path, 0, kEnoughForHeaders);
    if (file.error != FileError::None)
        return file;
    std::string problem;
    const PeFile program(ByteView(file.bytes), problem);
    const std::optional<std::size_t> number = program.SectionOf(program.Resources());
    const std::size_t headBytes = program.HeadBytes();
    if (!IsProgramFile(file.bytes) || program.Resources() == 0 || !number || headBytes > file.bytes.size())
        return files.ReadBytes(path, most);
    const ByteView section = *program.Section(*number);
    if (section.U32(kSectionSize) > most)
        return {{}, FileError::TooLarge};
    FileBytes bytes = files.ReadStretch(path, section.U32(kSectionPlace), section.U32(kSectionSize));
    if (bytes.error != FileError::None)
        return bytes;
    const std::size_t table = headBytes - program.Sections() * kSectionBytes;
    const auto set = [&file](std::size_t at, std::size_t value) {
        for (std::size_t i = 0; i < 4; ++i)
            file.bytes[at + i] = static_cast<char>(value >> 8 * i & 0xFF);
    };
    for (std::size_t i = 0; i < program.Sections(); ++i)
        if (i == *number)
            set(table + i * kSectionBytes + kSectionPlace, headBytes);
        else
            set(table + i * kSectionBytes + kSectionSize, 0);
    file.bytes.resize(headBytes);
    file.bytes += bytes.bytes;
    return file;
}

PeResources ReadPeResources(std::string_view file, const PeResourceKey& type) {
    PeResources found;
    const PeFile program(ByteView(file), found.problem);
    if (program.Resources() != 0) {
        if (const std::optional<ByteView> tree = program.At(program.Resources()))
            ResourceTree(program, *tree, found).Read(type);
        else
            found.problem = "The resources of the file are damaged.";
    }
    if (!found.problem.empty() && HasConvertedLineEnds(file))
        found.problem += " Every LF in it follows a CR, as after a conversion of line ends.";
    return found;
}
