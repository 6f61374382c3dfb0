// The diagram on paper: the preview, and which part of the diagram goes onto which page.
#pragma once

#include <QRectF>
#include <vector>

class GraphPicture;
class QPrinter;
class QWidget;

enum class PrintMode : std::uint8_t { FullSize, OnePage };

/// A page of a diagram that is printed at full size.
struct PrintPage {
    QRectF part;  // of the picture, in its pixels; it may reach beyond the picture
    int row = 1;  // of pages
    int column = 1;
    bool operator==(const PrintPage&) const = default;
};
/// Neighbours overlap. The picture is in the middle of all pages; those with nothing on them are left out.
/// @param paper  what fits onto a page at full size, in pixels of the picture
[[nodiscard]] std::vector<PrintPage> PagesOf(const GraphPicture& picture, QSizeF paper);

/// Returns false if the printer cannot begin.
bool PrintPicture(QPrinter& printer, const GraphPicture& picture, PrintMode mode);

/// Shows the preview, from which the user prints or not. Returns false if printing failed.
bool PreviewPicture(const GraphPicture& picture, QWidget* parent);
