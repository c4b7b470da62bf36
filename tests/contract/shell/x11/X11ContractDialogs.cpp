#include "contract/shell/x11/X11ContractDialogs.h"

#include "hosts/linux/files/DesktopEntries.h"
#include "testing/x11/Key.h"

#include <algorithm>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>

namespace haloric {

namespace {

const QMessageBox* openAlert() { return qobject_cast<const QMessageBox*>(QApplication::activeModalWidget()); }

bool isDialogReady()
{
    const QWidget* dialog = QApplication::activeModalWidget();
    return dialog && dialog->isVisible() && dialog->isActiveWindow();
}

} // namespace

void X11ContractDialogs::whenOpen(std::function<void()> act) { m_user.when(isDialogReady, std::move(act)); }

std::vector<std::string> X11ContractDialogs::texts()
{
    const QMessageBox* alert = openAlert();
    if (!alert)
        return {};
    return {alert->text().toStdString(), alert->informativeText().toStdString()};
}

std::vector<std::string> X11ContractDialogs::buttons()
{
    std::vector<std::string> labels;
    if (const QMessageBox* alert = openAlert()) {
        for (const QAbstractButton* button : alert->buttons())
            labels.push_back(QtUser::plain(button->text()));
    }
    return labels;
}

void X11ContractDialogs::chooseApplication(const std::string& path)
{
    const auto application = DesktopEntries::at(path);
    if (application && m_user.click(application->name))
        m_user.press(Key::kReturn);
}

void X11ContractDialogs::cancelPanel() { m_user.press(Key::kEscape); }

std::vector<std::string> X11ContractDialogs::aboutTexts()
{
    std::vector<std::string> texts;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() || !window->windowTitle().startsWith("About "))
            continue;
        QList<QLabel*> labels = window->findChildren<QLabel*>();
        std::ranges::sort(labels, {}, [](const QLabel* label) { return label->y(); });
        for (const QLabel* label : labels)
            if (!label->text().isEmpty())
                texts.push_back(label->text().toStdString());
    }
    return texts;
}

} // namespace haloric
