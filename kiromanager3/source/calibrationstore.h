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

/// Whether the calibration of the recording that `reader` is bound to can be stored at all, as far as that is
/// known without writing; `descriptors` are its signals as they were loaded but for the calibration.
CalibrationStoreResult checkCalibrationStore(const KiroReader& reader,
                                             const QVector<KiroSignal>& descriptors);

/// Stores the calibration of all signals of that recording, after the same check. A failure leaves the file
/// as it was, unless the disk failed while the header was written over. A header whose version stores no
/// calibration is written as it stands where no signal of the file is calibrated.
CalibrationStoreResult storeCalibration(KiroReader& reader, const QVector<KiroSignal>& descriptors);
