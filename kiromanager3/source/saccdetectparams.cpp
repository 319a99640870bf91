#include "saccdetectparams.h"

#include "detectionprofile.h"
#include "messages.h"

#include "ui_saccdetectparams.h"

#include <QLocale>

#include <cmath>

SaccDetectParams::SaccDetectParams(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::SaccDetectParamsBase>())
    , m_profiles(this, {tr("Select saccade detection profile"), tr("Select saccade detection profile name"),
                        tr("Saccade detection profile (*.sdp);;All files (*.*)"), QStringLiteral("sdp")})
{
    m_ui->setupUi(this);
    setLocale(QLocale::system());
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setDefault(true);
}

SaccDetectParams::~SaccDetectParams() = default;

void SaccDetectParams::setParams(const SaccadeDetectionParams& params)
{
    m_params = params;
    showValues(params);
}

std::array<SaccDetectParams::TextField, 5> SaccDetectParams::textFields() const
{
    return {{
        {m_ui->editInitVel, &SaccadeDetectionParams::initVel,
         QT_TR_NOOP("Invalid initial velocity threshold field"),
         QT_TR_NOOP("Invalid format of the initial velocity threshold value")},
        {m_ui->editMinSpeed, &SaccadeDetectionParams::minSpeed, QT_TR_NOOP("Invalid speed threshold field"),
         QT_TR_NOOP("Invalid format of the speed threshold value")},
        {m_ui->editMinSlope, &SaccadeDetectionParams::minSlope, QT_TR_NOOP("Invalid slope threshold field"),
         QT_TR_NOOP("Invalid format of the slope threshold value")},
        {m_ui->editMinAmp, &SaccadeDetectionParams::minAmp, QT_TR_NOOP("Invalid minimum amplitude field"),
         QT_TR_NOOP("Invalid minimum amplitude field")},
        {m_ui->editMaxAmp, &SaccadeDetectionParams::maxAmp, QT_TR_NOOP("Invalid maximum amplitude field"),
         QT_TR_NOOP("Invalid maximum amplitude field")},
    }};
}

void SaccDetectParams::showValues(const SaccadeDetectionParams& params)
{
    m_ui->spinGap->setValue(params.gap);
    m_ui->spinMinTime->setValue(params.minTime);
    m_ui->spinMaxTime->setValue(params.maxTime);
    for (const TextField& field : textFields())
        field.edit->setText(shownNumber(params.*field.value));
}

/// Without group separators: a digit more or less would leave them in the wrong place, which parses no more.
QString SaccDetectParams::shownNumber(double value) const
{
    QLocale format = locale();
    format.setNumberOptions(format.numberOptions() | QLocale::OmitGroupSeparator);
    return format.toString(value, 'g', 6);
}

/// Infinity and NaN, which a locale takes for numbers, are no limits to detect with.
bool SaccDetectParams::parseNumber(const QString& text, double& value) const
{
    bool ok = false;
    value = locale().toDouble(text, &ok);
    return ok && std::isfinite(value);
}

/// What the widgets hold, or nothing after a warning about the first field that does not parse.
std::optional<SaccadeDetectionParams> SaccDetectParams::editedParams(const char* TextField::*failureText)
{
    SaccadeDetectionParams params = m_params;
    params.gap = m_ui->spinGap->value();
    params.minTime = m_ui->spinMinTime->value();
    params.maxTime = m_ui->spinMaxTime->value();
    for (const TextField& field : textFields()) {
        if (!parseNumber(field.edit->text(), params.*field.value)) {
            rejectField(field, field.*failureText);
            return std::nullopt;
        }
    }
    return params;
}

void SaccDetectParams::rejectField(const TextField& field, const char* text)
{
    showWarning(this, tr(text));
    field.edit->setFocus();
    field.edit->selectAll();
}

void SaccDetectParams::on_buttonBox_accepted()
{
    if (const auto edited = editedParams(&TextField::notAccepted)) {
        m_params = *edited;
        accept();
    }
}

void SaccDetectParams::on_buttonDefaults_clicked()
{
    showValues(SaccadeDetectionParams::defaults());
}

void SaccDetectParams::on_buttonLoad_clicked()
{
    const QString path = m_profiles.chooseForLoading();
    if (path.isEmpty())
        return;
    SaccadeDetectionParams loaded;
    if (readSaccadeProfile(path, loaded))
        showValues(loaded);
    else
        m_profiles.tellLoadingFailed(path);
}

void SaccDetectParams::on_buttonSave_clicked()
{
    const QString path = m_profiles.chooseForSaving();
    if (path.isEmpty())
        return;
    const auto edited = editedParams(&TextField::notSaved);
    if (edited && !writeSaccadeProfile(path, *edited))
        m_profiles.tellSavingFailed(path);
}
