// An enumeration with its members.
#pragma once

#include <memory>
#include <vector>

#include "model/clsCollection.h"
#include "model/code_object.h"

class clsEnum final : public CodeObject {
public:
    clsEnum() : CodeObject(ObjectClass::Enum) {}
    ~clsEnum() override;

    [[nodiscard]] std::string CodePathOrg() const override;
    [[nodiscard]] std::string_view GetImageKey() const override;

    Pos NamePos = 0;
    clsCollection<clsVariable> MyVars;  // members by name

    clsVariable& Own(std::unique_ptr<clsVariable> member);
    /// Every member read, those dropped from MyVars included.
    [[nodiscard]] const std::vector<std::unique_ptr<clsVariable>>& Members() const { return owned_; }

private:
    std::vector<std::unique_ptr<clsVariable>> owned_;
    [[no_unique_address]] Counted<&ObjectCounts::einEnum> counted_;
};
