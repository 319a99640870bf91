#include "blinksdetectparams.h"

#include "detectionprofile.h"

#include "ui_blinksdetectparams.h"

#include <QLocale>

BlinksDetectParams::BlinksDetectParams(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::BlinksDetectParamsBase>())
    , m_profiles(this, {tr("Select blinks detection profile"), tr("Select blinks detection profile name"),
                        tr("Blinks detection profile (*.bdp);;All files (*.*)"), QStringLiteral("bdp")})
{
    m_ui->setupUi(this);
    setLocale(QLocale::system());
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setDefault(true);
}

BlinksDetectParams::~BlinksDetectParams() = default;

void BlinksDetectParams::setParams(const BlinkDetectionParams& params)
{
    m_params = params;
    showValues(params);
}

/// Calls `action` with each spin box and the member of the record that it edits.
template <class Action>
void BlinksDetectParams::forEachField(Action action) const
{
    action(m_ui->spinPeakVel1, &BlinkDetectionParams::peakVel1);
    action(m_ui->spinPeakVel2, &BlinkDetectionParams::peakVel2);
    action(m_ui->spinMinVel, &BlinkDetectionParams::minVel);
    action(m_ui->spinMaxPeaksDistance, &BlinkDetectionParams::maxPeaksDistance);
    action(m_ui->spinMinAmplitude, &BlinkDetectionParams::minAmplitude);
    action(m_ui->spinMinAmplitudeRelation, &BlinkDetectionParams::minAmplitudeRelation);
    action(m_ui->spinMaxAmplitudeRelation, &BlinkDetectionParams::maxAmplitudeRelation);
    action(m_ui->spinMinDuration, &BlinkDetectionParams::minDuration);
    action(m_ui->spinMaxDuration, &BlinkDetectionParams::maxDuration);
}

void BlinksDetectParams::showValues(const BlinkDetectionParams& params)
{
    forEachField([&params](auto* box, auto member) { box->setValue(params.*member); });
}

BlinkDetectionParams BlinksDetectParams::editedParams() const
{
    BlinkDetectionParams params;
    forEachField([&params](auto* box, auto member) { params.*member = box->value(); });
    return params;
}

void BlinksDetectParams::on_buttonBox_accepted()
{
    m_params = editedParams();
    accept();
}

void BlinksDetectParams::on_buttonDefaults_clicked()
{
    showValues(BlinkDetectionParams::defaults());
}

void BlinksDetectParams::on_buttonLoad_clicked()
{
    const QString path = m_profiles.chooseForLoading();
    if (path.isEmpty())
        return;
    BlinkDetectionParams loaded;
    if (readBlinkProfile(path, loaded))
        showValues(loaded);
    else
        m_profiles.tellLoadingFailed(path);
}

void BlinksDetectParams::on_buttonSave_clicked()
{
    const QString path = m_profiles.chooseForSaving();
    if (!path.isEmpty() && !writeBlinkProfile(path, editedParams()))
        m_profiles.tellSavingFailed(path);
}
