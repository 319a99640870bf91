#include "detectionparams.h"

SaccadeDetectionParams SaccadeDetectionParams::atStart()
{
    SaccadeDetectionParams params;
    params.local = 7;
    params.gap = 50;
    params.minTime = 20;
    params.maxTime = 300;
    params.initVel = 35.0;
    params.minSpeed = 100.0;
    params.minSlope = 15000.0;
    params.minAmp = 0.0;
    params.maxAmp = 500.0;
    return params;
}

SaccadeDetectionParams SaccadeDetectionParams::defaults()
{
    SaccadeDetectionParams params;
    params.local = 7;
    params.gap = 30;
    params.minTime = 20;
    params.maxTime = 200;
    params.initVel = 20.0;
    params.minSpeed = 100.0;
    params.minSlope = 1000.0;
    params.minAmp = 1.0;
    params.maxAmp = 100.0;
    return params;
}

BlinkDetectionParams BlinkDetectionParams::atStart()
{
    BlinkDetectionParams params;
    params.peakVel1 = 200.0;
    params.peakVel2 = 100.0;
    params.minVel = 20.0;
    params.maxPeaksDistance = 150;
    params.minAmplitude = 15.0;
    params.minAmplitudeRelation = 0.6;
    params.maxAmplitudeRelation = 1.4;
    params.minDuration = 100;
    params.maxDuration = 500;
    return params;
}

BlinkDetectionParams BlinkDetectionParams::defaults()
{
    BlinkDetectionParams params = atStart();
    params.minAmplitudeRelation = 0.5;
    params.maxAmplitudeRelation = 1.5;
    params.minDuration = 200;
    return params;
}
