#pragma once

#include "detectionparams.h"
#include "profilefiles.h"

#include <QDialog>

#include <memory>

namespace Ui
{
class BlinksDetectParamsBase;
}

/// Edits the parameters of the blink detection, and loads and saves them as profiles.
///
/// Numbers are in the format of the dialog's locale, which is the system's, with two decimals.
class BlinksDetectParams : public QDialog
{
    Q_OBJECT

public:
    explicit BlinksDetectParams(QWidget* parent = nullptr);
    ~BlinksDetectParams() override;

    /// Shows a record; what lies beyond the limits of a spin box is cut to them.
    void setParams(const BlinkDetectionParams& params);
    /// The record that was set, or the edited one once the dialog is accepted.
    const BlinkDetectionParams& params() const { return m_params; }

    /// The folders of profiles; both start as empty.
    ProfileFiles& profiles() { return m_profiles; }

private slots:
    void on_buttonBox_accepted();
    void on_buttonDefaults_clicked();
    void on_buttonLoad_clicked();
    void on_buttonSave_clicked();

private:
    template <class Action>
    void forEachField(Action action) const;
    void showValues(const BlinkDetectionParams& params);
    BlinkDetectionParams editedParams() const;

    std::unique_ptr<Ui::BlinksDetectParamsBase> m_ui;
    BlinkDetectionParams m_params;
    ProfileFiles m_profiles;
};
