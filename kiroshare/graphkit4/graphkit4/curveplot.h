#pragma once

#include "curve.h"
#include "curveplotlayout.h"
#include "curveplotscheme.h"

#include <QFrame>
#include <QList>
#include <QPoint>
#include <QVector>

#include <optional>

/// A chart of any number of curves over two scales.
///
/// What is set shows at the next repaint, which the setters of the plot ask for; a change of a Curve through
/// its iterator is shown by update(). Iterators and the places of curves hold until a curve is added or
/// removed. Pixels are those of the widget. A number that makes no sense, such as a NaN limit, is logged as a
/// warning and changes nothing.
///
/// Colours and fonts that were not set are those of the palette (Base background, Text foreground) and of the
/// widget, and follow them.
///
/// Keys: Left and Right move a mark from point to point of the curve in front and read the point out, with
/// Shift by some ten pixels at least; Escape puts the mark away. All other keys are left to the parents, and
/// so are these where they have nothing to do.
class CurvePlot : public QFrame
{
    Q_OBJECT

public:
    using CurveIterator = QList<Curve>::iterator;

    explicit CurvePlot(QWidget* parent = nullptr);
    ~CurvePlot() override;

    /// Adds an empty curve in front of all others and gives its index.
    int addCurve(const QString& name);
    /// The indices of the curves behind it in the list go down by one. False if there is no such curve.
    bool removeCurve(int index);
    /// Removes curves from the end or adds nameless ones. False if `count` is below 0 or above a million.
    bool setCurveCount(int count);
    int curveCount() const { return m_curves.size(); }
    /// curveListEnd() if there is no such curve.
    CurveIterator curve(int index);
    CurveIterator curveListEnd() { return m_curves.end(); }
    /// Draws the curve last; the indices stay.
    void curveToFront(int index);

    /// The topmost visible curve within `tolerance` pixels of a point in axis units; curveListEnd() if none.
    ///
    /// A negative tolerance is the default: the topmost curve under the pointer, which is to say within
    /// CurveHit::DefaultReach pixels, and if there is none the nearest one at any distance.
    /// Distances are to the drawn lines, or where there are none to the points.
    ///
    /// `nameFilter` leaves out curves: with `isExpression` it is a regular expression that a name must match
    /// as a whole, else the name itself; empty it leaves out none.
    CurveIterator curveFromPoint(double x, double y, double tolerance = -1.0,
                                 const QString& nameFilter = QString(), bool isExpression = true);

    /// Limits; the first may be above the second, then the axis runs the other way. Equal ones are shown with
    /// some room on both sides. Finite, up to 1e300.
    void setHorzMin(double min);
    void setHorzMax(double max);
    void setHorzMinMax(double min, double max);
    void setVertMin(double min);
    void setVertMax(double max);
    void setVertMinMax(double min, double max);
    double horzMin() const { return m_horz.min; }
    double horzMax() const { return m_horz.max; }
    double vertMin() const { return m_vert.min; }
    double vertMax() const { return m_vert.max; }

    /// Steps of the grid, not below 0; 0 for none.
    void setHorzGrid(double step);
    void setVertGrid(double step);
    double horzGrid() const { return m_horz.grid; }
    double vertGrid() const { return m_vert.grid; }
    /// A value that has a grid line.
    void setHorzGridStart(double value);
    void setVertGridStart(double value);
    double horzGridStart() const { return m_horz.gridStart; }
    double vertGridStart() const { return m_vert.gridStart; }
    /// Sets both steps to 1, 2 or 5 times a power of ten that divides the limits into five to ten parts.
    void adjustGrid();

    /// Decimals of the scale numbers, -1 (as at first) for as many as the grid needs; above 15 counts as 15.
    void setHorzPrecision(int decimals);
    void setVertPrecision(int decimals);

    void setTitle(const QString& title);
    void setHorzTitle(const QString& title);
    void setVertTitle(const QString& title);
    QString title() const { return m_title; }
    QString horzTitle() const { return m_horz.title; }
    QString vertTitle() const { return m_vert.title; }
    /// The vertical numbers get at least the room of this text, so that charts below each other line up.
    void setVertScaleWidthTemplate(const QString& text);

