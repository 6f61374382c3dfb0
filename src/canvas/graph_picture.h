// The diagram as a picture on white paper, whatever the colours of the window are: its symbols with a narrow margin,
// and below them a legend and a caption. It is made of the diagram as it is when it is made.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QRectF>
#include <QString>
#include <memory>
#include <optional>
#include <vector>

class ConnectorLayer;
class QPainter;
class XGraph;
struct GraphColours;
struct Settings;
struct ctlGraphObj;

enum class PictureFormat : std::uint8_t { Bmp, Png, Svg, Pdf };
/// By the suffix of a file's name; nothing for any other suffix.
[[nodiscard]] std::optional<PictureFormat> PictureFormatOf(const QString& path);

/// What a picture has besides the diagram.
struct PictureOptions {
    bool hasLegend = false;
    QString caption = {};         // empty for none
    bool hasClearGround = false;  // of pixels
    bool hasPaleModules = false;  // first captions in a lighter grey
};

class GraphPicture {
public:
    /// @param graph  must not change as long as the picture is painted
    GraphPicture(const XGraph& graph, const Settings& settings, PictureOptions options = {});
    ~GraphPicture();
    GraphPicture(const GraphPicture&) = delete;
    GraphPicture& operator=(const GraphPicture&) = delete;

    /// In pixels at 96 dots per inch.
    [[nodiscard]] QSizeF Size() const { return size_; }
    [[nodiscard]] bool HasClearGround() const { return options_.hasClearGround; }
    /// @param exposed  in these pixels, as the coordinates of the painter; what lies outside is left out
    void Paint(QPainter& painter, const QRectF& exposed) const;
    /// Whether there is anything to see.
    [[nodiscard]] bool HasAnyAt(const QRectF& part) const;

private:
    [[nodiscard]] QRectF InTwips(const QRectF& pixels) const;
    void PaintSymbol(QPainter& painter, const ctlGraphObj& symbol) const;
    void PaintFoot(QPainter& painter) const;

    PictureOptions options_;
    std::unique_ptr<GraphColours> colours_;
    std::unique_ptr<ConnectorLayer> connectors_;
    std::vector<const ctlGraphObj*> symbols_;  // the lowest first
    QRectF diagram_;                           // twips
    QSizeF size_;
};

/// @param scale  pixels for each of the picture's
/// Returns no image if it would be too large, or if the operation that it belongs to is cancelled.
[[nodiscard]] QImage ImageOf(const GraphPicture& picture, double scale);
/// The bytes of a file; none if the picture is too large for pixels, or after a cancel.
/// @param scale  of PNG
[[nodiscard]] QByteArray PictureBytes(const GraphPicture& picture, PictureFormat format, double scale);
