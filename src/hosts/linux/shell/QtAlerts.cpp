#include "hosts/linux/shell/QtAlerts.h"

#include "hosts/linux/qt/QtImages.h"
#include "hosts/linux/qt/QtText.h"

#include <algorithm>

#include <QLabel>
#include <QMessageBox>
#include <QPointer>
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

// Makes the box show the alert. Returns its buttons in the alert's order.
std::vector<QPushButton*> fill(QMessageBox& box, const AlertModel& alert)
{
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
    return buttons;
}

} // namespace

std::int64_t QtAlerts::runModal(const AlertModel& alert)
{
    QMessageBox box;
    const std::vector<QPushButton*> buttons = fill(box, alert);
    m_open.push_back(&box);
    m_foreground.expect(box);
    box.exec();
    std::erase(m_open, &box);
    for (std::size_t index = 0; index < buttons.size(); ++index) {
        if (box.clickedButton() == buttons[index])
            return kFirstButton + static_cast<std::int64_t>(index);
    }
    return kFirstButton + static_cast<std::int64_t>(buttons.empty() ? 0 : buttons.size() - 1);
}

Subscription QtAlerts::show(const AlertModel& alert, Answer answer)
{
    auto* box = new QMessageBox;
    const std::vector<QPushButton*> buttons = fill(*box, alert);
    box->setModal(false);
    // On a later turn, because the answer may destroy the box.
    QObject::connect(
        box, &QMessageBox::finished, box,
        [box, buttons, answer = std::move(answer)] {
            const auto chosen = std::ranges::find(buttons, box->clickedButton());
            const auto index = static_cast<std::size_t>(chosen - buttons.begin());
            const Answer call = answer; // a copy, because it may destroy the box
            call(index < buttons.size() ? index : buttons.size() - 1);
        },
        Qt::QueuedConnection);
    m_foreground.bring(*box);
    return Subscription([box = QPointer<QMessageBox>(box)] {
        if (box) {
            box->disconnect();
            box->hide();
            box->deleteLater();
        }
    });
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
