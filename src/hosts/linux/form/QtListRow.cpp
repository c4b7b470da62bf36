#include "hosts/linux/form/QtListRow.h"

#include "hosts/linux/qt/QtImages.h"
#include "hosts/linux/qt/QtText.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace haloric {

namespace {

constexpr int kRemoveSize = 16; // points

QLabel* addIcon(QHBoxLayout& line)
{
    auto* icon = new QLabel;
    line.addWidget(icon);
    return icon;
}

} // namespace

QtListRow::QtListRow(const FormRow& row)
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

void QtListRow::show(const FormRow& row)
{
    m_model = std::get<FormListRow>(row.control);
    m_title.setText(qtText(m_model.title));
    const QString label = qtText(m_model.removeLabel);
    m_remove->setAccessibleName(label);
    m_remove->setToolTip(label);
    showImages();
}

void QtListRow::showImages()
{
    m_icon->setPixmap(QtImages::pixmap(m_model.icon, m_model.iconSize, devicePixelRatio(), palette()));
    m_remove->setIcon(QtImages::icon(m_model.removeImage, palette()));
}

void QtListRow::changeEvent(QEvent* event)
{
    QtFormRow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showImages();
}

} // namespace haloric
