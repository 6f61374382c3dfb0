#include "generate_project_names.h"

#include <string>

namespace generate {

namespace {

constexpr std::array<std::string_view, 148> Nouns = {
    "Customer",   "Invoice",  "Order",    "Article",    "Price",     "Discount", "Delivery", "Stock",       "Warehouse",
    "Supplier",   "Payment",  "Account",  "Bank",       "Tax",       "Rate",     "Address",  "Contact",     "Employee",
    "Dept",       "Project",  "Task",     "Report",     "Template",  "Printer",  "Document", "Archive",     "Folder",
    "File",       "Path",     "Column",   "Row",        "Cell",      "Grid",     "Tree",     "Node",        "List",
    "Item",       "Key",      "Entry",    "Number",     "Code",      "Group",    "User",     "Role",        "Right",
    "Password",   "Session",  "Log",      "Message",    "Status",    "State",    "Period",   "Month",       "Year",
    "Week",       "Calendar", "Shift",    "Machine",    "Tool",      "Part",     "Assembly", "Drawing",     "Batch",
    "Lot",        "Shipment", "Package",  "Carrier",    "Route",     "Zone",     "Country",  "Region",      "City",
    "Street",     "Language", "Caption",  "Font",       "Color",     "Picture",  "Window",   "Panel",       "Tab",
    "Button",     "Menu",     "Choice",   "Setting",    "Profile",   "Database", "Table",    "Record",      "Field",
    "Query",      "Filter",   "Range",    "Import",     "Export",    "Buffer",   "Stream",   "Port",        "Packet",
    "Header",     "Footer",   "Page",     "Margin",     "Total",     "Balance",  "Budget",   "Cost",        "Amount",
    "Quantity",   "Unit",     "Weight",   "Volume",     "Label",     "Barcode",  "Serial",   "Version",     "Licence",
    "Backup",     "Offer",    "Contract", "Reminder",   "Dunning",   "Booking",  "Journal",  "Ledger",      "Voucher",
    "Exchange",   "Bonus",    "Rebate",   "Position",   "Reference", "History",  "Comment",  "Remark",      "Title",
    "Salutation", "Branch",   "Plant",    "Operation",  "Resource",  "Capacity", "Deadline", "Calculation", "Grade",
    "Material",   "Recipe",   "Sample",   "Measurement"};

constexpr std::array<std::string_view, 32> Qualities = {
    "New",     "Old",     "Current", "Last",    "First",   "Next",     "Previous", "Open",
    "Closed",  "Max",     "Min",     "Default", "Active",  "Main",     "Temp",     "Sub",
    "Base",    "Local",   "Remote",  "Net",     "Gross",   "Daily",    "Monthly",  "Selected",
    "Pending", "Deleted", "Changed", "Valid",   "Printed", "Archived", "Internal", "External"};

constexpr std::array<std::string_view, 50> DoingVerbs = {
    "Load",   "Save",    "Read",   "Write",  "Update",  "Refresh", "Show",    "Hide",    "Fill",     "Clear",
    "Init",   "Reset",   "Add",    "Remove", "Delete",  "Insert",  "Create",  "Build",   "Print",    "Export",
    "Import", "Convert", "Copy",   "Move",   "Sort",    "Start",   "Stop",    "Send",    "Receive",  "Connect",
    "Lock",   "Unlock",  "Select", "Apply",  "Undo",    "Merge",   "Notify",  "Handle",  "Process",  "Set",
    "Store",  "Draw",    "Resize", "Enable", "Disable", "Prepare", "Release", "Replace", "Register", "Assign"};

constexpr std::array<std::string_view, 20> AskingVerbs = {
    "Get",   "Find",    "Calc",  "Count", "Search", "Make",   "Format", "Parse", "Convert", "Read",
    "Fetch", "Compute", "Build", "Next",  "Query",  "Lookup", "Sum",    "Ask",   "Choose",  "Extract"};

constexpr std::array<std::string_view, 24> CommonMethods = {
    "Load",     "Save",     "Refresh", "Clear", "Init",  "Validate", "Add",        "Remove",
    "Execute",  "ResetAll", "Exists",  "Find",  "Sort",  "Delete",   "Update",     "Fill",
    "CopyFrom", "Cancel",   "Apply",   "Setup", "Start", "Finish",   "LoadFromDB", "SaveToDB"};

constexpr std::array<std::string_view, 24> CommonProperties = {
    "Count",    "Item",   "ID",      "Description", "Caption",  "Value",  "IsDirty", "Parent",
    "Key",      "Index",  "Text",    "Status",      "Tag",      "State",  "Amount",  "Number",
    "FileName", "UserID", "Changed", "Loaded",      "ReadOnly", "Active", "Title",   "SortOrder"};

}  // namespace

std::uint64_t Random::Next() {
    state_ += 0x9E3779B97F4A7C15u;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    return mixed ^ (mixed >> 31);
}

int Random::Weighted(std::initializer_list<int> weights) {
    int sum = 0;
    for (const int weight : weights)
        sum += weight;
    int drawn = Below(sum);
    int position = 0;
    for (const int weight : weights) {
        if (drawn < weight)
            return position;
        drawn -= weight;
        ++position;
    }
    return 0;
}

std::string Cat(std::initializer_list<std::string_view> parts) {
    std::size_t length = 0;
    for (const std::string_view part : parts)
        length += part.size();
    std::string text;
    text.reserve(length);
    for (const std::string_view part : parts)
        text += part;
    return text;
}

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

std::string Upper(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) {
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    }
    return upper;
}

