#include "hosts/linux/form/QtColorWell.h"

#include "hosts/linux/form/QtFocusRing.h"

#include <algorithm>

#include <QColorDialog>
#include <QEvent>

namespace haloric {

namespace {

constexpr double kWidth = 44; // points
constexpr double kHeight = 24;
constexpr double kRadius = 6;
constexpr double kFrame = 3; // between the outline and the colour
constexpr double kDisabledOpacity = 0.35;

QColor qtColor(const Color& color)
{
    const auto component = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(component(color.red), component(color.green), component(color.blue));
}

} // namespace

QtColorWell::QtColorWell(QWidget* parent) : QPushButton(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QPushButton::clicked, this, [this] { openDialog(); });
}

QtColorWell::~QtColorWell() { delete m_dialog; }

QSize QtColorWell::sizeHint() const
{
    return {static_cast<int>(kWidth + 2 * QtFocusRing::kMargin), static_cast<int>(kHeight + 2 * QtFocusRing::kMargin)};
}

void QtColorWell::setColor(const Color& color)
{
    if (m_color == color)
        return;
    m_color = color;
    setAccessibleDescription(qtColor(color).name());
    update();
}

void QtColorWell::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled() && m_dialog)
        m_dialog->reject();
}

void QtColorWell::openDialog()
{
    if (!m_dialog) {
        m_dialog = new QColorDialog(window());
        m_dialog->setWindowTitle(m_title);
        m_dialog->setCurrentColor(qtColor(m_color));
        connect(m_dialog, &QColorDialog::currentColorChanged, this, [this](const QColor& color) {
            const QColor rgb = color.toRgb();
            if (rgb != qtColor(m_color))
                tell({rgb.redF(), rgb.greenF(), rgb.blueF(), 1});
        });
        connect(m_dialog, &QColorDialog::rejected, this, [this, first = m_color] { tell(first); });
        connect(m_dialog, &QColorDialog::finished, m_dialog, &QObject::deleteLater);
    }
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

void QtColorWell::tell(const Color& color)
{
    if (!isEnabled() || color == m_color)
        return;
    setColor(color);
    if (onChosen)
        onChosen(color);
}

void QtColorWell::paintEvent(QPaintEvent*)
{
    const QtFormColors colors(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF well(width() - QtFocusRing::kMargin - kWidth, (height() - kHeight) / 2, kWidth, kHeight);
    if (QtFocusRing::isWanted(*this))
        QtFocusRing::paint(painter, well, kRadius, colors);
    if (!isEnabled())
        painter.setOpacity(kDisabledOpacity);
    painter.setPen(QPen(colors.trackBorder, 1));
    painter.setBrush(isDown() ? colors.track : colors.window);
    painter.drawRoundedRect(well.adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    painter.setPen(QPen(QColor(0, 0, 0, 40), 1));
    painter.setBrush(qtColor(m_color));
    painter.drawRoundedRect(well.adjusted(kFrame + 0.5, kFrame + 0.5, -kFrame - 0.5, -kFrame - 0.5),
                            kRadius - kFrame / 2, kRadius - kFrame / 2);
}

} // namespace haloric
