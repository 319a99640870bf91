#include "kirolabeltemplateeditdlg.h"

#include "messages.h"

#include "ui_kirolabeltemplateeditdlg.h"

#include <QColorDialog>
#include <QInputDialog>
#include <QPushButton>

KiroLabelTemplateEditDlg::KiroLabelTemplateEditDlg(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::KiroLabelTemplateEditDlgBase>())
{
    m_ui->setupUi(this);
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setDefault(true);
    setTemplates({});
}

KiroLabelTemplateEditDlg::~KiroLabelTemplateEditDlg() = default;

void KiroLabelTemplateEditDlg::setTemplates(const QList<LabelTemplate>& templates)
{
    m_templates = templates;
    m_list = LabelTemplateList(templates);
    showList();
    m_ui->comboTemplate->setFocus();
}

void KiroLabelTemplateEditDlg::storeCurrent()
{
    m_list.changeCurrent(m_ui->editLabelName->text(), m_ui->editLabelDescription->description(),
                         m_ui->sampleLabelColor->color());
}

void KiroLabelTemplateEditDlg::showList()
{
    m_ui->comboTemplate->clear();
    for (const LabelTemplate& each : m_list.templates())
        m_ui->comboTemplate->addItem(each.templateName);
    m_ui->buttonDelTemplate->setEnabled(m_list.templates().size() > 1);
    m_ui->comboTemplate->setEnabled(m_list.current() >= 0);
    m_ui->groupSettings->setEnabled(m_list.current() >= 0);
    showCurrent();
}

void KiroLabelTemplateEditDlg::showCurrent()
{
    const LabelTemplate shown = m_list.currentTemplate();
    m_ui->comboTemplate->setCurrentIndex(m_list.current());
    m_ui->editLabelName->setText(shown.labelName);
    m_ui->editLabelDescription->setDescription(shown.labelDescription);
    m_ui->sampleLabelColor->setColor(shown.labelColor);
}

void KiroLabelTemplateEditDlg::accept()
{
    storeCurrent();
    m_templates = m_list.templates();
    QDialog::accept();
}

void KiroLabelTemplateEditDlg::on_buttonAddTemplate_clicked()
{
    const QString name = QInputDialog::getText(this, windowTitle(), tr("Enter new label template name"),
                                               QLineEdit::Normal, tr("New label template"));
    // A name of blanks alone would be an empty line in the list.
    if (name.trimmed().isEmpty())
        return;
    if (m_list.indexOf(name) >= 0) {
        showWarning(
            this,
            tr("The label template name \"%1\" already exists!\nPlease use unique template name.").arg(name));
        return;
    }
    storeCurrent();
    m_list.add(name);
    showList();
    m_ui->editLabelName->setFocus();
}

void KiroLabelTemplateEditDlg::on_buttonDelTemplate_clicked()
{
    if (m_list.removeCurrent())
        showList();
}

void KiroLabelTemplateEditDlg::on_buttonLabelColor_clicked()
{
    const QColor color = QColorDialog::getColor(m_ui->sampleLabelColor->color(), this, tr("Label color"));
    if (color.isValid())
        m_ui->sampleLabelColor->setColor(color);
}

void KiroLabelTemplateEditDlg::on_comboTemplate_activated(const QString& name)
{
    storeCurrent();
    m_list.setCurrent(m_list.indexOf(name));
    showCurrent();
}
