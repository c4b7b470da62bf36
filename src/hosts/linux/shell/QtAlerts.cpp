#include "hosts/linux/shell/QtAlerts.h"

#include "hosts/linux/qt/QtImages.h"
#include "hosts/linux/qt/QtText.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace haloric {

namespace {

constexpr int kIconSize = 64; // points

// macOS shows the message as the title; a window manager needs a separate one.
constexpr const char* kTitle = "Haloric";

// Makes the message bold, as some styles already do.
void emphasise(const QMessageBox& box)
{
    if (auto* text = box.findChild<QLabel*>("qt_msgbox_label")) {
        QFont font = text->font();
        font.setBold(true);
        text->setFont(font);
    }
}

} // namespace

std::int64_t QtAlerts::runModal(const AlertModel& alert)
{
    QMessageBox box;
    box.setWindowTitle(kTitle);
    box.setTextFormat(Qt::PlainText);
    box.setText(qtText(alert.messageText));
    box.setInformativeText(qtText(alert.informativeText));
    const QIcon icon = QtImages::programIcon();
    box.setWindowIcon(icon);
    box.setIconPixmap(icon.pixmap(QSize(kIconSize, kIconSize), box.devicePixelRatio()));
    emphasise(box);
    std::vector<QPushButton*> buttons;
    for (const std::string& title : alert.buttons) {
        const auto role = buttons.empty() ? QMessageBox::AcceptRole : QMessageBox::RejectRole;
        buttons.push_back(box.addButton(qtLabel(title), role));
    }
    if (!buttons.empty()) {
        box.setDefaultButton(buttons.front());
        box.setEscapeButton(buttons.back());
    }
    m_open.push_back(&box);
    box.exec();
    std::erase(m_open, &box);
    for (std::size_t index = 0; index < buttons.size(); ++index) {
        if (box.clickedButton() == buttons[index])
            return kFirstButton + static_cast<std::int64_t>(index);
    }
    return kFirstButton + static_cast<std::int64_t>(buttons.empty() ? 0 : buttons.size() - 1);
}

void QtAlerts::dismiss(const std::string& messageText)
{
    for (QMessageBox* box : std::vector(m_open)) {
        if (box->text() == qtText(messageText))
            box->reject();
    }
}

void QtAlerts::runModalError(const PlatformError& error)
{
    runModal({.messageText = error.localizedDescription,
              .informativeText = error.localizedRecoverySuggestion,
              .style = AlertStyle::critical,
              .buttons = {"OK"}});
}

} // namespace haloric
