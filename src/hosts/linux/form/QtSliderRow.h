// A slider of the form. It stands on steps counted from the minimum, at the one nearest to the model's value, and tells
// a value only when the user moves it. While the user holds the knob, it stays under the pointer. Main thread.
#pragma once

#include "hosts/linux/form/QtFormRow.h"
#include "hosts/linux/form/QtSlider.h"

namespace haloric {

class QtSliderRow final : public QtFormRow {
public:
    explicit QtSliderRow(const FormRow& row);
    void show(const FormRow& row) override;

private:
    void place();

    QLabel& m_label;
    QtSlider* m_slider;
    FormSlider m_model;
};

} // namespace haloric