    /// Tooltips of the point under the mouse. In `format` %1 stands for its horizontal and %2 for its
    /// vertical value, with two decimals more than the scales, and %3 for the name of the curve; an empty
    /// format is "%1; %2". A curve's own tooltip goes before.
    void setShowToolTips(bool show, const QString& format = QString());

    /// The look in force.
    CurvePlotScheme scheme() const;
    void setScheme(const CurvePlotScheme& scheme);
    QColor bkgColor() const { return scheme().bkg(); }
    QPen borderPen() const { return scheme().border(); }
    QPen gridPen() const { return scheme().grid(); }
    QFont axisFont() const { return scheme().axis(); }
    QFont axisTitleFont() const { return scheme().axisTitle(); }
    QFont titleFont() const { return scheme().title(); }
    void setBkgColor(const QColor& color);
    void setBorderPen(const QPen& pen);
    void setGridPen(const QPen& pen);
    void setAxisFont(const QFont& font);
    void setAxisTitleFont(const QFont& font);
    void setTitleFont(const QFont& font);

    /// Value at the centre of a pixel, and the pixel of a value; the one undoes the other.
    double horzScaleValue(int x) const;
    double vertScaleValue(int y) const;
    /// Held within a billion pixels.
    int horzScalePoints(double value) const;
    int vertScalePoints(double value) const;
    /// A distance in pixels in axis units, with the same sign.
    double horzPoints2Scale(int pixels) const;
    double vertPoints2Scale(int pixels) const;
    /// The pixels that show curves.
    QRect plotArea() const;

    /// Draws the chart into a rectangle. Pens and fonts are those of the screen, in pixels, times `scale`:
    /// the dots per inch of the printer divided by those of the screen give the screen's proportions.
    void print(QPainter& painter, const QRect& rect, double scale);
    /// The same in another look.
    void print(QPainter& painter, const QRect& rect, double scale, const CurvePlotScheme& scheme);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// In widget pixels. mouseMove() comes without a pressed button too if mouse tracking is on.
    void mousePress(int x, int y, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void mouseRelease(int x, int y, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void mouseDoubleClick(int x, int y, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void mouseMove(int x, int y);
    /// `delta` is in eighths of a degree, above 0 away from the user.
    void mouseWheel(int x, int y, int delta);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// What was set of the look; the rest follows palette and font.
    struct Look
    {
        std::optional<QColor> bkg;
        std::optional<QPen> border;
        std::optional<QPen> grid;
        std::optional<QFont> axis;
        std::optional<QFont> axisTitle;
        std::optional<QFont> title;
    };

    void setLimits(CurvePlotAxis& axis, double min, double max);
    void setGrid(CurvePlotAxis& axis, double step);
    void setGridStart(CurvePlotAxis& axis, double value);
    void setPrecision(CurvePlotAxis& axis, int decimals);
    /// For all that may move parts of the picture.
    void layoutChanged();
    CurvePlotContents contents(const CurvePlotScheme& scheme, const QRect& rect) const;
    const CurvePlotLayout& plotLayout() const;

    bool isCurve(int index) const { return index >= 0 && index < m_curves.size(); }
    void showToolTipAt(const QPoint& place, const QPoint& globalPlace);
    QString toolTipText(const Curve& curve, const QPointF& point) const;
    int frontCurve() const;
    bool hasPointMark() const;
    bool movePointMark(int step, bool far);
    void readPointMarkOut();
    void removePointMark();
    void drawFocus(QPainter& painter) const;
    void drawMark(QPainter& painter) const;
    /// Sets the accessible texts, unless others were set from outside.
    void describe();

    QList<Curve> m_curves;
    QVector<int> m_order; // of drawing
    CurvePlotAxis m_horz;
    CurvePlotAxis m_vert;
    QString m_title;
    QString m_vertScaleWidthTemplate;
    bool m_showToolTips = false;
    QString m_toolTipFormat;
    Look m_look;
    mutable bool m_layoutKnown = false;
    mutable QRect m_layoutRect;
    mutable CurvePlotLayout m_layout;
    int m_markedCurve = -1; // of the keyboard's mark, or -1
    int m_markedPoint = 0;
    QString m_readOut; // what the mark says
    bool m_focusByKeys = false;
    QString m_ownName; // texts that were set here and so follow the titles
    QString m_ownDescription;
};
