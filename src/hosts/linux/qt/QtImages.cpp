#include "hosts/linux/qt/QtImages.h"

#include "drawing/icon/IconPicture.h"
#include "drawing/raster/ImageRaster.h"
#include "foundation/ProductIdentity.h"
#include "hosts/linux/files/DesktopEntries.h"
#include "hosts/linux/qt/QtApplication.h"
#include "hosts/linux/qt/QtText.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QFileInfo>
#include <QImage>
#include <QPainter>

namespace haloric {

namespace {

constexpr double kSeparatorOpacity = 0.2; // relative to the text colour
constexpr double kDefaultSize = 16;       // points, of images without a size
constexpr int kMiddle = 128;              // of lightness
constexpr double kRimOpacity = 0.3;
constexpr double kSymbolUnits = 16; // the symbols' side in units of their drawing

// Pixels.
constexpr int kDrawnSizes[] = {16, 18, 20, 22, 24, 28, 32, 36, 40, 44, 48, 64};
constexpr int kSymbolSizes[] = {16, 18, 20, 22, 24, 32, 36, 48, 64};
constexpr int kProgramIconSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};

Color colorOf(const QColor& color) { return {color.redF(), color.greenF(), color.blueF(), color.alphaF()}; }

SystemColors systemColors(const QPalette& palette)
{
    return {.separator = colorOf(palette.color(QPalette::WindowText)).withAlpha(kSeparatorOpacity)};
}

// Replaces the colour of every pixel and keeps its opacity.
void colorAll(QImage& image, const QColor& color)
{
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
}

// The upper left part of the picture, of that size; transparent beyond the picture. It owns its pixels, because a
// QPixmap made from a QImage may keep using the memory behind it.
QImage imageOf(const Picture& picture, const QSize& size)
{
    const QImage shared(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
                        QImage::Format_ARGB32_Premultiplied);
    return shared.copy(QRect(QPoint(0, 0), size));
}

QPixmap draw(const DrawnImage& drawn, const Size& points, double pixelsPerPoint, const QPalette& palette)
{
    const QSize pixels(static_cast<int>(std::lround(points.width * pixelsPerPoint)),
                       static_cast<int>(std::lround(points.height * pixelsPerPoint)));
    if (pixels.isEmpty() || !drawn.draw)
        return {};
    const double scale = std::min(pixels.width() / drawn.size.width, pixels.height() / drawn.size.height);
    const Picture picture = ImageRaster::render(drawn, scale, systemColors(palette));
    QImage image = imageOf(picture, pixels);
    if (drawn.isTemplate)
        colorAll(image, palette.color(QPalette::WindowText));
    image.setDevicePixelRatio(pixelsPerPoint);
    return QPixmap::fromImage(std::move(image));
}

using SymbolDrawing = void (*)(QPainter&, const QColor&);

void drawApplication(QPainter& painter, const QColor& color)
{
    painter.setPen(QPen(color, 1.2));
    painter.drawRoundedRect(QRectF(1.6, 1.6, 12.8, 12.8), 3.2, 3.2);
}

void drawMinusCircle(QPainter& painter, const QColor& color)
{
    painter.setPen(QPen(color, 1.2, Qt::SolidLine, Qt::RoundCap));
    painter.drawEllipse(QRectF(1.6, 1.6, 12.8, 12.8));
    painter.drawLine(QPointF(5, 8), QPointF(11, 8));
}

QIcon drawnSymbol(SymbolDrawing draw, const QColor& color)
{
    QIcon icon;
    for (const int size : kSymbolSizes) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / kSymbolUnits, size / kSymbolUnits);
        draw(painter, color);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

// "app" stands for an application without an icon and is taken from the user's icon theme if that has it;
// "minus.circle" removes an element of a list. Null for other names.
QIcon symbolIcon(std::string_view name, const QPalette& palette)
{
    const QColor color = palette.color(QPalette::WindowText);
    if (name == "app")
        return QIcon::fromTheme("application-x-executable", drawnSymbol(drawApplication, color));
    if (name == "minus.circle")
        return drawnSymbol(drawMinusCircle, color);
    return {};
}

QIcon iconOf(const FileIcon& file, const QPalette& palette)
{
    const auto application = DesktopEntries::at(file.path);
    if (!application || application->icon.empty())
        return symbolIcon("app", palette);
    const QString name = qtText(application->icon);
    if (QFileInfo(name).isAbsolute())
        return QIcon(name);
    return QIcon::fromTheme(name, symbolIcon("app", palette));
}

// Adds a rim of the opposite lightness: a panel may be dark while windows are light, and Qt does not report its colour.
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
    for (const int size : kDrawnSizes) {
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
        return symbolIcon(symbol->name, palette);
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
    found.paint(&painter, QRectF(0, 0, width, height).toRect()); // centred if the icon has no such size
    return exact;
}

QIcon QtImages::programIcon()
{
    QIcon themed = QIcon::fromTheme(ProductIdentity::kIdentifier);
    if (!themed.isNull() && !themed.availableSizes().isEmpty())
        return themed;
    QIcon drawn;
    for (const int size : kProgramIconSizes)
        drawn.addPixmap(QPixmap::fromImage(imageOf(IconPicture::draw(size), {size, size})));
    return drawn;
}

} // namespace haloric
