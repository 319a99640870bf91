#pragma once

#include "multiplotscheme.h"
#include "samplestore.h"
#include "selectorlayout.h"
#include "selectorwindow.h"

#include <QFrame>
#include <QPixmap>

/// A slider that selects a window of a recording: a bar that stands for the whole of it, with the window as a
/// block that can be dragged, and with numbers below.
///
/// All times are seconds. The window always lies within the total range. What is set by code emits nothing;
/// what the user does, steps and zooms emit as told at the signals. An argument that makes no sense, such as
/// a NaN or a reversed range, is logged as a warning and changes nothing.
///
/// Mouse: the left button drags the window or one of its edges; a click puts the centre of the window to that
/// time, and pressed beside the window it goes on as a drag; Escape gives a drag up. The wheel moves by
/// steps, forwards when turned towards the user. Keys: arrows move by a step (left and up backwards), page
/// keys by the width of the window, Home and End to the ends, plus and minus zoom.
///
/// Colours are those of the palette's active group: Base background, Highlight window, HighlightedText centre
/// line, Text numbers; the widget's font prints the numbers.
class PositionSelector : public QFrame
{
    Q_OBJECT

public:
    explicit PositionSelector(QWidget* parent = nullptr);

    /// A new selector has an empty range, 0 to 0. A window that covered all covers all of the new range,
    /// another is kept as far as it fits. Ends a drag.
    void setTotalRange(double from, double to);
    double totalFrom() const { return m_window.totalFrom(); }
    double totalTo() const { return m_window.totalTo(); }

    /// Width of the window; held within the minimal selection and the total range, around the same centre as
    /// far as there is room.
    void setSelectorRange(double range);
    double selectorRange() const { return m_window.range(); }
    /// Centre of the window; held so that the window lies within the total range.
    void setSelectorPosition(double position);
    double selectorPosition() const { return m_window.position(); }
    /// The edges of the window; one that touches an end of the total range is exactly that end.
    double selectorFrom() const { return m_window.from(); }
    double selectorTo() const { return m_window.to(); }

    /// The least width of the window, above 0. Without it that is a billionth of the total range.
    void setMinimalSelection(double range);
    /// The fraction of the window by which one step moves it, above 0; 0.1 at first.
    void setStep(double fraction);
    /// Move by `count` steps, which may be broken, and emit selectorPositionChange() if the window moved.
    void stepLeft(double count);
    void stepRight(double count);
    /// What one step moves by, in seconds.
    double stepSize() const { return m_window.range() * m_window.step(); }

    /// How the numbers are written; seconds at first.
    void setTimeStyle(MultiPlotScheme::TimeStyle style);
    MultiPlotScheme::TimeStyle timeStyle() const { return m_timeStyle; }

    /// Shows the curve of a signal in the bar, scaled to its extremes. Sample i stands at timeOffset +
    /// i * timePerSample seconds; `timePerSample` is above 0. The samples are shared, not copied.
    void setOverview(const SampleStore& samples, double timePerSample, double timeOffset);
    void clearOverview();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// The window in words, as tooltips and screen readers tell it: "12.5 s to 22.5 s (10 s)".
    QString windowText() const;

public slots:
    /// Halve and double the width around the same centre, within its limits, and emit selectorRangeChange()
    /// if it changed.
    void zoomIn();
    void zoomOut();

signals:
    /// The centre, at each movement while the window is dragged.
    void selectorPositionMove(double position);
    /// The centre, when a drag that moved it has ended (of an edge, too, and back at its start), after a
    /// click, and after a step, by wheel, key or code.
    void selectorPositionChange(double position);
    /// The width, whenever it changes by a dragged edge or by zooming. The centre may have moved with it.
    void selectorRangeChange(double range);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    Q_DISABLE_COPY(PositionSelector)

    /// What a picture of the overview was drawn for.
    struct CurveKey
    {
        QSize devicePixels;
        double ratio = 0.0;
        double from = 0.0;
        double to = 0.0;
        QRgb color = 0;
        bool operator==(const CurveKey& other) const;
    };
    struct CurvePicture
    {
        CurveKey key;
        QPixmap pixmap;
    };

    SelectorLayout layoutFor(double devicePixels) const;
    SelectorLayout layoutNow() const { return layoutFor(devicePixelRatioF()); }
    QColor roleColor(QPalette::ColorRole role) const;
    void paintCurve(QPainter& painter, const SelectorLayout& layout, CurvePicture& picture,
                    const QColor& color);
    void paintWindow(QPainter& painter, const SelectorLayout& layout);
    void paintHandles(QPainter& painter, const SelectorLayout& layout);
    void paintNumbers(QPainter& painter, const SelectorLayout& layout);

    void setTexts();
    QString timesTextAt(double x) const;
    QString timeWithUnit(double seconds) const;
    bool doKey(int key);
    void finishMove(bool moved);
    void finishZoom(bool changed);
    void updateCursor(double x);
    void windowChanged();
    void press(double x);
    void drag(double x);
    void endDrag();
    void cancelDrag();

    SelectorWindow m_window;
    MultiPlotScheme::TimeStyle m_timeStyle = MultiPlotScheme::Seconds;

    bool m_hasOverview = false;
    SampleStore m_overview;
    double m_overviewTimePerSample = 1.0;
    double m_overviewTimeOffset = 0.0;
    CurvePicture m_curve;         // outside the window
    CurvePicture m_selectedCurve; // inside the window

    double m_pressX = 0.0;
    bool m_mayBeClick = false;   // pressed in the window and not yet moved
    bool m_movedByPress = false; // the press that goes on has changed the window
    QString m_ownName;           // texts that were set here and so follow the language
    QString m_ownDescription;
};
