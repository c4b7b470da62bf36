#include "hosts/linux/shell/QtPanels.h"

#include "hosts/linux/form/QtFormStyle.h"
#include "hosts/linux/qt/QtImages.h"
#include "hosts/linux/qt/QtText.h"
#include "hosts/linux/shell/QtApplicationChooser.h"

#include <QLabel>
#include <QShortcut>
#include <QVBoxLayout>

namespace haloric {

namespace {

constexpr int kMinimumWidth = 300; // points
constexpr int kMargin = 24;
constexpr int kIconSize = 72;
constexpr double kNameSize = 1.4; // relative to the font of the rest
// The model's points are 1/96 inch, those of Qt's fonts 1/72 inch.
constexpr double kFontPointsPerPoint = 0.75;

QString versionText(const AboutPanel& panel)
{
    QString text = "Version " + qtText(panel.applicationVersion);
    if (!panel.version.empty())
        text += " (" + qtText(panel.version) + ")";
    return text;
}

} // namespace

QtAboutPanel::QtAboutPanel()
{
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    const QIcon picture = QtImages::programIcon();
    setWindowIcon(picture);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kMargin / 3);
    column->setSizeConstraint(QLayout::SetFixedSize);
    auto* icon = new QLabel(this);
    icon->setPixmap(picture.pixmap(QSize(kIconSize, kIconSize), devicePixelRatio()));
    icon->setAlignment(Qt::AlignHCenter);
    icon->setMinimumWidth(kMinimumWidth);
    column->addWidget(icon);
    m_name = addText();
    m_version = addText();
    m_credits = addText();
    QFont large = m_name->font();
    large.setPointSizeF(large.pointSizeF() * kNameSize);
    large.setBold(true);
    m_name->setFont(large);
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_W), this), &QShortcut::activated, this, [this] { close(); });
}

QLabel* QtAboutPanel::addText()
{
    auto* label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignHCenter);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout()->addWidget(label);
    return label;
}

void QtAboutPanel::setContent(const AboutPanel& panel)
{
    setWindowTitle("About " + qtText(panel.applicationName));
    m_name->setText(qtText(panel.applicationName));
    m_version->setText(versionText(panel));
    QPalette muted = palette();
    muted.setColor(QPalette::WindowText, QtFormColors(palette()).mutedText);
    m_version->setPalette(muted);
    m_credits->setText(qtText(panel.credits));
    if (panel.creditsFontSize > 0) {
        QFont font = m_credits->font();
        font.setPointSizeF(panel.creditsFontSize * kFontPointsPerPoint);
        m_credits->setFont(font);
    }
}

void QtPanels::orderFrontStandardAboutPanel(const AboutPanel& panel)
{
    if (!m_about)
        m_about = std::make_unique<QtAboutPanel>();
    m_about->setContent(panel);
    m_foreground.bring(*m_about);
}

std::optional<std::string> QtPanels::runModalOpenPanel(const OpenPanel& panel)
{
    QtApplicationChooser chooser(panel.prompt);
    m_foreground.expect(chooser);
    return chooser.exec() == QDialog::Accepted ? chooser.chosen() : std::nullopt;
}

} // namespace haloric
