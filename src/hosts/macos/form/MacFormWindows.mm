#include "hosts/macos/form/MacFormWindows.h"

#include "hosts/macos/base/MacConversions.h"
#import "hosts/macos/form/MacFormView.h"
#include "platform/WindowStyle.h"

#include <utility>

static_assert(NSWindowStyleMaskTitled == haloric::WindowStyle::kTitled);
static_assert(NSWindowStyleMaskClosable == haloric::WindowStyle::kClosable);
static_assert(NSWindowStyleMaskMiniaturizable == haloric::WindowStyle::kMiniaturizable);
static_assert(NSWindowStyleMaskResizable == haloric::WindowStyle::kResizable);

@interface MacClosableWindow : NSWindow

// From makeKeyAndOrderFront: to close, also while it is minimised or hidden with the application.
@property(nonatomic, readonly, getter=isOpen) BOOL open;

@end

@implementation MacClosableWindow

- (void)makeKeyAndOrderFront:(id)sender
{
    _open = YES;
    [super makeKeyAndOrderFront:sender];
}

// Left open without its form, the colour panel would change colours that are not shown.
- (void)close
{
    _open = NO;
    [super close];
    if (NSColorPanel.sharedColorPanelExists)
        [NSColorPanel.sharedColorPanel close];
}

@end

namespace haloric {
namespace {

class MacFormWindow final : public FormWindow {
public:
    MacFormWindow(const FormWindowConfiguration& configuration, const FormModel& form)
        : m_window([[MacClosableWindow alloc]
              initWithContentRect:NSMakeRect(0, 0, configuration.contentSize.width, configuration.contentSize.height)
                        styleMask:static_cast<NSWindowStyleMask>(configuration.styleMask)
                          backing:NSBackingStoreBuffered
                            defer:NO]),
          m_view([[MacFormView alloc] initWithFrame:NSZeroRect])
    {
        m_window.title = nsStringFrom(configuration.title);
        m_window.releasedWhenClosed = configuration.isReleasedWhenClosed;
        m_window.autorecalculatesKeyViewLoop = YES;
        m_window.contentView = m_view;
        setForm(form);
    }

    ~MacFormWindow() override
    {
        [m_view showForm:{}]; // controls that AppKit still keeps call nothing
        [m_window close];
    }

    MacFormWindow(const MacFormWindow&) = delete;
    MacFormWindow& operator=(const MacFormWindow&) = delete;

    void setForm(const FormModel& form) override
    {
        m_appearances.clear();
        for (const FormSection& section : form.sections)
            if (section.onAppear)
                m_appearances.push_back(section.onAppear);
        [m_view showForm:form];
    }

    void center() override { [m_window center]; }

    void makeKeyAndOrderFront() override
    {
        const bool appears = !m_window.visible;
        if (m_window.miniaturized)
            [m_window deminiaturize:nil];
        [m_window makeKeyAndOrderFront:nil];
        [m_window orderFrontRegardless]; // while the application is inactive, the other only orders within it
        if (!appears)
            return;
        for (const Task& appear : std::vector<Task>(m_appearances)) // a copy: each may replace the form
            appear();
    }

    bool isVisible() const override { return m_window.open; }

private:
    MacClosableWindow* const m_window;
    MacFormView* const m_view;
    std::vector<Task> m_appearances;
};

} // namespace

std::unique_ptr<FormWindow> MacFormWindows::make(const FormWindowConfiguration& configuration, const FormModel& form)
{
    return std::make_unique<MacFormWindow>(configuration, form);
}

} // namespace haloric