std::string Spoken(std::string_view camelCase) {
    std::string words;
    for (std::size_t i = 0; i < camelCase.size(); ++i) {
        const bool isUpper = camelCase[i] >= 'A' && camelCase[i] <= 'Z';
        const bool afterLower = i > 0 && camelCase[i - 1] >= 'a' && camelCase[i - 1] <= 'z';
        if (isUpper && afterLower)
            words += ' ';
        words += camelCase[i];
    }
    return Lower(words);
}

std::string_view Noun(Random& random) {
    return random.Of(Nouns);
}
std::string NounPair(Random& random) {
    const std::string_view first = Noun(random);
    std::string_view second = Noun(random);
    while (second == first)
        second = Noun(random);
    return Cat({first, second});
}

std::string_view Quality(Random& random) {
    return random.Of(Qualities);
}
std::string_view DoingVerb(Random& random) {
    return random.Of(DoingVerbs);
}
std::string_view AskingVerb(Random& random) {
    return random.Of(AskingVerbs);
}
std::string_view CommonMethod(Random& random) {
    return random.Of(CommonMethods);
}
std::string_view CommonProperty(Random& random) {
    return random.Of(CommonProperties);
}

int NamePool::Holders(const std::string& lowerName) const {
    const auto found = holders_.find(lowerName);
    return found == holders_.end() ? 0 : found->second;
}

bool NamePool::IsFree(const NameSet& scope, const std::string& wanted) const {
    const std::string lower = Lower(wanted);
    return !scope.contains(lower) && Holders(lower) < mostHolders_;
}

std::string NamePool::Take(NameSet& scope, const std::string& wanted, int mostHolders) {
    const bool isUpperCase = wanted == Upper(wanted) && wanted.size() > 2;
    std::string candidate = wanted;
    for (int attempt = 1;; ++attempt) {
        const std::string lower = Lower(candidate);
        if (Holders(lower) < mostHolders && scope.insert(lower).second) {
            ++holders_[lower];
            return candidate;
        }
        if (attempt <= 4)
            candidate = isUpperCase ? Cat({wanted, "_", Upper(Noun(random_))}) : Cat({wanted, Noun(random_)});
        else
            candidate = Cat({wanted, isUpperCase ? "_" : "", std::to_string(random_.Between(2, 4 * attempt))});
    }
}

}  // namespace generate
