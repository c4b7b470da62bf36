#include "hosts/linux/form/QtPickerRow.h"

#include "hosts/linux/qt/QtText.h"

#include <QComboBox>
#include <QLabel>
#include <QWheelEvent>

namespace haloric {

namespace {

// The wheel scrolls the form, also when it passes over the box.
class Box final : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

} // namespace

QtPickerRow::QtPickerRow(const FormRow& row) : QtFormRow(row), m_label(addLabel()), m_box(new Box(this))
{
    m_box->setFocusPolicy(Qt::StrongFocus);
    addControl(*m_box, row);
    connect(m_box, &QComboBox::activated, this, [this](int index) {
        if (const auto choose = m_choose)
            choose(static_cast<std::size_t>(index));
    });
}

void QtPickerRow::show(const FormRow& row)
{
    const auto& picker = std::get<FormPicker>(row.control);
    m_choose = picker.choose;
    m_label.setText(qtText(picker.label));
    m_box->setAccessibleName(qtText(picker.label));
    m_box->setAccessibleDescription(qtText(picker.label)); // Qt gives the chosen option as a box's name
    QStringList options;
    for (const std::string& option : picker.options)
        options.append(qtText(option));
    QStringList shown;
    for (int index = 0; index < m_box->count(); ++index)
        shown.append(m_box->itemText(index));
    if (shown != options) {
        m_box->clear();
        m_box->addItems(options);
    }
    m_box->setCurrentIndex(static_cast<int>(picker.selected));
}

} // namespace haloric
