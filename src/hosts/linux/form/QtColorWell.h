// A button that shows a colour and lets the user choose another in a dialog, which shows no opacity and tells every
// colour at once, so that its effect is seen; cancelled, it tells the first one again. Main thread.
#pragma once

#include "foundation/Color.h"

#include <functional>

#include <QPointer>
#include <QPushButton>

class QColorDialog;

namespace haloric {

class QtColorWell final : public QPushButton {
public:
    explicit QtColorWell(QWidget* parent);
    ~QtColorWell() override;

    // Called when the user has chosen.
    std::function<void(const Color&)> onChosen;

    void setColor(const Color& color);
    void setTitle(const QString& title) { m_title = title; } // of the dialog

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void openDialog();
    void tell(const Color& color);

    Color m_color;
    QString m_title;
    QPointer<QColorDialog> m_dialog;
};

} // namespace haloric
