#include "model/clsControl.h"

#include "model/clsModul.h"

std::string clsControl::CodePathOrg() const {
    return JoinPath(Modul->CodePathOrg(), myNameOrg());
}
