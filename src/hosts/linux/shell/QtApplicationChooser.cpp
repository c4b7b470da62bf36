#include "hosts/linux/shell/QtApplicationChooser.h"

#include "hosts/linux/files/DesktopEntries.h"
#include "hosts/linux/qt/QtImages.h"
#include "hosts/linux/qt/QtText.h"

#include <algorithm>

#include <QAbstractButton>
#include <QCollator>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace haloric {

namespace {

constexpr int kIconSize = 24; // points
constexpr QSize kSize{420, 460};
constexpr int kPathRole = Qt::UserRole;

} // namespace

QtApplicationChooser::QtApplicationChooser(const std::string& prompt)
    : m_search(new QLineEdit(this)),
      m_list(new QListWidget(this))
{
    setWindowTitle("Choose Application");
    setWindowIcon(QtImages::programIcon());
    resize(kSize);
    m_search->setPlaceholderText("Search");
    m_search->setAccessibleName("Search");
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    m_list->setIconSize(QSize(kIconSize, kIconSize));
    m_list->setAccessibleName("Applications");
    m_list->setUniformItemSizes(true);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    m_confirm = buttons->addButton(qtLabel(prompt), QDialogButtonBox::AcceptRole);
    m_confirm->setDefault(true);
    for (QAbstractButton* button : buttons->buttons())
        button->setIcon({}); // some styles add icons
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString& text) { filter(text); });
    connect(m_list, &QListWidget::itemActivated, this, [this] { accept(); });
    connect(m_list, &QListWidget::itemSelectionChanged, this, [this] { m_confirm->setEnabled(chosen().has_value()); });

    auto* column = new QVBoxLayout(this);
    column->addWidget(m_search);
    column->addWidget(m_list, 1);
    column->addWidget(buttons);
    fill();
    selectFirst();
    m_search->setFocus();
}

std::optional<std::string> QtApplicationChooser::chosen() const
{
    const auto selected = m_list->selectedItems();
    if (selected.isEmpty() || selected.front()->isHidden())
        return std::nullopt;
    return plainText(selected.front()->data(kPathRole).toString());
}

void QtApplicationChooser::fill()
{
    auto files = DesktopEntries::shown();
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::stable_sort(files, [&collator](const ApplicationFile& a, const ApplicationFile& b) {
        return collator.compare(qtText(a.name), qtText(b.name)) < 0;
    });
    for (const ApplicationFile& file : files) {
        const QPixmap icon =
            QtImages::pixmap(FileIcon{file.path}, {kIconSize, kIconSize}, devicePixelRatio(), palette());
        auto* item = new QListWidgetItem(icon, qtText(file.name), m_list);
        item->setData(kPathRole, qtText(file.path));
    }
}

void QtApplicationChooser::filter(const QString& text)
{
    for (int row = 0; row < m_list->count(); ++row)
        m_list->item(row)->setHidden(!m_list->item(row)->text().contains(text, Qt::CaseInsensitive));
    selectFirst();
}

void QtApplicationChooser::selectFirst()
{
    m_list->setCurrentItem(nullptr);
    m_list->clearSelection();
    for (int row = 0; row < m_list->count(); ++row) {
        if (!m_list->item(row)->isHidden()) {
            m_list->setCurrentRow(row);
            break;
        }
    }
    m_confirm->setEnabled(chosen().has_value());
}

// The arrow keys move through the list while the search field has the focus.
bool QtApplicationChooser::eventFilter(QObject* object, QEvent* event)
{
    if (object == m_search && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(m_list, event);
            return true;
        default:
            break;
        }
    }
    return QDialog::eventFilter(object, event);
}

} // namespace haloric
