// A small window that waits for the answer of a check for updates, with a button to do without it. Closing it is the
// same as that button. Main thread.
#pragma once

#include "hosts/linux/update/UpdateProgress.h"

#include <memory>

class QDialog;

namespace haloric {

class QtUpdateProgress final : public UpdateProgress {
public:
    QtUpdateProgress();
    ~QtUpdateProgress() override;

    // One at a time. Outlives the handle.
    [[nodiscard]] Subscription show(Task onCancel) override;

private:
    void makeDialog();

    std::unique_ptr<QDialog> m_dialog; // null until it is first shown
    Task m_onCancel;
};

} // namespace haloric
