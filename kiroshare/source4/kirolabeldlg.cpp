#include "kirolabeldlg.h"

#include "kirolabeltemplateeditdlg.h"
#include "labelentry.h"
#include "templatebuttons.h"

#include "ui_kirolabeldlg.h"

#include <QColorDialog>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>

namespace
{

/// Room for a unit, in characters; the middle of longer ones is left out.
constexpr int UnitCharacters = 16;

void setAllVisible(const QList<QWidget*>& widgets, bool visible)
{
    for (QWidget* widget : widgets)
        widget->setVisible(visible);
}

} // namespace

KiroLabelDlg::KiroLabelDlg(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::KiroLabelDlgBase>())
{
    m_ui->setupUi(this);
    for (uint i = 0; i < KiroLabel::TypeCount; ++i)
        m_ui->comboType->addItem(KiroLabel::typeToName(KiroLabel::indexToType(i)));
    for (const QLineEdit* edit : {m_ui->editPosition, m_ui->editStartTime, m_ui->editEndTime})
        connect(edit, &QLineEdit::textChanged, this, &KiroLabelDlg::onVerify);
    const QList<QAbstractButton*> buttons = templateButtons();
    for (int i = 0; i < buttons.size(); ++i)
        connect(buttons[i], &QAbstractButton::clicked, this, [this, i] { onFastTemplate(i + 1); });
    m_ui->labelPositionUnit->setMaximumWidth(fontMetrics().averageCharWidth() * UnitCharacters);
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setDefault(true);
    setData({}, {}, 0.0, KiroLabel(), {});
}

KiroLabelDlg::~KiroLabelDlg() = default;

QList<QAbstractButton*> KiroLabelDlg::templateButtons() const
{
    return {m_ui->buttonTemplate1, m_ui->buttonTemplate2, m_ui->buttonTemplate3, m_ui->buttonTemplate4,
            m_ui->buttonTemplate5, m_ui->buttonTemplate6, m_ui->buttonTemplate7, m_ui->buttonTemplate8,
            m_ui->buttonTemplate9, m_ui->buttonTemplate10};
}

void KiroLabelDlg::setData(const QStringList& signalNames, const QStringList& signalUnits,
                           double totalSeconds, const KiroLabel& label, const QList<LabelTemplate>& templates)
{
    m_given = label;
    m_label = label;
    m_templates = templates;
    m_units = signalUnits;
    m_maxTime = totalSeconds;
    m_ui->comboSignal->clear();
    m_ui->comboSignal->addItems(signalNames);
    showTemplates();
    showLabel();
    onVerify();
    m_ui->editName->setFocus();
    m_ui->editName->selectAll();
}

void KiroLabelDlg::showLabel()
{
    m_ui->editName->setText(m_label.name());
    m_ui->editDescription->setDescription(m_label.description());
    m_ui->sampleColor->setColor(m_label.color);
    m_ui->comboType->setCurrentIndex(m_ui->comboType->findText(KiroLabel::typeToName(m_label.type)));
    const bool isListed = m_label.signal < quint32(m_ui->comboSignal->count());
    m_ui->comboSignal->setCurrentIndex(isListed ? int(m_label.signal) : -1);
    // None of the numbers is verified before all are shown.
    const QSignalBlocker blockers[] = {QSignalBlocker(m_ui->editStartTime), QSignalBlocker(m_ui->editEndTime),
                                       QSignalBlocker(m_ui->editPosition)};
    const LabelEntry entry = LabelEntry::of(m_label, locale());
    m_ui->editStartTime->setText(entry.start);
    m_ui->editEndTime->setText(entry.end);
    m_ui->editPosition->setText(entry.position);
    showPositionUnit();
    showFieldsOfType();
}

void KiroLabelDlg::showTemplates()
{
    fillTemplateBox(*m_ui->comboTemplate, m_templates);
    fillTemplateButtons(templateButtons(), m_templates);
}

void KiroLabelDlg::showFieldsOfType()
{
    setAllVisible({m_ui->labelSignal, m_ui->comboSignal}, m_label.hasSignal());
    setAllVisible({m_ui->labelPosition, m_ui->editPosition, m_ui->labelPositionUnit}, m_label.hasValue());
    setAllVisible({m_ui->labelEndTime, m_ui->editEndTime, m_ui->labelEndTimeUnit}, m_label.hasEnd());
}

void KiroLabelDlg::showPositionUnit()
{
    const QString unit = m_units.value(m_label.signalSignedInt());
    m_ui->labelPositionUnit->setText(unit.isEmpty() ? QString() : QStringLiteral("[%1]").arg(unit));
}

void KiroLabelDlg::setColor(const QColor& color)
{
    m_label.color = color;
    m_ui->sampleColor->setColor(color);
}

void KiroLabelDlg::reject()
{
    m_label = m_given;
    QDialog::reject();
}

void KiroLabelDlg::onVerify()
{
    const LabelEntry entry{m_ui->editStartTime->text(), m_ui->editEndTime->text(),
                           m_ui->editPosition->text()};
    const bool valid = entry.store(m_label, m_maxTime, locale());
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(valid);
}

void KiroLabelDlg::on_buttonBox_accepted()
{
    m_label.setName(m_ui->editName->text());
    m_label.setDescription(m_ui->editDescription->description());
    accept();
}

void KiroLabelDlg::on_buttonColor_clicked()
{
    const QColor color = QColorDialog::getColor(m_label.color, this, tr("Label color"));
    if (color.isValid())
        setColor(color);
}

void KiroLabelDlg::on_buttonEditTemplates_clicked()
{
    KiroLabelTemplateEditDlg dialog(this);
    dialog.setTemplates(m_templates);
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_templates = dialog.templates();
    showTemplates();
}

void KiroLabelDlg::on_comboSignal_activated(int index)
{
    if (index < 0)
        return;
    m_label.signal = quint32(index);
    showPositionUnit();
}

void KiroLabelDlg::on_comboType_activated(const QString& name)
{
    m_label.type = KiroLabel::nameToType(name);
    showPositionUnit();
    showFieldsOfType();
    onVerify();
}

void KiroLabelDlg::on_comboTemplate_activated(const QString& name)
{
    const auto found = std::find_if(m_templates.begin(), m_templates.end(),
                                    [&](const LabelTemplate& each) { return each.templateName == name; });
    if (found != m_templates.end())
        applyTemplate(*found);
}

void KiroLabelDlg::onFastTemplate(int number)
{
    if (number < 1 || number > m_templates.size())
        return;
    m_ui->comboTemplate->setCurrentIndex(number);
    applyTemplate(m_templates[number - 1]);
}

void KiroLabelDlg::applyTemplate(const LabelTemplate& chosen)
{
    m_ui->editName->setText(chosen.labelName);
    m_ui->editDescription->setDescription(chosen.labelDescription);
    setColor(chosen.labelColor);
}
