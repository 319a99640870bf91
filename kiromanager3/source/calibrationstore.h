#pragma once

#include "kirosignal.h"

#include <QString>
#include <QVector>

class KiroReader;

// Writing the calibration of a recording's signals into its header, in place. The samples are not touched.

struct CalibrationStoreResult
{
    enum class Outcome {
        Stored,
        TooOld,    ///< it has calibrated signals, and a header version that stores no calibration
        CannotSave ///< the header could not be written, or is no longer that of these signals
    };

    Outcome outcome = Outcome::Stored;
    QString errorText; ///< what to tell the user; empty if stored

    bool ok() const { return outcome == Outcome::Stored; }
};

/// Stores the calibration of all signals of the recording that `reader` is bound to; `descriptors` are its
/// signals as they were loaded but for that. A failure leaves the file as it was. A header whose version
/// stores no calibration is written as it stands where no signal of the file is calibrated.
CalibrationStoreResult storeCalibration(KiroReader& reader, const QVector<KiroSignal>& descriptors);
