#pragma once

#include "labeltemplatelist.h"

#include <QDialog>

#include <memory>

namespace Ui
{
class KiroLabelTemplateEditDlgBase;
}

/// Edits the list of label templates: their number, and what the label of each says and how it looks.
class KiroLabelTemplateEditDlg : public QDialog
{
    Q_OBJECT

public:
    explicit KiroLabelTemplateEditDlg(QWidget* parent = nullptr);
    ~KiroLabelTemplateEditDlg() override;

    /// Shows the first template.
    void setTemplates(const QList<LabelTemplate>& templates);
    /// The accepted list; until then, and when the dialog is cancelled, the given one.
    const QList<LabelTemplate>& templates() const { return m_templates; }

    void accept() override;

private slots:
    void on_buttonAddTemplate_clicked();
    void on_buttonDelTemplate_clicked();
    void on_buttonLabelColor_clicked();
    void on_comboTemplate_activated(const QString& name);

private:
    void storeCurrent();
    void showList();
    void showCurrent();

    std::unique_ptr<Ui::KiroLabelTemplateEditDlgBase> m_ui;
    QList<LabelTemplate> m_templates;
    LabelTemplateList m_list;
};
