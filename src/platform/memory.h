// Memory of the process as a whole.
#pragma once

/// Asks the system to back the heap with large pages: a project's texts and objects are tens of megabytes that are
/// all touched once, and making them page by page would cost as much as reading them. Cheap to call again as the heap
/// grows, on any thread; without effect where the system has no such thing.
void UseLargePages();
