#pragma once

#include "detectionparams.h"
#include "kirosaccade.h"
#include "kirosaccheader.h"

#include <QList>
#include <QString>

/// What a saccades browser has in hand and could lose: the saccades and blinks of one recording with all that
/// it takes to save them. A plain value.
struct SaccadeState
{
    KiroSaccHeader header; ///< its arrays are those of the last save; the lists below count
    QList<KiroSaccade> saccades;
    QList<KiroBlink> blinks;
    int currentSaccade = 0; ///< index in `saccades`
    SaccadeDetectionParams saccadeParams = SaccadeDetectionParams::atStart();
    BlinkDetectionParams blinkParams = BlinkDetectionParams::atStart();
    QString saccadeFile; ///< path of the saccade file; empty until saved
    QString dataFile;    ///< path of the recording
};
