#pragma once

#include <QColor>
#include <QFont>
#include <QPen>

/// The look of a CurvePlot: a plain record, copied freely.
class CurvePlotScheme
{
public:
    /// Black on white with a light grid, in the application's font; the title bold and two points larger.
    CurvePlotScheme();

    QFont title() const { return m_title; }
    QFont axis() const { return m_axis; } ///< of the numbers
    QFont axisTitle() const { return m_axisTitle; }
    QPen grid() const { return m_grid; }
    QColor bkg() const { return m_bkg; }
    /// Of the frame around the curves; its colour is that of all texts too.
    QPen border() const { return m_border; }

    void setTitle(const QFont& font) { m_title = font; }
    void setAxis(const QFont& font) { m_axis = font; }
    void setAxisTitle(const QFont& font) { m_axisTitle = font; }
    void setGrid(const QPen& pen) { m_grid = pen; }
    void setBkg(const QColor& color) { m_bkg = color; }
    void setBorder(const QPen& pen) { m_border = pen; }

    /// The font of a title over text in `font`: bold and two points larger.
    static QFont titleFontOf(const QFont& font);

private:
    QFont m_title;
    QFont m_axis;
    QFont m_axisTitle;
    QPen m_grid;
    QColor m_bkg;
    QPen m_border;
};
