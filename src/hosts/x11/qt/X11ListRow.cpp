#include "hosts/x11/qt/X11ListRow.h"

#include "hosts/x11/qt/X11Images.h"
#include "hosts/x11/qt/X11Text.h"

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

X11ListRow::X11ListRow(const FormRow& row)
    : X11FormRow(row),
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

void X11ListRow::show(const FormRow& row)
{
    m_model = std::get<FormListRow>(row.control);
    m_title.setText(qtText(m_model.title));
    const QString label = qtText(m_model.removeLabel);
    m_remove->setAccessibleName(label);
    m_remove->setToolTip(label);
    showImages();
}

void X11ListRow::showImages()
{
    m_icon->setPixmap(X11Images::pixmap(m_model.icon, m_model.iconSize, devicePixelRatio(), palette()));
    m_remove->setIcon(X11Images::icon(m_model.removeImage, palette()));
}

void X11ListRow::changeEvent(QEvent* event)
{
    X11FormRow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showImages();
}

} // namespace haloric
