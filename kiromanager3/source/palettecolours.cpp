#include "palettecolours.h"

#include <QLabel>

QColor mutedTextColour(const QPalette& palette)
{
    constexpr double TextShare = 0.7;
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor ground = palette.color(QPalette::Active, QPalette::Window);
    const auto mix = [](double a, double b) { return TextShare * a + (1 - TextShare) * b; };
    return QColor::fromRgbF(mix(text.redF(), ground.redF()), mix(text.greenF(), ground.greenF()),
                            mix(text.blueF(), ground.blueF()));
}

void muteText(QLabel& label)
{
    QPalette muted;
    muted.setColor(QPalette::WindowText, mutedTextColour(label.parentWidget()->palette()));
    label.setPalette(muted);
}
