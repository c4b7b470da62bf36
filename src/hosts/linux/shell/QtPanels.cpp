#include "hosts/linux/shell/QtPanels.h"

#include "hosts/linux/shell/QtAboutPanel.h"
#include "hosts/linux/shell/QtApplicationChooser.h"

namespace haloric {

QtPanels::QtPanels() = default;

QtPanels::~QtPanels() = default;

void QtPanels::orderFrontStandardAboutPanel(const AboutPanel& panel)
{
    if (!m_about)
        m_about = std::make_unique<QtAboutPanel>();
    m_about->show(panel);
}

std::optional<std::string> QtPanels::runModalOpenPanel(const OpenPanel& panel)
{
    QtApplicationChooser chooser(panel.prompt);
    return chooser.exec() == QDialog::Accepted ? chooser.chosen() : std::nullopt;
}

} // namespace haloric
