#include "hosts/macos/overlay/MacCanvas.h"

#include "hosts/macos/base/CFOwned.h"
#include "hosts/macos/base/MacConversions.h"

#include <algorithm>

namespace haloric {
namespace {

void addShape(CGMutablePathRef path, const Rect& rect) { CGPathAddRect(path, nullptr, cgRectFrom(rect)); }

void addShape(CGMutablePathRef path, const RoundedRect& shape)
{
    // Core Graphics stops the program for a corner that does not fit.
    const double cornerWidth = std::min(shape.radius, shape.rect.width / 2);
    const double cornerHeight = std::min(shape.radius, shape.rect.height / 2);
    if (cornerWidth > 0 && cornerHeight > 0)
        CGPathAddRoundedRect(path, nullptr, cgRectFrom(shape.rect), cornerWidth, cornerHeight);
    else
        addShape(path, shape.rect);
}

} // namespace

void MacCanvas::save() { CGContextSaveGState(m_context); }

void MacCanvas::restore() { CGContextRestoreGState(m_context); }

void MacCanvas::clip(const Path& path, FillRule rule)
{
    addPath(path);
    if (rule == FillRule::evenOdd)
        CGContextEOClip(m_context);
    else
        CGContextClip(m_context);
}

void MacCanvas::setShadow(const Shadow& shadow)
{
    const CGSize offset = CGSizeMake(shadow.offset.width, shadow.offset.height);
    CGContextSetShadowWithColor(m_context, offset, shadow.blurRadius, cgColorFrom(shadow.color).get());
}

void MacCanvas::setBlendMode(BlendMode mode)
{
    CGContextSetBlendMode(m_context, mode == BlendMode::clear ? kCGBlendModeClear : kCGBlendModeNormal);
}

void MacCanvas::fill(const Path& path, const Color& color, FillRule rule)
{
    CGContextSetFillColorWithColor(m_context, cgColorFrom(color).get());
    addPath(path);
    if (rule == FillRule::evenOdd)
        CGContextEOFillPath(m_context);
    else
        CGContextFillPath(m_context);
}

void MacCanvas::fillRect(const Rect& rect, const Color& color, CompositingOperation operation)
{
    save(); // the operation applies to this rectangle only
    CGContextSetBlendMode(m_context, operation == CompositingOperation::copy ? kCGBlendModeCopy : kCGBlendModeNormal);
    CGContextSetFillColorWithColor(m_context, cgColorFrom(color).get());
    CGContextFillRect(m_context, cgRectFrom(rect));
    restore();
}

void MacCanvas::stroke(const Path& path, const Color& color, double lineWidth)
{
    CGContextSetStrokeColorWithColor(m_context, cgColorFrom(color).get());
    CGContextSetLineWidth(m_context, lineWidth);
    addPath(path);
    CGContextStrokePath(m_context);
}

void MacCanvas::strokeLines(std::span<const Polyline> lines, const Color& color, const LineStyle& style)
{
    save(); // the style applies to these lines only
    CGContextSetStrokeColorWithColor(m_context, cgColorFrom(color).get());
    CGContextSetLineWidth(m_context, style.width);
    CGContextSetLineCap(m_context, style.cap == LineCap::round ? kCGLineCapRound : kCGLineCapButt);
    CGContextSetLineJoin(m_context, style.join == LineJoin::round ? kCGLineJoinRound : kCGLineJoinMiter);
    CGContextBeginPath(m_context);
    for (const Polyline& line : lines) {
        if (line.points.size() < 2)
            continue;
        CGContextMoveToPoint(m_context, line.points[0].x, line.points[0].y);
        for (const Point& point : std::span(line.points).subspan(1))
            CGContextAddLineToPoint(m_context, point.x, point.y);
    }
    CGContextStrokePath(m_context);
    restore();
}

void MacCanvas::addPath(const Path& path)
{
    const CFOwned<CGMutablePathRef> shapes(CGPathCreateMutable());
    for (const Path::Shape& shape : path.shapes())
        std::visit([&shapes](const auto& one) { addShape(shapes.get(), one); }, shape);
    CGContextAddPath(m_context, shapes.get());
}

} // namespace haloric
