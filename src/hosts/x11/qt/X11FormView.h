// A form: sections that scroll, and buttons below them that stay. Main thread.
#pragma once

#include "hosts/x11/qt/X11FlowLayout.h"
#include "hosts/x11/qt/X11FormRow.h"
#include "hosts/x11/qt/X11FormSection.h"
#include "hosts/x11/qt/X11KeyedWidgets.h"
#include "platform/FormModel.h"

#include <vector>

#include <QWidget>

class QScrollArea;
class QVBoxLayout;

namespace haloric {

class X11FormView final : public QWidget {
public:
    explicit X11FormView(QWidget* parent);

    void show(const FormModel& form);

    // What the sections want called when they come on screen.
    std::vector<Task> onAppear() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void orderTabs();

    QScrollArea* m_scroll;
    QWidget* m_content;
    QVBoxLayout* m_column;
    X11FlowLayout* m_line;
    X11KeyedWidgets<X11FormSection> m_sections;
    X11KeyedWidgets<X11FormRow, X11FlowLayout> m_buttons;
};

} // namespace haloric
