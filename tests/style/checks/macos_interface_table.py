"""What the macOS adapters hand to the system for the user to look at: the menu, windows, panels and pictures.

Fragments of the source, as in macos_table.py.
"""

# By the file in src/hosts/macos/.
INTERFACE_ADAPTERS = {
    "MacAlerts.mm": [
        "NSAlertFirstButtonReturn == Alerts::kFirstButton", "NSApp.applicationIconImage",
        "alert.messageText = nsStringFrom(model.messageText)",
        "alert.informativeText = nsStringFrom(model.informativeText)",
        "alert.alertStyle = static_cast<NSAlertStyle>(model.style)",
        "for (const std::string& title : model.buttons) [alert addButtonWithTitle:nsStringFrom(title)]",
        "return [alert runModal]", "[[NSAlert alertWithError:nsErrorFrom(error)] runModal]",
    ],
    "MacFormRowView.mm": [
        "label.lineBreakMode = NSLineBreakByTruncatingTail",
        "setContentCompressionResistancePriority:NSLayoutPriorityDragThatCannotResizeWindow "
        "forOrientation:NSLayoutConstraintOrientationHorizontal",
    ],
    "MacFormRows.mm": [
        "_well.supportsAlpha = NO", "showsAlpha = NO",
        "_removeButton.bordered = NO", "icon.size = NSMakeSize(row->iconSize.width, row->iconSize.height)",
        "_removeButton.image = haloric::nsImageFrom(row->removeImage)",
    ],
    "MacFormWindows.mm": [
        "(NSWindowStyleMaskTitled | NSWindowStyleMaskClosable | NSWindowStyleMaskMiniaturizable) == 7",
        "initWithContentRect:NSMakeRect(0, 0, configuration.contentSize.width, configuration.contentSize.height)",
        "styleMask:static_cast<NSWindowStyleMask>(configuration.styleMask)",
        "m_window.title = nsStringFrom(configuration.title)",
        "m_window.releasedWhenClosed = configuration.isReleasedWhenClosed",
        "void center() override { [m_window center]; }", "[m_window makeKeyAndOrderFront:nil]",
    ],
    "MacImages.mm": [
        "imageWithSize:NSMakeSize(image.size.width, image.size.height) flipped:image.isFlipped drawingHandler:draw",
        "[made setTemplate:image.isTemplate]", ".separator = colorFrom(NSColor.separatorColor)",
        "[NSWorkspace.sharedWorkspace iconForFile:nsStringFrom(icon.path)]",
        "imageWithSystemSymbolName:nsStringFrom(symbol.name)",
    ],
    "MacMenu.mm": [
        "menu.autoenablesItems = NO", "_menu.delegate = self",
        "made.keyEquivalent = haloric::nsStringFrom(item.keyEquivalent)",
        "shown.title = haloric::nsStringFrom(item.title)",
        "shown.state = item.isOn ? NSControlStateValueOn : NSControlStateValueOff",
        "shown.enabled = item.isEnabled", "shown.hidden = item.isHidden",
        "shown.toolTip = item.toolTip.empty() ? nil : haloric::nsStringFrom(item.toolTip)",
        "shown.image = haloric::nsImageFrom(item.image)",
        "- (void)menuNeedsUpdate:(NSMenu*)__unused menu "
        "{ if (_delegate) _delegate->menuNeedsUpdate(); [self showModel]; }",
    ],
    "MacPanels.mm": [
        "NSAboutPanelOptionApplicationName : nsStringFrom(panel.applicationName)",
        "NSAboutPanelOptionApplicationVersion : nsStringFrom(panel.applicationVersion)",
        "NSAboutPanelOptionVersion : nsStringFrom(panel.version)", "NSAboutPanelOptionCredits :",
        "NSFontAttributeName : [NSFont systemFontOfSize:panel.creditsFontSize]",
        "return UTTypeApplicationBundle", "panel.allowedContentTypes = @[ typeFrom(model.allowedContentType) ]",
        "panel.directoryURL = [NSURL fileURLWithPath:nsStringFrom(model.directory) isDirectory:YES]",
        "panel.prompt = nsStringFrom(model.prompt)", "!= NSModalResponseOK",
    ],
    "MacStatusItems.mm": [
        "[NSStatusBar.systemStatusBar statusItemWithLength:length]",
        "m_item.button.image = nsImageFrom(image)", "m_item.button.toolTip = nsStringFrom(text)",
        "m_menu = [[MacMenu alloc] initWithModel:&menu delegate:&delegate]; m_item.menu = m_menu.menu;",
    ],
}
