#include "platform/code_page.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

#include <iconv.h>

#include "platform/ascii.h"
#include "platform/unicode.h"
#include "platform/vector_code.h"

namespace {

constexpr std::string_view kAuto = "auto";
constexpr std::string_view kAutoPage = "1252";

/// One direction of iconv; the destructor closes it.
class Converter {
public:
    Converter() = default;
    Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
    Converter(Converter&& other) noexcept : handle_(std::exchange(other.handle_, kNone())) {}
    Converter& operator=(Converter&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() {
        if (*this)
            iconv_close(handle_);
    }
    explicit operator bool() const { return handle_ != kNone(); }

    void Restart() const { iconv(handle_, nullptr, nullptr, nullptr, nullptr); }

    /// Converts as much of `text` as possible, removes that part and appends the result to `into`.
    /// Returns 0 at the end of the text, EILSEQ or EINVAL before a sequence that cannot be converted.
    int Convert(std::string_view& text, std::string& into) const {
        char* in = const_cast<char*>(text.data());  // iconv's parameter is not const, but iconv does not write to it
        std::size_t inLeft = text.size();
        int error = E2BIG;
        while (error == E2BIG) {
            char buffer[4096];
            char* out = buffer;
            std::size_t outLeft = sizeof buffer;
            error = iconv(handle_, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1) ? errno : 0;
            into.append(buffer, sizeof buffer - outLeft);
            if (error == 0) {  // some pages hold a letter back to combine it with an accent that may follow
                out = buffer;
                outLeft = sizeof buffer;
                iconv(handle_, nullptr, nullptr, &out, &outLeft);
                into.append(buffer, sizeof buffer - outLeft);
            }
        }
        text.remove_prefix(text.size() - inLeft);
        return error;
    }

private:
    static iconv_t kNone() { return reinterpret_cast<iconv_t>(-1); }
    iconv_t handle_ = kNone();
};

/// The name of a page for iconv; empty if the setting is not a page number.
std::string IconvName(std::string_view page) {
    int number = 0;
    const auto [end, error] = std::from_chars(page.data(), page.data() + page.size(), number);
    if (error != std::errc() || end != page.data() + page.size() || page.size() > 5 || number <= 0 || page[0] == '0')
        return {};
    switch (number) {
        case 65001:
            return "UTF-8";
        case 20866:
            return "KOI8-R";
        case 21866:
            return "KOI8-U";
        case 10000:
            return "MACINTOSH";
        default:
            break;
    }
    if (number > 28590 && number < 28607)
        return "ISO-8859-" + std::to_string(number - 28590);
    return "CP" + std::string(page);
}

bool IsAscii(std::string_view text) {
    unsigned char all = 0;
    for (const char c : text)
        all |= static_cast<unsigned char>(c);
    return all < 0x80;
}

}  // namespace

struct CodePage::Tables {
    Kind kind = Kind::SingleByte;
    std::array<unsigned char, 256> lower{};
    std::array<bool, 256> isLead{};
    std::array<char32_t, 256> unicode{};  // of single-byte pages; U+FFFD for bytes that map to no character
    std::unordered_map<char32_t, char> bytes;
    Converter toUtf8;  // of double-byte pages; kept open because names are converted one at a time
    Converter fromUtf8;
    mutable std::mutex converting;  // guards both

    /// The tables of a page, or null if the system does not know the page.
    static const Tables* Of(std::string_view page);

