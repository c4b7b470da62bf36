#include "hosts/linux/form/QtFormRow.h"

#include "hosts/linux/form/QtFormControls.h"
#include "hosts/linux/form/QtFormStyle.h"
#include "hosts/linux/qt/QtImages.h"
#include "hosts/linux/qt/QtText.h"

#include <algorithm>
#include <cmath>

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QWheelEvent>

namespace haloric {

namespace {

constexpr int kSideMargin = 12; // points
constexpr int kEdgeMargin = 5;
constexpr int kHeight = 40;
constexpr int kGap = 12;
constexpr int kRemoveSize = 16;
constexpr double kMostSteps = 100'000; // of a slider
constexpr int kPages = 5;              // page key presses from one end of a slider to the other

class ToggleRow final : public QtFormRow {
public:
    explicit ToggleRow(const FormRow& row) : QtFormRow(row), m_label(addLabel()), m_switch(new QtSwitch(this))
    {
        addControl(*m_switch, row);
        connect(m_switch, &QCheckBox::clicked, this, [this](bool isOn) {
            if (const auto set = m_set)
                set(isOn);
        });
    }

    void show(const FormRow& row) override
    {
        const auto& toggle = std::get<FormToggle>(row.control);
        m_set = toggle.set;
        m_label.setText(qtText(toggle.label));
        m_label.setEnabled(toggle.isEnabled);
        m_switch->setAccessibleName(qtText(toggle.label));
        m_switch->setChecked(toggle.isOn);
        m_switch->setEnabled(toggle.isEnabled);
    }

private:
    QLabel& m_label;
    QtSwitch* m_switch;
    std::function<void(bool)> m_set;
};

// Its positions are steps counted from the minimum; it shows the one nearest to the model's value. While the user drags
// the knob, it stays under the pointer.
class SliderRow final : public QtFormRow {
public:
    explicit SliderRow(const FormRow& row) : QtFormRow(row), m_label(addLabel()), m_slider(new QtSlider(this))
    {
        addControl(*m_slider, row);
        connect(m_slider, &QSlider::valueChanged, this, [this](int position) {
            if (const auto set = m_model.set)
                set(m_model.minimum + position * m_model.step);
        });
        // The knob of a value beyond the end rests at the end, so that moving it there changes no position.
        connect(m_slider, &QSlider::actionTriggered, this, [this] {
            if (m_slider->sliderPosition() == m_slider->value())
                setToEnd();
        });
        connect(m_slider, &QSlider::sliderReleased, this, [this] {
            setToEnd();
            place();
        });
    }

    void show(const FormRow& row) override
    {
        m_model = std::get<FormSlider>(row.control);
        m_label.setText(qtText(m_model.label));
        m_slider->setAccessibleName(qtText(m_model.label));
        if (!m_slider->isSliderDown())
            place();
    }

private:
    // A value beyond the ends becomes the end that the knob shows.
    void setToEnd()
    {
        const bool isBeyond = m_model.value < m_model.minimum || m_model.value > m_model.maximum;
        if (const auto set = m_model.set; set && isBeyond)
            set(m_model.minimum + m_slider->value() * m_model.step);
    }

    void place()
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

    QLabel& m_label;
    QtSlider* m_slider;
    FormSlider m_model;
};

class ColorWellRow final : public QtFormRow {
public:
    explicit ColorWellRow(const FormRow& row) : QtFormRow(row), m_label(addLabel()), m_well(new QtColorWell(this))
    {
        addControl(*m_well, row);
        m_well->onChosen = [this](const Color& color) {
            if (const auto set = m_set)
                set(color);
        };
    }

    void show(const FormRow& row) override
    {
        const auto& well = std::get<FormColorWell>(row.control);
        m_set = well.set;
        m_label.setText(qtText(well.label));
        m_label.setEnabled(well.isEnabled);
        m_well->setTitle(qtText(well.title.empty() ? well.label : well.title));
        m_well->setAccessibleName(qtText(well.label));
        m_well->setColor(well.color);
        m_well->setEnabled(well.isEnabled);
    }

private:
    QLabel& m_label;
    QtColorWell* m_well;
    std::function<void(const Color&)> m_set;
};

// The wheel scrolls the form, also when it passes over the box.
class ComboBox final : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

class PickerRow final : public QtFormRow {
public:
    explicit PickerRow(const FormRow& row) : QtFormRow(row), m_label(addLabel()), m_box(new ComboBox(this))
    {
        m_box->setFocusPolicy(Qt::StrongFocus);
        addControl(*m_box, row);
        connect(m_box, &QComboBox::activated, this, [this](int index) {
            if (const auto choose = m_choose)
                choose(static_cast<std::size_t>(index));
        });
    }

    void show(const FormRow& row) override
    {
        const auto& picker = std::get<FormPicker>(row.control);
        m_choose = picker.choose;
        m_label.setText(qtText(picker.label));
        m_box->setAccessibleName(qtText(picker.label));
        m_box->setAccessibleDescription(qtText(picker.label)); // Qt reports the chosen option as a box's name
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

private:
    QLabel& m_label;
    QComboBox* m_box;
    std::function<void(std::size_t)> m_choose;
};

QLabel* addIcon(QHBoxLayout& line)
{
    auto* icon = new QLabel;
    line.addWidget(icon);
    return icon;
}

// Whether both are the same file's icon or the same symbol; drawings are not compared. Finding an icon reads files.
bool isSameImage(const Image& a, const Image& b)
{
    const auto* fileA = std::get_if<FileIcon>(&a);
    const auto* fileB = std::get_if<FileIcon>(&b);
    const auto* symbolA = std::get_if<SymbolImage>(&a);
    const auto* symbolB = std::get_if<SymbolImage>(&b);
    return (fileA && fileB && fileA->path == fileB->path) || (symbolA && symbolB && symbolA->name == symbolB->name);
}

// An application in a list, with a button that removes it.
class ListRow final : public QtFormRow {
public:
    explicit ListRow(const FormRow& row)
        : QtFormRow(row),
          m_icon(addIcon(line())),
          m_title(addLabel()),
          m_remove(new QToolButton(this))
    {
        m_remove->setAutoRaise(true);
        m_remove->setFocusPolicy(Qt::StrongFocus);
        m_remove->setIconSize(QSize(kRemoveSize, kRemoveSize));
        addControl(*m_remove, row);
        connect(m_remove, &QToolButton::clicked, this, [this] {
            if (const auto remove = m_model.remove)
                remove();
        });
    }

