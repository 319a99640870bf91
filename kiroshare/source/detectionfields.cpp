#include "detectionfields.h"

#include <cmath>

bool parseDetectionValue(const QString& text, double& value)
{
    bool ok = false;
    value = text.toDouble(&ok);
    ok = ok && std::isfinite(value);
    if (!ok)
        value = 0.0;
    return ok;
}

bool parseDetectionValue(const QString& text, std::int32_t& value)
{
    bool ok = false;
    value = text.toInt(&ok);
    return ok;
}
