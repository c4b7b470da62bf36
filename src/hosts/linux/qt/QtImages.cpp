#include "hosts/linux/qt/QtImages.h"

#include "drawing/raster/ImageRaster.h"
#include "hosts/linux/files/ApplicationFiles.h"
#include "hosts/linux/qt/QtSymbols.h"
#include "hosts/linux/qt/QtText.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QFileInfo>
#include <QImage>
#include <QPainter>

namespace haloric {

namespace {

constexpr double kSeparatorOpacity = 0.2; // of the text's colour
constexpr double kDefaultSize = 16;       // points, of pictures that have no size of their own
constexpr int kMiddle = 128;              // of lightness
constexpr double kRimOpacity = 0.3;
constexpr int kSizes[] = {16, 18, 20, 22, 24, 28, 32, 36, 40, 44, 48, 64};

Color colorOf(const QColor& color) { return {color.redF(), color.greenF(), color.blueF(), color.alphaF()}; }

SystemColors systemColors(const QPalette& palette)
{
    return {.separator = colorOf(palette.color(QPalette::WindowText)).withAlpha(kSeparatorOpacity)};
}

// In the colour of the palette's text, as opaque as it was.
void colorAll(QImage& image, const QColor& color)
{
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
}

QPixmap draw(const DrawnImage& drawn, const Size& points, double pixelsPerPoint, const QPalette& palette)
{
    const QSize pixels(static_cast<int>(std::lround(points.width * pixelsPerPoint)),
                       static_cast<int>(std::lround(points.height * pixelsPerPoint)));
    if (pixels.isEmpty() || !drawn.draw)
        return {};
    const double scale = std::min(pixels.width() / drawn.size.width, pixels.height() / drawn.size.height);
    const Picture picture = ImageRaster::render(drawn, scale, systemColors(palette));
    const QImage rendered(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
                          QImage::Format_ARGB32_Premultiplied);
    QImage image = rendered.copy(QRect(QPoint(0, 0), pixels)); // its own pixels, as large as was asked for
    if (drawn.isTemplate)
        colorAll(image, palette.color(QPalette::WindowText));
    image.setDevicePixelRatio(pixelsPerPoint);
    return QPixmap::fromImage(std::move(image));
}

QIcon iconOf(const FileIcon& file, const QPalette& palette)
{
    const auto application = ApplicationFiles::at(file.path);
    if (!application || application->icon.empty())
        return QtSymbols::icon("app", palette);
    const QString name = qtText(application->icon);
    if (QFileInfo(name).isAbsolute())
        return QIcon(name);
    return QIcon::fromTheme(name, QtSymbols::icon("app", palette));
}

// A rim of the opposite lightness: panels may be dark where windows are light, and nothing tells.
QPixmap rimmed(const QPixmap& picture, const QColor& color)
{
    QImage rim = picture.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    colorAll(rim, color.lightness() < kMiddle ? Qt::white : Qt::black);
    QPixmap both(picture.size());
    both.fill(Qt::transparent);
    QPainter painter(&both);
    painter.setOpacity(kRimOpacity);
    for (const auto& [x, y] : {std::pair(-1, 0), std::pair(1, 0), std::pair(0, -1), std::pair(0, 1)})
        painter.drawImage(x, y, rim);
    painter.setOpacity(1);
    painter.drawPixmap(0, 0, picture);
    return both;
}

QIcon sized(const DrawnImage& drawn, const QPalette& palette)
{
    QIcon icon;
    for (const int size : kSizes) {
        const double larger = std::max(drawn.size.width, drawn.size.height);
        QPixmap pixmap = draw(drawn, drawn.size, size / larger, palette);
        pixmap.setDevicePixelRatio(1);
        icon.addPixmap(drawn.isTemplate ? rimmed(pixmap, palette.color(QPalette::WindowText)) : pixmap);
    }
    return icon;
}

} // namespace

QIcon QtImages::icon(const Image& image, const QPalette& palette)
{
    if (const auto* drawn = std::get_if<DrawnImage>(&image))
        return sized(*drawn, palette);
    if (const auto* file = std::get_if<FileIcon>(&image))
        return iconOf(*file, palette);
    if (const auto* symbol = std::get_if<SymbolImage>(&image))
        return QtSymbols::icon(symbol->name, palette);
    return {};
}

QPixmap QtImages::pixmap(const Image& image, const Size& points, double pixelsPerPoint, const QPalette& palette)
{
    if (const auto* drawn = std::get_if<DrawnImage>(&image))
        return draw(*drawn, points, pixelsPerPoint, palette);
    const double width = points.width > 0 ? points.width : kDefaultSize;
    const double height = points.height > 0 ? points.height : kDefaultSize;
    const QIcon found = icon(image, palette);
    if (found.isNull())
        return {};
    QPixmap exact((QSizeF(width, height) * pixelsPerPoint).toSize());
    exact.setDevicePixelRatio(pixelsPerPoint);
    exact.fill(Qt::transparent);
    QPainter painter(&exact);
    found.paint(&painter, QRectF(0, 0, width, height).toRect()); // in the middle, when it has no such size
    return exact;
}

} // namespace haloric
