// Code paths for the trees, which need one for each node: built in lower case at once, from names that are kept in
// lower case, where CodePath joins the spellings first.
#pragma once

#include <string>
#include <string_view>

class CodeObject;

/// The CodePath of `object`, into a buffer that is used again for the next one.
class PathBuffer {
public:
    /// Valid until the next call.
    [[nodiscard]] std::string_view Of(const CodeObject& object);

private:
    std::string path_;
};
