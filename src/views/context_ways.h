// The first items of every context menu of objects: "Go to", "Find callers" and "Show in X-Graph".
#pragma once

#include <functional>

#include "display/command_table.h"

class QMenu;

/// Adds them with their keys, and a separator. An empty function greys its item.
/// @param goTo, findCallers, showInGraph  called when an item is chosen
void AddWays(QMenu& menu, std::function<void()> goTo, std::function<void()> findCallers,
             std::function<void()> showInGraph);
/// Adds the commands about why an object is alive or dead, with their keys, and a separator.
/// @param run  empty to grey them
void AddReasons(QMenu& menu, const std::function<void(Command)>& run);
