// The program-wide state in one place: created at the start, reset by tests.
#pragma once

#include <memory>
#include <string>

class Files;
class Registry;
class SettingsFile;
class clsProjekt;
struct Settings;

/// The project that is open in the window or the console, or null. Only these two read it; all other code takes its
/// project as a parameter.
extern std::unique_ptr<clsProjekt> gProjekt;

/// Resets everything to the state before the first project is opened. Closes an open project without a question.
void InitGlobals();

/// Makes an empty project the open one; the one before is closed. What is noted from now on joins its problems.
clsProjekt& NewProject(Files& files, const std::string& path);
/// Closes the open project, if any.
void CloseProject();

/// The start of the program up to its window, in this order: globals, settings, language,
/// version record.
/// @param programDirectory  ends with its separator
/// @param registry          null skips the last step
/// @return the settings that were read
Settings StartProgram(const Files& files, SettingsFile& settings, Registry* registry,
                      const std::string& programDirectory);
