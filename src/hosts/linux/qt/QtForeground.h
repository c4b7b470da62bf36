// Brings windows of the program to the front, with the keyboard focus, because the user has asked for them. Main
// thread.
#pragma once

#include <functional>
#include <set>
#include <utility>

#include <QObject>
#include <QWidget>

namespace haloric {

// Asks the window manager to focus one of the program's windows, given by its native id, on behalf of the user.
using QtFocusRequest = std::function<void(WId window)>;

// Window managers refuse the focus to a window of a program without recent user input, and open it beneath others. The
// user's click may have gone to a panel's menu, or to a hotkey, neither of which the window manager takes for input to
// this program. So the focus is requested again once the window is on the screen.
class QtForeground final : public QObject {
public:
    // Without a request, windows are only shown and activated.
    explicit QtForeground(QtFocusRequest request) : m_request(std::move(request)) {}

    // Shows the window, or restores and raises it.
    void bring(QWidget& window);

    // For a window that is about to be shown by other means: requests the focus when it is first painted.
    void expect(QWidget& window);

private:
    bool eventFilter(QObject* object, QEvent* event) override;
    void requestFocus(QWidget& window);

    QtFocusRequest m_request;
    std::set<QObject*> m_expected; // windows that have neither been painted nor activated since `expect`
};

} // namespace haloric
