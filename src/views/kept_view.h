// What the user sees of a window, kept while its content is made again: how far each pane is scrolled, and the place in
// the code.
#pragma once

#include <QPointer>
#include <string>
#include <vector>

#include "display/baum.h"

class BaumView;
class CodeView;
class QAbstractScrollArea;
class QWidget;
struct CodeText;

class KeptView {
public:
    /// @param path  of the object whose code is shown
    KeptView(const QWidget& window, const CodeView& code, const CodeText& text, std::string path);
    /// The code comes back to its place only if it is still that of the same object.
    void ComeBack(CodeView& code, const CodeText& text, const std::string& path) const;

private:
    struct Scrolled {
        QPointer<QAbstractScrollArea> area;
        int across;
        int down;
        NodeId top = {};  // of a tree: the node in its first line
    };
    static void ScrollTree(BaumView& tree, const Scrolled& place);

    std::vector<Scrolled> scrolled_;
    std::string path_;
    std::string text_;
    int selStart_, selLength_, topLine_;
};
