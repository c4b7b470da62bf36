#include "hosts/macos/shell/MacPanels.h"

#include "hosts/macos/base/MacConversions.h"

#import <UniformTypeIdentifiers/UniformTypeIdentifiers.h>

#include <cstdlib>

namespace haloric {
namespace {

UTType* typeFrom(ContentType type)
{
    switch (type) {
    case ContentType::applicationBundle:
        return UTTypeApplicationBundle;
    }
    std::abort(); // no other value exists
}

} // namespace

void MacPanels::orderFrontStandardAboutPanel(const AboutPanel& panel)
{
    // Named, because text without a colour stays black in a dark window.
    NSDictionary<NSAttributedStringKey, id>* style = @{
        NSFontAttributeName : [NSFont systemFontOfSize:panel.creditsFontSize],
        NSForegroundColorAttributeName : NSColor.labelColor,
    };
    NSArray<NSWindow*>* before = NSApp.windows;
    [NSApp orderFrontStandardAboutPanelWithOptions:@{
        NSAboutPanelOptionApplicationName : nsStringFrom(panel.applicationName),
        NSAboutPanelOptionApplicationVersion : nsStringFrom(panel.applicationVersion),
        NSAboutPanelOptionVersion : nsStringFrom(panel.version),
        NSAboutPanelOptionCredits : [[NSAttributedString alloc] initWithString:nsStringFrom(panel.credits)
                                                                    attributes:style],
    }];
    // AppKit returns no panel: it is the window that was not there.
    if (!m_about)
        for (NSWindow* window in NSApp.windows)
            if (![before containsObject:window])
                m_about = window;
    [m_about orderFrontRegardless]; // an inactive application's windows open behind others
}

std::optional<std::string> MacPanels::runModalOpenPanel(const OpenPanel& model)
{
    NSOpenPanel* panel = [NSOpenPanel openPanel];
    panel.allowedContentTypes = @[ typeFrom(model.allowedContentType) ];
    panel.directoryURL = [NSURL fileURLWithPath:nsStringFrom(model.directory) isDirectory:YES];
    panel.prompt = nsStringFrom(model.prompt);
    if ([panel runModal] != NSModalResponseOK)
        return std::nullopt;
    return stringFrom(panel.URL.path);
}

} // namespace haloric
