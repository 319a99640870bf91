#pragma once

#include <QChar>
#include <QFont>
#include <QPen>
#include <QPointF>
#include <QString>
#include <QVector>

#include <iterator>

/// One curve of a CurvePlot: named points and how they are drawn. A plain value; copies share the points.
///
/// Points with a coordinate that is NaN or infinite are gaps. A CurvePlot doesn't notice what is set here:
/// its update() shows it.
class Curve
{
public:
    enum Style {
        /// Lines from point to point; a point without neighbours, as between two gaps, is a dot. With a pen
        /// of the style Qt::NoPen the points alone, as dots.
        Plain = 0,
        Dots = 1,      ///< a dot at each point, at least 3 pixels wide
        Characters = 2 ///< a character centred on each point, in the pen's colour
    };

    /// What the points cover, found once after they change.
    struct Extent
    {
        bool empty = true; ///< no finite point
        double minX = 0.0;
        double maxX = 0.0;
        double minY = 0.0;
        double maxY = 0.0;
        bool ordered = false; ///< every x is finite and not below the one before
    };

    explicit Curve(const QString& name = QString());

    QString name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }

    /// Without a pen a curve is drawn in the foreground colour of its plot.
    void setPen(const QPen& pen);
    QPen pen() const { return m_pen; }
    bool hasPen() const { return m_hasPen; }

    /// `character` and `font` count for Characters alone.
    void setStyle(Style style, QChar character = QChar(), const QFont& font = QFont());
    Style style() const { return m_style; }
    QChar character() const { return m_character; }
    QFont font() const { return m_font; }

    /// A hidden curve is neither drawn nor found.
    void setVisible(bool visible);
    bool isVisible() const { return m_visible; }

    /// Shown, letter by letter, in place of the plot's own tooltip; empty for none.
    void setToolTip(const QString& text) { m_toolTip = text; }
    QString toolTip() const { return m_toolTip; }

    const QVector<QPointF>& points() const { return m_points; }

    void clearData();
    void setData(const QVector<QPointF>& points);
    /// `count` points. False, and the data stays, if it is below 0 or an array that is needed is null.
    bool setData(const double* x, const double* y, int count);
    /// Points from two ranges of doubles. False, a warning in the log, and the data stays, if they are not of
    /// the same length.
    template <class XIterator, class YIterator>
    bool setData(XIterator firstX, XIterator lastX, YIterator firstY, YIterator lastY);

    /// See Extent; one pass over the points, kept until they change.
    const Extent& extent() const;

private:
    static bool sizesAgree(qint64 xCount, qint64 yCount);
    void clearDrawing() { m_extentKnown = false; }

    QString m_name;
    QString m_toolTip;
    QVector<QPointF> m_points;
    QPen m_pen;
    QFont m_font;
    QChar m_character;
    Style m_style = Plain;
    bool m_hasPen = false;
    bool m_visible = true;
    mutable bool m_extentKnown = false;
    mutable Extent m_extent;
};

template <class XIterator, class YIterator>
bool Curve::setData(XIterator firstX, XIterator lastX, YIterator firstY, YIterator lastY)
{
    const qint64 count = std::distance(firstX, lastX);
    if (!sizesAgree(count, std::distance(firstY, lastY)))
        return false;
    m_points.resize(static_cast<int>(count));
    for (QPointF& point : m_points) {
        point = QPointF(*firstX, *firstY);
        ++firstX;
        ++firstY;
    }
    clearDrawing();
    return true;
}
