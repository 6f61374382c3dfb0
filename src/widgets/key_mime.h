// What the trees put into a drag or onto the clipboard.
#pragma once

/// Drag and drop between the trees and onto the diagram: the key of the node, UTF-8.
inline constexpr char kKeyMimeType[] = "application/x-ostrivane-key";
