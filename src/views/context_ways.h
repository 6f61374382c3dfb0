// The first items of every context menu of objects: "Go to", "Find callers" and "Show in X-Graph".
#pragma once

#include <functional>

class QMenu;

/// Adds them with their keys, and a separator. An empty function greys its item.
/// @param goTo, findCallers, showInGraph  called when an item is chosen
void AddWays(QMenu& menu, std::function<void()> goTo, std::function<void()> findCallers,
             std::function<void()> showInGraph);