    [[nodiscard]] bool Read(const std::string& iconvName);
    [[nodiscard]] std::string ToUtf8(std::string_view text) const;
    /// Returns false if a character was replaced by "?".
    bool FromUtf8(std::string_view utf8, std::string& into) const;
};

const CodePage::Tables* CodePage::Tables::Of(std::string_view page) {
    static std::mutex making;
    static std::map<std::string, std::unique_ptr<const Tables>, std::less<>> known;
    const std::lock_guard lock(making);  // files are read side by side, and their names can need any page
    if (const auto found = known.find(page); found != known.end())
        return found->second.get();
    auto tables = std::make_unique<Tables>();
    const std::string name = IconvName(page);
    // The page of "auto" must exist even if iconv has no tables on this system: it is Latin-1 then.
    if ((name.empty() || !tables->Read(name)) && page != kAutoPage)
        return nullptr;
    return known.emplace(page, std::move(tables)).first->second.get();
}

bool CodePage::Tables::Read(const std::string& iconvName) {
    for (unsigned i = 0; i < 256; ++i) {
        lower[i] = static_cast<unsigned char>(ascii::Lower(static_cast<char>(i)));
        unicode[i] = i;
    }
    if (iconvName == "UTF-8") {
        kind = Kind::Utf8;
        return true;
    }
    toUtf8 = Converter("UTF-8", iconvName.c_str());
    fromUtf8 = Converter(iconvName.c_str(), "UTF-8");
    if (!toUtf8 || !fromUtf8)
        return false;

    for (unsigned i = 0; i < 256; ++i) {
        const char byte = static_cast<char>(i);
        std::string_view text(&byte, 1);
        std::string utf8;
        toUtf8.Restart();
        const int error = toUtf8.Convert(text, utf8);
        isLead[i] = error == EINVAL;
        std::size_t pos = 0;
        const bool isKnown = error == 0 && !utf8.empty();
        unicode[i] = isKnown ? TakeUtf8(utf8, pos).value_or(kReplacementCharacter) : kReplacementCharacter;
        // Keywords are ASCII: rejects pages that map letters, digits or the blank to other characters.
        if (i < 128 && (ascii::Lower(byte) != byte || ascii::IsDigit(byte) || byte == ' ') && unicode[i] != i)
            return false;
        if (isLead[i])
            kind = Kind::DoubleByte;
    }
    if (kind == Kind::DoubleByte)
        return true;
    for (unsigned i = 0; i < 256; ++i)
        if (unicode[i] != kReplacementCharacter)
            bytes.emplace(unicode[i], static_cast<char>(i));
    for (unsigned i = 128; i < 256; ++i)
        if (const auto small = bytes.find(LowerCodePoint(unicode[i])); small != bytes.end())
            lower[i] = static_cast<unsigned char>(small->second);
        else
            lower[i] = static_cast<unsigned char>(i);
    return true;
}

std::string CodePage::Tables::ToUtf8(std::string_view text) const {
    std::string utf8;
    utf8.reserve(text.size() + text.size() / 8);
    switch (kind) {
        case Kind::Auto:
        case Kind::SingleByte:
            for (const char c : text)
                AppendUtf8(utf8, unicode[static_cast<unsigned char>(c)]);
            break;
        case Kind::Utf8:
            for (std::size_t pos = 0; pos < text.size();)
                AppendUtf8(utf8, TakeUtf8(text, pos).value_or(kReplacementCharacter));
            break;
        case Kind::DoubleByte: {
            const std::lock_guard lock(converting);
            toUtf8.Restart();
            while (toUtf8.Convert(text, utf8) != 0 && !text.empty()) {
                AppendUtf8(utf8, kReplacementCharacter);
                text.remove_prefix(1);
                toUtf8.Restart();
            }
            break;
        }
    }
    return utf8;
}

bool CodePage::Tables::FromUtf8(std::string_view utf8, std::string& into) const {
    into.reserve(utf8.size());
    bool isWhole = true;
    if (kind == Kind::DoubleByte) {
        const std::lock_guard lock(converting);
        fromUtf8.Restart();
        while (fromUtf8.Convert(utf8, into) != 0 && !utf8.empty()) {
            isWhole = false;
            into += '?';
            std::size_t pos = 0;
            (void)TakeUtf8(utf8, pos);
            utf8.remove_prefix(pos);
        }
        return isWhole;
    }
    for (std::size_t pos = 0; pos < utf8.size();) {
        const std::size_t begin = pos;
        const std::optional<char32_t> codePoint = TakeUtf8(utf8, pos);
        const auto byte = codePoint && kind == Kind::SingleByte ? bytes.find(*codePoint) : bytes.end();
        if (byte != bytes.end()) {
            into += byte->second;
        } else if (codePoint && kind == Kind::Utf8) {
            into += utf8.substr(begin, pos - begin);
        } else {
            isWhole = false;
            into += '?';
        }
    }
    return isWhole;
}

CodePage::CodePage() : CodePage(kAuto) {}

CodePage::CodePage(std::string_view setting) : tables_(Tables::Of(setting)) {
    if (tables_) {
        setting_ = setting;
        kind_ = tables_->kind;
    } else {
        tables_ = Tables::Of(kAutoPage);
    }
    lower_ = tables_->lower;
    isLead_ = tables_->isLead;
}

namespace {

WIDE_VECTORS void LowerByTable(std::string_view text, const std::array<unsigned char, 256>& table, char* into) {
    // Sources are nearly all ASCII, so bytes without the high bit are converted 32 at a time.
    using Many [[gnu::vector_size(32)]] = signed char;
    const char* at = text.data();
    const char* const end = at + text.size();
    const auto byTable = [&](const char* upTo) {
        for (; at != upTo; ++at)
            *into++ = static_cast<char>(table[static_cast<unsigned char>(*at)]);
    };
    while (static_cast<std::size_t>(end - at) >= sizeof(Many)) {
        Many characters;
        std::memcpy(&characters, at, sizeof characters);
        const Many negative = characters < 0;
        std::uint64_t parts[4];
        std::memcpy(parts, &negative, sizeof parts);
        if ((parts[0] | parts[1] | parts[2] | parts[3]) != 0) {
            byTable(at + sizeof(Many));
            continue;
        }
        characters += (characters >= 'A') & (characters <= 'Z') & ('a' - 'A');
        std::memcpy(into, &characters, sizeof characters);
        at += sizeof(Many);
        into += sizeof(Many);
    }
    byTable(end);
}

}  // namespace

std::string CodePage::LowerCase(std::string_view text) const {
    std::string lower(text);
    LowerCase(lower, lower.data());
    return lower;
}

void CodePage::LowerCase(std::string_view text, char* into) const {
    LowerByTable(text, lower_, into);
}

std::string CodePage::ToUtf8(std::string_view bytes) const {
    if (IsAscii(bytes) || (kind_ == Kind::Auto && IsValidUtf8(bytes)))
        return std::string(bytes);
    return tables_->ToUtf8(bytes);
}

std::string CodePage::FromUtf8(std::string_view utf8) const {
    if (kind_ == Kind::Auto)
        return FromUtf8Whole(utf8).value_or(std::string(utf8));
    std::string text;
    tables_->FromUtf8(utf8, text);
    return text;
}

std::optional<std::string> CodePage::FromUtf8Whole(std::string_view utf8) const {
    if (IsAscii(utf8))
        return std::string(utf8);
    std::string text;
    if (!tables_->FromUtf8(utf8, text) || (kind_ == Kind::Auto && IsValidUtf8(text)))
        return {};
    return text;
}

namespace {

constexpr CodePageName kSupported[] = {
    {"1252", "Windows-1252"}, {"1250", "Windows-1250"}, {"1251", "Windows-1251"}, {"1253", "Windows-1253"},
    {"1254", "Windows-1254"}, {"1255", "Windows-1255"}, {"1256", "Windows-1256"}, {"1257", "Windows-1257"},
    {"1258", "Windows-1258"}, {"874", "Windows-874"},   {"932", "Shift-JIS 932"}, {"936", "GBK 936"},
    {"949", "UHC 949"},       {"950", "Big5 950"},
};

// Other names than those made of a number.
constexpr CodePageName kAliases[] = {
    {"65001", "utf-8"}, {"65001", "utf8"}, {"932", "shift-jis"}, {"932", "shift_jis"}, {"932", "sjis"},
    {"936", "gbk"},     {"949", "uhc"},    {"950", "big5"},      {"20866", "koi8-r"},  {"21866", "koi8-u"},
};

}  // namespace

std::span<const CodePageName> SupportedCodePages() {
    return kSupported;
}

std::string_view NameOfCodePage(std::string_view number) {
    for (const CodePageName& page : kSupported)
        if (page.number == number)
            return page.name;
    return number == "65001" ? "UTF-8" : number;
}

std::optional<std::string> CodePageNamed(std::string_view name) {
    std::string number = ascii::LowerCase(name);
    if (number == kAuto)
        return number;
    for (const CodePageName& alias : kAliases)
        if (number == alias.name)
            number = alias.number;
    for (const std::string_view prefix : {"windows-", "cp"})
        if (number.starts_with(prefix))
            number.erase(0, prefix.size());
    if (CodePage(number).Setting() != number)
        return {};
    return number;
}

bool IsValidUtf8(std::string_view text) {
    for (std::size_t pos = 0; pos < text.size();) {
        const std::string_view block = text.substr(pos, 64);
        if (IsAscii(block))
            pos += block.size();
        else if (!TakeUtf8(text, pos))
            return false;
    }
    return true;
}

namespace {
CodePage& Active() {
    static CodePage page;
    return page;
}
}  // namespace

const CodePage& CodePage::Auto() {
    static const CodePage page;
    return page;
}

const CodePage& ActiveCodePage() {
    return Active();
}

void SetActiveCodePage(CodePage page) {
    Active() = std::move(page);
}

std::string LowerCase(std::string_view text) {
    return ActiveCodePage().LowerCase(text);
}
