#include "calibrationstore.h"

#include "kiroreader.h"

#include <QCoreApplication>

#include <algorithm>

namespace
{

using Outcome = CalibrationStoreResult::Outcome;

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(CalibrationStore)
};

/// Whether two descriptors are of the same signal, whatever its calibration.
bool isSameSignal(const KiroSignal& one, const KiroSignal& other)
{
    return one.fullName == other.fullName && one.shortName == other.shortName &&
           one.ratePeriod == other.ratePeriod && one.samplesPerPeriod == other.samplesPerPeriod &&
           one.valueType == other.valueType && one.samplesPerFrame == other.samplesPerFrame &&
           one.sampleSize == other.sampleSize;
}

CalibrationStoreResult notUpdated(const QString& why)
{
    return {Outcome::CannotSave, Texts::tr("An error has occured during updating file header.\n%1").arg(why)};
}

} // namespace

CalibrationStoreResult checkCalibrationStore(const KiroReader& reader, const QVector<KiroSignal>& descriptors)
{
    const KiroHeader& header = reader.header();
    const std::vector<KiroSignal>& stored = header.signalTable();
    const bool isCalibrated =
        std::any_of(stored.begin(), stored.end(), [](const KiroSignal& signal) { return signal.calibrated; });
    if (isCalibrated && !header.hasField(KiroHeader::CalibrationField)) {
        return {Outcome::TooOld,
                Texts::tr("There are calibrated signals in the current data file,\n") +
                    Texts::tr("but the header version is too old and does not support calibration.\n") +
                    Texts::tr("If you want to store calibration please convert this data file\n") +
                    Texts::tr("using the \"Save as binary\" option in DataFile Center")};
    }
    if (!std::equal(stored.begin(), stored.end(), descriptors.begin(), descriptors.end(), isSameSignal))
        return notUpdated(Texts::tr("The file is no longer the one that was opened: it has other signals."));
    return {};
}

CalibrationStoreResult storeCalibration(KiroReader& reader, const QVector<KiroSignal>& descriptors)
{
    const CalibrationStoreResult check = checkCalibrationStore(reader, descriptors);
    if (!check.ok())
        return check;
    for (int i = 0; i < descriptors.size(); ++i)
        reader.header().setSignal(i, descriptors[i]);
    return reader.updateHeader() ? CalibrationStoreResult() : notUpdated(reader.errorText().toQString());
}
