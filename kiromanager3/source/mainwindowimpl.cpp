#include "mainwindowimpl.h"

#include "appconfig.h"
#include "ui_mainwindowbase.h"

#include <QEvent>
#include <QFontInfo>

namespace
{

/// The text colour drawn back towards the background, yet with a contrast of more than 4.5 to 1.
QColor mutedText(const QPalette& palette)
{
    constexpr double TextShare = 0.7;
    const QColor& text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor& ground = palette.color(QPalette::Active, QPalette::Window);
    const auto mix = [](double a, double b) { return TextShare * a + (1 - TextShare) * b; };
    return QColor::fromRgbF(mix(text.redF(), ground.redF()), mix(text.greenF(), ground.greenF()),
                            mix(text.blueF(), ground.blueF()));
}

void enlargeFont(QWidget* widget, double factor)
{
    QFont font = widget->font();
    font.setPointSizeF(factor * QFontInfo(font).pointSizeF());
    widget->setFont(font);
}

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::MainWindowBase>())
{
    m_ui->setupUi(this);
    setWindowTitle(QStringLiteral("KiroManager ") + appConfig().version());
    enlargeFont(m_ui->labelHeadline, 1.6);
    muteExplanation();
    connect(m_ui->buttonExit, &QPushButton::clicked, this, &QWidget::close);
}

MainWindow::~MainWindow() = default;

void MainWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        muteExplanation();
}

void MainWindow::muteExplanation()
{
    QPalette muted;
    muted.setColor(QPalette::WindowText, mutedText(palette()));
    m_ui->labelExplanation->setPalette(muted);
}
