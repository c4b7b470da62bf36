// The About panel, and the dialog for choosing an application. Main thread.
#pragma once

#include "hosts/linux/qt/QtForeground.h"
#include "platform/Panels.h"

#include <memory>

#include <QDialog>

class QLabel;

namespace haloric {

// Shows the program's icon, name, version and credits.
class QtAboutPanel final : public QDialog {
public:
    QtAboutPanel();

    // What it shows from now on.
    void setContent(const AboutPanel& panel);

private:
    QLabel* addText();

    QLabel* m_name;
    QLabel* m_version;
    QLabel* m_credits;
};

class QtPanels final : public Panels {
public:
    // `foreground` outlives it.
    explicit QtPanels(QtForeground& foreground) : m_foreground(foreground) {}

    void orderFrontStandardAboutPanel(const AboutPanel& panel) override;

    // Lists all installed applications and ignores the panel's directory, because desktop entries are in several
    // folders. Returns the path of the chosen desktop entry.
    std::optional<std::string> runModalOpenPanel(const OpenPanel& panel) override;

private:
    QtForeground& m_foreground;
    std::unique_ptr<QtAboutPanel> m_about; // created on first use
};

} // namespace haloric
