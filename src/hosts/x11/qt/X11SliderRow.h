// A slider of the form. It stands on steps counted from the minimum, at the one nearest to the model's value, and tells
// a value only when the user moves it. While the user holds the knob, it stays under the pointer. Main thread.
#pragma once

#include "hosts/x11/qt/X11FormRow.h"
#include "hosts/x11/qt/X11Slider.h"

namespace haloric {

class X11SliderRow final : public X11FormRow {
public:
    explicit X11SliderRow(const FormRow& row);
    void show(const FormRow& row) override;

private:
    void place();

    QLabel& m_label;
    X11Slider* m_slider;
    FormSlider m_model;
};

} // namespace haloric
