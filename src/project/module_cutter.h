// Cuts objects out of one module, and makes sure that nothing else has changed: after each cut the shorter text is
// read, and all other objects must be there as they were.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "project/module_file.h"
#include "project/object_cut.h"

class ModuleCutter {
public:
    /// @param bytes  of the file; they outlive the cutter
    /// @param gone   what was deleted from them before; the module was read from the rest
    ModuleCutter(const ReadingContext& context, const clsModul& modul, std::string_view bytes,
                 std::vector<Stretch> gone);

    struct Result {
        std::vector<Stretch> cut;  // of the file's bytes, with what is gone inside; none if it went with another object
        Text whyNot = Text::None;
        int round = 0;  // cuts of a later round may enclose those of an earlier one
    };
    /// One result for each object of the module, in their order.
    [[nodiscard]] std::vector<Result> Cut(const std::vector<const CodeObject*>& objects);

    /// All that is gone now.
    [[nodiscard]] const std::vector<Stretch>& Gone() const { return gone_; }

private:
    struct Target {
        const CodeObject* object;  // null once it is settled
        ObjectCut cut;
    };
    [[nodiscard]] std::vector<std::size_t> FitTogether(std::vector<Target>& targets, bool oneByOne,
                                                       std::vector<Result>& results) const;
    [[nodiscard]] bool Take(std::vector<Target>& targets, const std::vector<std::size_t>& taken,
                            std::vector<Result>& results);

    const ReadingContext& context_;
    const clsModul* modul_;
    std::unique_ptr<clsModul> read_;  // from the shorter text; null before the first cut
    std::string_view bytes_;
    std::vector<Stretch> gone_;
    int round_ = 0;
};
