// The items that the context menus of all views share which show objects.
#pragma once

#include <functional>
#include <string>

#include "display/command_table.h"

class QMenu;

struct ObjectItems {
    /// Of the object's node in the project; greys what cannot be done with that object. Empty if it is not known yet.
    std::string key;
    /// Carries out the chosen command for the object; empty greys all items.
    std::function<void(Command)> run;
    /// False greys "Go to".
    bool leadsOn = true;
    /// Leaves out what a symbol of the diagram has in its own way.
    bool isSymbol = false;
};

/// Whether the object of the node can be deleted from the text.
[[nodiscard]] bool CanDelete(const std::string& key);
/// Adds the items with their keys, and a separator.
void AddObjectItems(QMenu& menu, const ObjectItems& items);
