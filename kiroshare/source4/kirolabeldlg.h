#pragma once

#include "kirolabel.h"
#include "labeltemplate.h"

#include <QDialog>
#include <QStringList>

#include <memory>

class QAbstractButton;

namespace Ui
{
class KiroLabelDlgBase;
}

/// Edits one label. Its form shows the fields of the label's type; OK is disabled while a number in them is
/// not valid. Numbers are read and shown in the locale of the dialog.
class KiroLabelDlg : public QDialog
{
    Q_OBJECT

public:
    explicit KiroLabelDlg(QWidget* parent = nullptr);
    ~KiroLabelDlg() override;

    /// `totalSeconds` is the duration of the recording, the latest time of a label. A signal without unit
    /// has an empty one, or none where the list of units is shorter. A label of a signal that is not listed
    /// keeps it until another is chosen.
    void setData(const QStringList& signalNames, const QStringList& signalUnits, double totalSeconds,
                 const KiroLabel& label, const QList<LabelTemplate>& templates);
    /// The edited label; the given one once the dialog is cancelled.
    const KiroLabel& label() const { return m_label; }
    /// The templates, which may have been edited even when the dialog is cancelled.
    const QList<LabelTemplate>& templates() const { return m_templates; }

    void reject() override;

private slots:
    void onVerify();
    /// Buttons count from 1, as the entries of the box behind its empty one do.
    void onFastTemplate(int number);
    void on_buttonBox_accepted();
    void on_buttonColor_clicked();
    void on_buttonEditTemplates_clicked();
    void on_comboSignal_activated(int index);
    void on_comboTemplate_activated(const QString& name);
    void on_comboType_activated(const QString& name);

private:
    QList<QAbstractButton*> templateButtons() const;
    void showLabel();
    void showTemplates();
    void showFieldsOfType();
    void showPositionUnit();
    void setColor(const QColor& color);
    void applyTemplate(const LabelTemplate& chosen);

    std::unique_ptr<Ui::KiroLabelDlgBase> m_ui;
    KiroLabel m_label;
    KiroLabel m_given;
    QList<LabelTemplate> m_templates;
    QStringList m_units;
    double m_maxTime = 0.0; ///< seconds
};
