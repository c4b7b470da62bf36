#include "hosts/linux/shell/QtUpdateProgress.h"

#include "hosts/linux/qt/QtImages.h"

#include <utility>

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace haloric {

namespace {

constexpr int kMargin = 18; // points
constexpr int kMinimumWidth = 280;

} // namespace

QtUpdateProgress::QtUpdateProgress(QtForeground& foreground) : m_foreground(foreground) {}

QtUpdateProgress::~QtUpdateProgress() = default;

void QtUpdateProgress::makeDialog()
{
    m_dialog = std::make_unique<QDialog>();
    m_dialog->setWindowTitle("Software Update");
    m_dialog->setWindowIcon(QtImages::programIcon());
    auto* column = new QVBoxLayout(m_dialog.get());
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSizeConstraint(QLayout::SetFixedSize);
    auto* text = new QLabel(QString::fromUtf8("Checking for updates…"), m_dialog.get());
    text->setMinimumWidth(kMinimumWidth);
    column->addWidget(text);
    auto* bar = new QProgressBar(m_dialog.get());
    bar->setRange(0, 0); // the duration is unknown
    bar->setTextVisible(false);
    bar->setAccessibleName(text->text());
    column->addWidget(bar);
    auto* buttons = new QDialogButtonBox(m_dialog.get());
    buttons->addButton("Cancel", QDialogButtonBox::RejectRole);
    column->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::rejected, m_dialog.get(), &QDialog::reject);
    QObject::connect(m_dialog.get(), &QDialog::rejected, m_dialog.get(), [this] {
        if (const Task cancel = std::exchange(m_onCancel, nullptr))
            cancel();
    });
}

Subscription QtUpdateProgress::show(Task onCancel)
{
    if (!m_dialog)
        makeDialog();
    m_onCancel = std::move(onCancel);
    m_foreground.bring(*m_dialog);
    return Subscription([this] {
        m_onCancel = nullptr;
        m_dialog->hide();
    });
}

} // namespace haloric
