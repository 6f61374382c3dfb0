// What the window says about files that have changed, and about what a refresh has changed.
#pragma once

#include <QString>

struct ChangedFiles;
struct RefreshChanges;
class clsProjekt;

/// "3 files changed: App.vbp (modSlip.bas removed from the project), modStore.bas, modMain.bas (missing)"; empty while
/// all that has changed is being written.
[[nodiscard]] QString NoticeOf(const clsProjekt& projekt, const ChangedFiles& changed);
/// "12 procedures changed, 2 new, 1 gone; 3 newly dead"; empty if nothing did.
[[nodiscard]] QString SummaryOf(const RefreshChanges& changes);
/// The names of the files that are being written.
[[nodiscard]] QString StillWritten(const ChangedFiles& changed);
