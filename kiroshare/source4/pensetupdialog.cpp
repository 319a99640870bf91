#include "pensetupdialog.h"

#include "ui_pensetupdialog.h"

#include <QColorDialog>
#include <QPushButton>
#include <QSignalBlocker>

#include <iterator>

namespace
{

/// The styles in the order in which the form lists them.
constexpr Qt::PenStyle Styles[] = {Qt::NoPen,   Qt::SolidLine,   Qt::DashLine,
                                   Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine};

int indexOfStyle(Qt::PenStyle style)
{
    for (int i = 0; i < int(std::size(Styles)); ++i) {
        if (Styles[i] == style)
            return i;
    }
    return -1;
}

} // namespace

PenSetupDialog::PenSetupDialog(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::PenSetupDialogBase>())
{
    m_ui->setupUi(this);
    connect(m_ui->buttonColor, &QPushButton::clicked, this, &PenSetupDialog::onColor);
    connect(m_ui->spinWidth, QOverload<int>::of(&QSpinBox::valueChanged), this, &PenSetupDialog::onWidth);
    connect(m_ui->comboStyle, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PenSetupDialog::onStyle);
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setDefault(true);
    setPen(m_ui->preview->pen());
}

PenSetupDialog::~PenSetupDialog() = default;

QPen PenSetupDialog::getPen(QWidget* parent, const QPen& pen, const QColor& background)
{
    PenSetupDialog dialog(parent);
    dialog.setPen(pen);
    dialog.setBackground(background);
    return dialog.exec() == QDialog::Accepted ? dialog.pen() : pen;
}

void PenSetupDialog::setPen(const QPen& pen)
{
    const QSignalBlocker widthBlocker(m_ui->spinWidth);
    const QSignalBlocker styleBlocker(m_ui->comboStyle);
    m_ui->preview->setPen(pen);
    m_ui->spinWidth->setValue(pen.width());
    m_ui->comboStyle->setCurrentIndex(indexOfStyle(pen.style()));
    showColor();
}

const QPen& PenSetupDialog::pen() const
{
    return m_ui->preview->pen();
}

void PenSetupDialog::setBackground(const QColor& background)
{
    m_ui->preview->setBackground(background);
}

void PenSetupDialog::onColor()
{
    const QColor color = QColorDialog::getColor(pen().color(), this, tr("Pen color"));
    if (!color.isValid())
        return;
    QPen changed = pen();
    changed.setColor(color);
    m_ui->preview->setPen(changed);
    showColor();
}

void PenSetupDialog::onWidth()
{
    QPen changed = pen();
    changed.setWidth(m_ui->spinWidth->value());
    m_ui->preview->setPen(changed);
}

void PenSetupDialog::onStyle()
{
    const int index = m_ui->comboStyle->currentIndex();
    if (index < 0)
        return;
    QPen changed = pen();
    changed.setStyle(Styles[index]);
    m_ui->preview->setPen(changed);
}

/// On the button: the colour as a patch and, for those who see it differently, by its name.
void PenSetupDialog::showColor()
{
    const QColor color = pen().color();
    QPixmap patch(m_ui->buttonColor->iconSize() * devicePixelRatioF());
    patch.fill(color);
    patch.setDevicePixelRatio(devicePixelRatioF());
    m_ui->buttonColor->setIcon(QIcon(patch));
    m_ui->buttonColor->setText(color.name());
}
