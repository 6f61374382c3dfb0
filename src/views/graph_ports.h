// What the window does for the parts of the diagram.
#pragma once

#include <QString>
#include <functional>
#include <string>

struct GraphPorts {
    /// Runs a long operation that can be cancelled; false if it was.
    std::function<bool(const std::string& name, const std::function<void()>& operation)> run;
    std::function<void()> showContent;
    std::function<void()> showNow;  // enables commands
    std::function<void(const QString& text)> message;
};
