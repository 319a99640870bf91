#include "palettecolours.h"

#include "colormix.h"

#include <QLabel>
#include <QToolButton>

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Text).lightness() > palette.color(QPalette::Base).lightness();
}

QColor mutedTextColour(const QPalette& palette)
{
    constexpr double TextShare = 0.7;
    return mixedColor(palette.color(QPalette::Active, QPalette::Window),
                      palette.color(QPalette::Active, QPalette::WindowText), TextShare);
}

void muteText(QLabel& label)
{
    QPalette muted;
    muted.setColor(QPalette::WindowText, mutedTextColour(label.parentWidget()->palette()));
    label.setPalette(muted);
}

void showCheckedTools(QWidget& window)
{
    constexpr double HighlightShare = 0.5;
    const QPalette& palette = window.palette();
    QPalette checked;
    if (isDark(palette)) {
        checked.setColor(QPalette::Button,
                         mixedColor(palette.color(QPalette::Active, QPalette::Window),
                                    palette.color(QPalette::Active, QPalette::Highlight), HighlightShare));
    }
    for (QToolButton* button : window.findChildren<QToolButton*>()) {
        if (button->isCheckable())
            button->setPalette(checked);
    }
}
