#include "colormix.h"

QColor mixedColor(const QColor& below, const QColor& above, double strength)
{
    const auto mix = [strength](double first, double second) { return first + (second - first) * strength; };
    return QColor::fromRgbF(mix(below.redF(), above.redF()), mix(below.greenF(), above.greenF()),
                            mix(below.blueF(), above.blueF()));
}
