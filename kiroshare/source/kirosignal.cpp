#include "kirosignal.h"

double KiroSignal::frequency() const
{
    return samplesPerPeriod * 1000.0 / ratePeriod;
}
