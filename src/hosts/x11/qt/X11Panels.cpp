#include "hosts/x11/qt/X11Panels.h"

#include "hosts/x11/qt/X11AboutPanel.h"
#include "hosts/x11/qt/X11ApplicationChooser.h"

namespace haloric {

X11Panels::X11Panels() = default;

X11Panels::~X11Panels() = default;

void X11Panels::orderFrontStandardAboutPanel(const AboutPanel& panel)
{
    if (!m_about)
        m_about = std::make_unique<X11AboutPanel>();
    m_about->show(panel);
}

std::optional<std::string> X11Panels::runModalOpenPanel(const OpenPanel& panel)
{
    X11ApplicationChooser chooser(panel.prompt);
    return chooser.exec() == QDialog::Accepted ? chooser.chosen() : std::nullopt;
}

} // namespace haloric
