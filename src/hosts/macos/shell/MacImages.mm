#include "hosts/macos/shell/MacImages.h"

#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/overlay/MacCanvas.h"

namespace haloric {
namespace {

NSImage* make(std::monostate) { return nil; }

NSImage* make(const DrawnImage& image)
{
    const auto drawing = image.draw; // a block that is handed a reference keeps the reference, not the function
    const auto draw = ^BOOL(NSRect) {
      MacCanvas canvas(NSGraphicsContext.currentContext.CGContext, CompositingOperation::sourceOver);
      drawing(canvas, {.separator = colorFrom(NSColor.separatorColor)});
      return YES;
    };
    NSImage* made = [NSImage imageWithSize:NSMakeSize(image.size.width, image.size.height)
                                   flipped:image.isFlipped
                            drawingHandler:draw];
    [made setTemplate:image.isTemplate]; // the name of the property is a word of C++
    return made;
}

NSImage* make(const FileIcon& icon) { return [NSWorkspace.sharedWorkspace iconForFile:nsStringFrom(icon.path)]; }

NSImage* make(const SymbolImage& symbol)
{
    return [NSImage imageWithSystemSymbolName:nsStringFrom(symbol.name) accessibilityDescription:nil];
}

} // namespace

NSImage* nsImageFrom(const Image& image)
{
    return std::visit([](const auto& kind) { return make(kind); }, image);
}

} // namespace haloric
