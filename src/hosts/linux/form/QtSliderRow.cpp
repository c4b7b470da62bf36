#include "hosts/linux/form/QtSliderRow.h"

#include "hosts/linux/qt/QtText.h"

#include <algorithm>
#include <cmath>

#include <QLabel>
#include <QSignalBlocker>

namespace haloric {

namespace {

constexpr double kMostSteps = 100'000;
constexpr int kPages = 5; // that the keys for a page take from one end to the other

} // namespace

QtSliderRow::QtSliderRow(const FormRow& row) : QtFormRow(row), m_label(addLabel()), m_slider(new QtSlider(this))
{
    addControl(*m_slider, row);
    connect(m_slider, &QSlider::valueChanged, this, [this](int position) {
        if (const auto set = m_model.set)
            set(m_model.minimum + position * m_model.step);
    });
    connect(m_slider, &QSlider::sliderReleased, this, [this] { place(); });
}

void QtSliderRow::show(const FormRow& row)
{
    m_model = std::get<FormSlider>(row.control);
    m_label.setText(qtText(m_model.label));
    m_slider->setAccessibleName(qtText(m_model.label));
    if (!m_slider->isSliderDown())
        place();
}

void QtSliderRow::place()
{
    const QSignalBlocker quiet(m_slider);
    const auto steps = [this](double distance) {
        return m_model.step > 0 ? std::clamp(std::round(distance / m_model.step), 0.0, kMostSteps) : 0.0;
    };
    const int last = static_cast<int>(steps(m_model.maximum - m_model.minimum));
    m_slider->setRange(0, last);
    m_slider->setPageStep(std::max(1, last / kPages));
    m_slider->setValue(static_cast<int>(steps(m_model.value - m_model.minimum)));
    m_slider->update();
}

} // namespace haloric
