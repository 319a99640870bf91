#pragma once

#include <QColor>
#include <QFont>
#include <QPen>
#include <QString>

/// The look of a MultiPlot: a plain record, copied freely.
class MultiPlotScheme
{
public:
    enum DrawStyle {
        Points = 0, ///< samples only
        Lines = 1   ///< samples connected by lines
    };
    enum UnitType { Time = 0, Samples = 1 };
    enum TimeStyle { Milliseconds = 0, Seconds = 1, Minutes = 2, Hours = 3 };

    /// Thin lines in the colours of a light desktop, time in seconds, both grids.
    MultiPlotScheme();

    QString name() const { return m_name; }
    QFont font() const { return m_font; }
    QColor bkg() const { return m_bkg; }
    QPen frg() const { return m_frg; }
    QPen data() const { return m_data; }
    QPen grid() const { return m_grid; }
    QPen marker() const { return m_marker; } ///< of new labels
    QPen pointer() const { return m_pointer; }
    DrawStyle drawStyle() const { return m_drawStyle; }
    bool horzGrid() const { return m_horzGrid; }
    bool vertGrid() const { return m_vertGrid; }
    UnitType horzUnitType() const { return m_horzUnitType; }
    TimeStyle horzTimeStyle() const { return m_horzTimeStyle; }

    void setName(const QString& name) { m_name = name; }
    void setFont(const QFont& font) { m_font = font; }
    void setBkg(const QColor& color) { m_bkg = color; }
    void setFrg(const QPen& pen) { m_frg = pen; }
    void setData(const QPen& pen) { m_data = pen; }
    void setGrid(const QPen& pen) { m_grid = pen; }
    void setMarker(const QPen& pen) { m_marker = pen; }
    void setPointer(const QPen& pen) { m_pointer = pen; }
    void setDrawStyle(DrawStyle style) { m_drawStyle = style; }
    void setHorzGrid(bool shown) { m_horzGrid = shown; }
    void setVertGrid(bool shown) { m_vertGrid = shown; }
    void setHorzUnitType(UnitType type) { m_horzUnitType = type; }
    void setHorzTimeStyle(TimeStyle style) { m_horzTimeStyle = style; }

    /// The texts that settings hold. An unknown text reads as the first value of its kind but for the draw
    /// style, where it reads as Lines, and the time style, where it reads as Seconds.
    static QString drawStyleString(DrawStyle style);
    static DrawStyle drawStyleFromString(const QString& text);
    static QString horzUnitTypeString(UnitType type);
    static UnitType horzUnitTypeFromString(const QString& text);
    static QString horzTimeStyleString(TimeStyle style);
    static TimeStyle horzTimeStyleFromString(const QString& text);

private:
    QString m_name;
    QFont m_font;
    QColor m_bkg;
    QPen m_frg;
    QPen m_data;
    QPen m_grid;
    QPen m_marker;
    QPen m_pointer;
    DrawStyle m_drawStyle = Lines;
    bool m_horzGrid = true;
    bool m_vertGrid = true;
    UnitType m_horzUnitType = Time;
    TimeStyle m_horzTimeStyle = Seconds;
};