    void show(const FormRow& row) override
    {
        const auto& shown = std::get<FormListRow>(row.control);
        const bool hasOtherImages =
            !isSameImage(shown.icon, m_model.icon) || !isSameImage(shown.removeImage, m_model.removeImage);
        m_model = shown;
        m_title.setText(qtText(m_model.title));
        const QString label = qtText(m_model.removeLabel);
        m_remove->setAccessibleName(label);
        m_remove->setToolTip(label);
        if (hasOtherImages)
            showImages();
    }

protected:
    void changeEvent(QEvent* event) override
    {
        QtFormRow::changeEvent(event);
        if (event->type() == QEvent::PaletteChange)
            showImages();
    }

private:
    void showImages()
    {
        m_icon->setPixmap(QtImages::pixmap(m_model.icon, m_model.iconSize, devicePixelRatio(), palette()));
        m_remove->setIcon(QtImages::icon(m_model.removeImage, palette()));
    }

    QLabel* m_icon;
    QLabel& m_title;
    QToolButton* m_remove;
    FormListRow m_model;
};

// A button that opens a menu, which is filled when it opens. Without items it shows one empty line.
class MenuRow final : public QtFormRow {
public:
    explicit MenuRow(const FormRow& row) : QtFormRow(row), m_button(new QPushButton(this)), m_menu(new QMenu(m_button))
    {
        m_button->setAutoDefault(false);
        m_button->setMenu(m_menu);
        addOnlyControl(*m_button, row);
        connect(m_menu, &QMenu::aboutToShow, this, [this] { fill(); });
    }

    void show(const FormRow& row) override
    {
        const auto& menu = std::get<FormMenu>(row.control);
        m_button->setText(qtLabel(menu.label));
        m_button->setAccessibleName(qtText(menu.label));
        m_items = menu.items;
    }

private:
    void fill()
    {
        m_menu->clear();
        for (const FormMenuItem& item : m_items ? m_items() : std::vector<FormMenuItem>())
            m_menu->addAction(qtLabel(item.title), this, [perform = item.perform] {
                if (const Task running = perform) // the form may be replaced while it runs
                    running();
            });
        if (m_menu->isEmpty())
            m_menu->addAction(QString())->setEnabled(false);
    }

    QPushButton* m_button;
    QMenu* m_menu;
    std::function<std::vector<FormMenuItem>()> m_items;
};

class ButtonRow final : public QtFormRow {
public:
    explicit ButtonRow(const FormRow& row) : QtFormRow(row), m_button(new QPushButton(this))
    {
        m_button->setAutoDefault(false);
        addOnlyControl(*m_button, row);
        connect(m_button, &QPushButton::clicked, this, [this] {
            if (const Task perform = m_perform)
                perform();
        });
    }

    void show(const FormRow& row) override
    {
        const auto& button = std::get<FormButton>(row.control);
        m_perform = button.perform;
        m_button->setText(qtLabel(button.label));
        m_button->setAccessibleName(qtText(button.label));
    }

private:
    QPushButton* m_button;
    Task m_perform;
};

struct Maker {
    const FormRow& row;
    QtFormRow* operator()(const FormToggle&) const { return new ToggleRow(row); }
    QtFormRow* operator()(const FormSlider&) const { return new SliderRow(row); }
    QtFormRow* operator()(const FormColorWell&) const { return new ColorWellRow(row); }
    QtFormRow* operator()(const FormPicker&) const { return new PickerRow(row); }
    QtFormRow* operator()(const FormListRow&) const { return new ListRow(row); }
    QtFormRow* operator()(const FormMenu&) const { return new MenuRow(row); }
    QtFormRow* operator()(const FormButton&) const { return new ButtonRow(row); }
};

} // namespace

QtFormRow* QtFormRow::make(const FormRow& row)
{
    QtFormRow* made = std::visit(Maker{row}, row.control);
    made->show(row);
    return made;
}

QtFormRow::QtFormRow(const FormRow& row) : m_kind(row.control.index()), m_line(new QHBoxLayout(this))
{
    m_line->setContentsMargins(kSideMargin, kEdgeMargin, kSideMargin, kEdgeMargin);
    m_line->setSpacing(kGap);
    setMinimumHeight(kHeight);
}

QLabel& QtFormRow::addLabel()
{
    auto* label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(1); // clips a word that is too long; otherwise it would push the controls out of the row
    m_line->addWidget(label, 1);
    return *label;
}

void QtFormRow::addControl(QWidget& control, const FormRow& row)
{
    m_control = &control;
    control.setStyle(&QtFormStyle::shared());
    control.setObjectName(qtText(row.id));
    m_line->addWidget(&control, 0, Qt::AlignRight | Qt::AlignVCenter);
}

void QtFormRow::addOnlyControl(QWidget& control, const FormRow& row)
{
    addControl(control, row);
    m_line->addStretch(1);
}

void QtFormRow::makeCompact()
{
    m_line->setContentsMargins(0, 0, 0, 0);
    setMinimumHeight(0);
}

} // namespace haloric
