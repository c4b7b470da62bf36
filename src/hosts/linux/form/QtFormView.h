// A form: sections that scroll, and a notice and buttons fixed below them. Main thread.
#pragma once

#include "hosts/linux/form/QtFlowLayout.h"
#include "hosts/linux/form/QtFormRow.h"
#include "hosts/linux/form/QtFormSection.h"
#include "hosts/linux/form/QtKeyedWidgets.h"
#include "platform/FormModel.h"

#include <string>
#include <vector>

#include <QWidget>

class QLabel;
class QScrollArea;
class QVBoxLayout;

namespace haloric {

class QtFormView final : public QWidget {
public:
    explicit QtFormView(QWidget* parent);

    void show(const FormModel& form);

    // The sections' callbacks for when the form comes on screen.
    std::vector<Task> onAppear() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void orderTabs();
    void showNotice(const std::string& notice);

    QScrollArea* m_scroll;
    QWidget* m_content;
    QVBoxLayout* m_column;
    QLabel* m_notice; // between the sections and the buttons
    QtFlowLayout* m_line;
    QtKeyedWidgets<QtFormSection> m_sections;
    QtKeyedWidgets<QtFormRow, QtFlowLayout> m_buttons;
};

} // namespace haloric
