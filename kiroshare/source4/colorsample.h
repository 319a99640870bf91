#pragma once

#include <QLabel>

/// A patch of a colour that bears the colour's name. The colour is in the palette's role QPalette::Window.
class ColorSample : public QLabel
{
    Q_OBJECT

public:
    /// Shows no colour until it is set.
    explicit ColorSample(QWidget* parent = nullptr);

    /// An invalid colour leaves the patch empty.
    void setColor(const QColor& color);
    const QColor& color() const { return m_color; }

private:
    QColor m_color;
};
