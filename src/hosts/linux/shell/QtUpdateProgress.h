// A small window during a check for updates, with a button to cancel it. Closing the window cancels, too. Main thread.
#pragma once

#include "hosts/linux/qt/QtForeground.h"
#include "hosts/linux/update/UpdaterDependencies.h"

#include <memory>

class QDialog;

namespace haloric {

class QtUpdateProgress final : public UpdateProgress {
public:
    // `foreground` outlives it.
    explicit QtUpdateProgress(QtForeground& foreground);
    ~QtUpdateProgress() override;

    // At most one handle exists; this object outlives it.
    [[nodiscard]] Subscription show(Task onCancel) override;

private:
    void makeDialog();

    QtForeground& m_foreground;
    std::unique_ptr<QDialog> m_dialog; // created on first use
    Task m_onCancel;
};

} // namespace haloric
