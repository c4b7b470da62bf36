// Core Graphics: paths and contexts, drawn by a canvas of the project.
#include "graphics/Graphics.h"

#import <AppKit/AppKit.h>

#include <algorithm>

using substitute::raise;

@implementation RTPath
@end
struct State {
    haloric::Color fill, stroke;
    double width = 1;
    haloric::LineCap cap{};
    haloric::LineJoin join{};
    CGBlendMode blend = kCGBlendModeNormal;
};
@interface RTCanvasContext : NSObject {
@public
    haloric::Canvas* inner;
    std::vector<State> states;
    haloric::Path path;
    std::vector<haloric::Polyline> lines;
    bool shapes;
}
@end
@implementation RTCanvasContext
- (void)dealloc
{
    if (states.size() != 1)
        raise("a graphics context goes with %zu saved states", states.size() - 1);
}
@end
static RTCanvasContext* on(CGContextRef c)
{
    if (!c)
        raise("null context");
    return (__bridge RTCanvasContext*)(void*)c;
}
static haloric::Color colourOf(CGColorRef c)
{
    if (!c)
        raise("null colour");
    RTCGColor* one = (__bridge RTCGColor*)(void*)c;
    return {one->c[0], one->c[1], one->c[2], one->c[3]};
}
CGContextRef substitute::makeContext(haloric::Canvas& inner)
{
    RTCanvasContext* made = [[RTCanvasContext alloc] init];
    made->inner = &inner;
    made->states.emplace_back();
    return (CGContextRef)CFBridgingRetain(made);
}
static void empty(RTCanvasContext* x)
{
    x->path = {};
    x->lines.clear();
    x->shapes = false;
}
extern "C" {
CGMutablePathRef CGPathCreateMutable() { return (CGMutablePathRef)CFBridgingRetain([[RTPath alloc] init]); }
void CGPathAddRect(CGMutablePathRef path, const CGAffineTransform*, CGRect r)
{
    ((__bridge RTPath*)(void*)path)->parts.push_back({0, r, 0, 0});
}
void CGPathAddRoundedRect(CGMutablePathRef path, const CGAffineTransform*, CGRect r, CGFloat w, CGFloat h)
{
    if (w < 0 || h < 0 || 2 * w > r.size.width || 2 * h > r.size.height)
        raise("CGPathAddRoundedRect: Assertion failed: corner_width >= 0 && 2 * "
              "corner_width <= CGRectGetWidth(rect)");
    ((__bridge RTPath*)(void*)path)->parts.push_back({1, r, w, h});
}
void CGContextSaveGState(CGContextRef c)
{
    RTCanvasContext* x = on(c);
    x->states.push_back(x->states.back());
    x->inner->save();
}
void CGContextRestoreGState(CGContextRef c)
{
    RTCanvasContext* x = on(c);
    if (x->states.size() < 2)
        raise("CGContextRestoreGState: nothing saved");
    x->states.pop_back();
    x->inner->restore();
}
void CGContextBeginPath(CGContextRef c) { empty(on(c)); }
void CGContextAddPath(CGContextRef c, CGPathRef path)
{
    RTCanvasContext* x = on(c);
    x->shapes = true;
    for (const auto& p : ((__bridge RTPath*)(void*)path)->parts) {
        const haloric::Rect r{p.rect.origin.x, p.rect.origin.y, p.rect.size.width, p.rect.size.height};
        if (p.kind == 0)
            x->path.add(r);
        else
            x->path.add(haloric::RoundedRect{r, std::max(p.w, p.h)});
    }
}
void CGContextMoveToPoint(CGContextRef c, CGFloat px, CGFloat py) { on(c)->lines.push_back({{{px, py}}}); }
void CGContextAddLineToPoint(CGContextRef c, CGFloat px, CGFloat py)
{
    RTCanvasContext* x = on(c);
    if (x->lines.empty())
        raise("CGContextAddLineToPoint: no current point");
    x->lines.back().points.push_back({px, py});
}
void CGContextClip(CGContextRef c)
{
    RTCanvasContext* x = on(c);
    x->inner->clip(x->path, haloric::FillRule::nonZero);
    empty(x);
}
void CGContextEOClip(CGContextRef c)
{
    RTCanvasContext* x = on(c);
    x->inner->clip(x->path, haloric::FillRule::evenOdd);
    empty(x);
}
void CGContextFillPath(CGContextRef c)
{
    RTCanvasContext* x = on(c);
    x->inner->fill(x->path, x->states.back().fill, haloric::FillRule::nonZero);
    empty(x);
}
void CGContextEOFillPath(CGContextRef c)
{
    RTCanvasContext* x = on(c);
    x->inner->fill(x->path, x->states.back().fill, haloric::FillRule::evenOdd);
    empty(x);
}
void CGContextFillRect(CGContextRef c, CGRect r)
{
    RTCanvasContext* x = on(c);
    x->inner->fillRect({r.origin.x, r.origin.y, r.size.width, r.size.height}, x->states.back().fill,
                       x->states.back().blend == kCGBlendModeCopy ? haloric::CompositingOperation::copy
                                                                  : haloric::CompositingOperation::sourceOver);
}
void CGContextStrokePath(CGContextRef c)
{
    RTCanvasContext* x = on(c);
    const State& s = x->states.back();
    if (x->shapes)
        x->inner->stroke(x->path, s.stroke, s.width);
    else
        x->inner->strokeLines(x->lines, s.stroke, {s.width, s.cap, s.join});
    empty(x);
}
void CGContextSetLineWidth(CGContextRef c, CGFloat w) { on(c)->states.back().width = w; }
void CGContextSetLineCap(CGContextRef c, CGLineCap v)
{
    on(c)->states.back().cap = v == kCGLineCapRound ? haloric::LineCap::round : haloric::LineCap::butt;
}
void CGContextSetLineJoin(CGContextRef c, CGLineJoin v)
{
    on(c)->states.back().join = v == kCGLineJoinRound ? haloric::LineJoin::round : haloric::LineJoin::miter;
}
void CGContextSetFillColorWithColor(CGContextRef c, CGColorRef v) { on(c)->states.back().fill = colourOf(v); }
void CGContextSetStrokeColorWithColor(CGContextRef c, CGColorRef v) { on(c)->states.back().stroke = colourOf(v); }
void CGContextSetShadowWithColor(CGContextRef c, CGSize o, CGFloat blur, CGColorRef v)
{
    on(c)->inner->setShadow({blur, {o.width, o.height}, colourOf(v)});
}
void CGContextSetBlendMode(CGContextRef c, CGBlendMode v)
{
    on(c)->states.back().blend = v;
    on(c)->inner->setBlendMode(v == kCGBlendModeClear ? haloric::BlendMode::clear : haloric::BlendMode::normal);
}
}

NSGraphicsContext* g_current;
@implementation NSGraphicsContext {
    CGContextRef _context;
}
+ (NSGraphicsContext*)currentContext
{
    return g_current;
}
+ (NSGraphicsContext*)graphicsContextWithCGContext:(CGContextRef)c flipped:(BOOL)flipped
{
    NSGraphicsContext* made = [[NSGraphicsContext alloc] init];
    if (!c)
        raise("null context");
    made->_context = c;
    return made;
}
- (CGContextRef)CGContext
{
    return _context;
}
- (NSCompositingOperation)compositingOperation
{
    return NSCompositingOperationSourceOver;
}
@end
