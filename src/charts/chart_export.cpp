#include "charts/chart_export.h"

#include <QBuffer>
#include <QChart>
#include <QCoreApplication>
#include <QGraphicsLayout>
#include <QGraphicsScene>
#include <QPainter>
#include <QSaveFile>
#include <QSvgGenerator>

namespace {

constexpr double kFileRatio = 2;

void Paint(QPainter& painter, const ChartTable& table, int marked, QSize size, const QFont& font) {
    QPalette paper;
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, Qt::black);
    QGraphicsScene scene;
    auto* chart = new QChart;
    scene.addItem(chart);
    chart->setAnimationOptions(QChart::NoAnimation);
    chart->resize(size);
    const int rows = static_cast<int>(table.rows.size());
    DrawChart(*chart, table, {0, rows, rows > 0 ? static_cast<double>(size.width()) / rows : 0, marked}, paper, font);
    // Axes and legend find their places when their layouts are asked to, which a shown view does in its event loop.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    chart->layout()->activate();
    const QRectF all(0, 0, size.width(), size.height());
    painter.fillRect(all, Qt::white);
    scene.render(&painter, all, all);
}

bool WriteFile(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

QByteArray SvgOf(const ChartTable& table, int marked, QSize size, const QFont& font) {
    QBuffer buffer;
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setSize(size);
    svg.setViewBox(QRect(QPoint(), size));
    QPainter painter(&svg);
    Paint(painter, table, marked, size, font);
    painter.end();
    return buffer.data();
}

}  // namespace

QImage ChartPicture(const ChartTable& table, int marked, QSize size, const QFont& font, double ratio) {
    QImage picture(size * ratio, QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::TextAntialiasing);
    Paint(painter, table, marked, size, font);
    return picture;
}

bool SaveChartPicture(const ChartTable& table, int marked, QSize size, const QFont& font, const QString& path) {
    if (path.endsWith(QStringLiteral(".svg"), Qt::CaseInsensitive))
        return WriteFile(path, SvgOf(table, marked, size, font));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return ChartPicture(table, marked, size, font, kFileRatio).save(&buffer, "PNG") && WriteFile(path, bytes);
}
