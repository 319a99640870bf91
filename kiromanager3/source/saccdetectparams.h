#pragma once

#include "detectionparams.h"
#include "profilefiles.h"

#include <QDialog>

#include <array>
#include <memory>
#include <optional>

class QLineEdit;

namespace Ui
{
class SaccDetectParamsBase;
}

/// Edits the parameters of the saccade detection, and loads and saves them as profiles.
///
/// The doubles are text fields in the number format of the dialog's locale, which is the system's, with six
/// significant digits. The half width of a peak's window is not editable and stays as it was given.
class SaccDetectParams : public QDialog
{
    Q_OBJECT

public:
    explicit SaccDetectParams(QWidget* parent = nullptr);
    ~SaccDetectParams() override;

    /// Shows a record; what lies beyond the limits of a spin box is cut to them.
    void setParams(const SaccadeDetectionParams& params);
    /// The record that was set, or the edited one once the dialog is accepted.
    const SaccadeDetectionParams& params() const { return m_params; }

    /// The folders of profiles; both start as empty.
    ProfileFiles& profiles() { return m_profiles; }

private slots:
    void on_buttonBox_accepted();
    void on_buttonDefaults_clicked();
    void on_buttonLoad_clicked();
    void on_buttonSave_clicked();

private:
    /// A text field with what is said when it holds no number.
    struct TextField
    {
        QLineEdit* edit;
        double SaccadeDetectionParams::*value;
        const char* notAccepted;
        const char* notSaved;
    };
    std::array<TextField, 5> textFields() const;

    void showValues(const SaccadeDetectionParams& params);
    QString shownNumber(double value) const;
    bool parseNumber(const QString& text, double& value) const;
    std::optional<SaccadeDetectionParams> editedParams(const char* TextField::*failureText);
    void rejectField(const TextField& field, const char* text);

    std::unique_ptr<Ui::SaccDetectParamsBase> m_ui;
    SaccadeDetectionParams m_params;
    ProfileFiles m_profiles;
};
