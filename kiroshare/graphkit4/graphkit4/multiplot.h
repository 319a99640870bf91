#pragma once

#include "kirolabel.h"
#include "labelstore.h"
#include "multiplotscheme.h"
#include "plot.h"
#include "striplayout.h"
#include "usermode.h"

#include <QFrame>
#include <QPixmap>

#include <cstdint>
#include <memory>
#include <vector>

class StripLook;

/// A stack of signal strips over one time axis, with labels and pointers.
///
/// Owns its strips and labels. What is set shows at the next redraw(); pointers, selections and the play
/// marker are drawn over a picture of the curves, so that moving them never draws a curve.
///
/// Keys, while the widget has the focus, in all modes but UserModeArrow: Left and Right move the pointer by a
/// pixel, or a sample in UserModePoint, ten of them with Shift; Up and Down take it to the strip above or
/// below. In the modes that drag, Space begins a drag at the pointer and ends it. Return acts as a double
/// click at the pointer, and the menu key as a right click. Escape gives up a drag and takes away a measured
/// distance. All other keys are left to the parents.
class MultiPlot : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(int m_nPlotCount READ formPlotCount WRITE setPlotCount)
    Q_PROPERTY(int m_nPrecision READ precision WRITE setPrecision)
    Q_PROPERTY(double m_fHorzGrid READ horzGrid WRITE setHorzGrid)

public:
    using UserMode = ::UserMode;

    explicit MultiPlot(QWidget* parent = nullptr);
    ~MultiPlot() override;

    std::int32_t plotCount = 0; ///< to be read; setPlotCount() changes it
    double horzMin = 0.0;       ///< visible range, seconds
    double horzMax = 1.0;
    QColor bkgColor;                   ///< of the picture; a new scheme brings its own
    UserMode userMode = UserModeArrow; ///< to be read; setUserMode() changes it
    bool showPlayMarker = false;       ///< draw the play marker
    double playMarkerTime = -1.0;      ///< seconds; below 0 there is no marker

    /// New strips without data instead of the old ones; the labels stay. False for less than 0 or more than
    /// 65536, which changes nothing.
    bool setPlotCount(int count);
    /// Null if there is no such strip; valid until the next setPlotCount().
    Plot* plot(int index);
    const Plot* plot(int index) const;

    /// Seconds; exchanged if reversed, ignored unless finite.
    void setHorzScale(double from, double to);
    void setHorzTitle(const QString& title);
    void setHorzUnits(const QString& units);
    /// Step of the time grid in seconds. 0 or less, or a step that would draw lines side by side: as
    /// adjustHorzGrid().
    void setHorzGrid(double seconds);
    /// The step; what adjustHorzGrid() chose if it was called last.
    double horzGrid() const;
    /// Chooses a round step for the range and the width, and again for each later range and width until
    /// setHorzGrid().
    void adjustHorzGrid();

    /// Takes effect at the next redraw(), and at once in print() and in the readers of its parts.
    void setScheme(const MultiPlotScheme& scheme);
    MultiPlotScheme scheme() const { return m_scheme; }
    QFont font() const { return m_scheme.font().resolve(QFrame::font()); }
    QPen frgPen() const { return m_scheme.frg(); }
    QPen dataPen() const { return m_scheme.data(); }
    QPen gridPen() const { return m_scheme.grid(); }
    QPen markerPen() const { return m_scheme.marker(); }
    QPen pointerPen() const { return m_scheme.pointer(); }

    /// Gives up a drag. False for no UserMode.
    bool setUserMode(UserMode mode);
    /// Goes to UserModeTimeSelection and begins a selection at `point`, a pixel of the widget, as if the left
    /// button had just been pressed there. A selection that goes on in that mode only changes its start.
    void forceModeTimeSelection(const QPoint& point);

    /// Repaints now. With `all` the strips and their curves are drawn anew, else only what moves over them.
    void redraw(bool all);
    /// Draw the curves with fewer points, within the tolerance.
    void setFastDrawing(bool fast);
    bool fastDrawing() const { return m_fastDrawing; }
    /// Pixels, 1.5 at first; ignored unless finite and above 0.
    void setFastDrawingTolerance(double pixels);

    /// The identifier of the label, from 1, never used again.
    unsigned addLabel(const KiroLabel& label);
    /// A default label for an unknown identifier.
    KiroLabel label(unsigned id) const { return m_labels.label(id); }
    bool removeLabel(unsigned id);
    void clearAllLabels();
    /// In the order of adding.
    QList<KiroLabel> labelsList() const { return m_labels.list(); }
    /// See LabelStore::findByTime().
    unsigned findLabelByTime(unsigned plot, double time, double tolerance) const;

    /// Pixel of the widget for (seconds, value in the units that the strip draws); (-1, -1) for a strip that
    /// is not shown.
    QPoint getScreenPoint(unsigned plot, const QPointF& point) const;

    /// Draws all visible strips into `rect`, without fast drawing and without pointers.
    void print(QPainter& painter, const QRect& rect);

    /// Decimals of time texts, in seconds; 3 at first.
    int precision() const { return m_precision; }
    /// 0 to 9; ignored otherwise.
    void setPrecision(int decimals);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    // `point` is a pixel of the widget, `plot` the strip under it or -1, `value` holds seconds and the value
    // in the units that the strip draws, 0 without strip.
    void sigMouseLeftPress(const QPoint& point, int plot, const QPointF& value, Qt::MouseButton button,
                           Qt::KeyboardModifiers modifiers);
    void sigMouseLeftRelease(const QPoint& point, int plot, const QPointF& value, Qt::MouseButton button,
                             Qt::KeyboardModifiers modifiers);
    void sigMouseLeftDoubleClick(const QPoint& point, int plot, const QPointF& value, Qt::MouseButton button,
                                 Qt::KeyboardModifiers modifiers);
    void sigMouseRightRelease(const QPoint& point, int plot, const QPointF& value, Qt::MouseButton button,
                              Qt::KeyboardModifiers modifiers);
    void sigMouseMove(const QPoint& point, int plot, const QPointF& value);
    /// Before the sigMouseLeftRelease of the release that ends the selection. Seconds; `plot` is -1 across
    /// all strips.
    void sigPeriodSelected(int plot, double from, double to);
    /// Eighths of a degree.
    void sigMouseWheelEvent(int delta);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    int formPlotCount() const { return plotCount; }
    /// Sets the accessible texts, unless others were set from outside.
    void describe();
    void changed();
    void takeScheme();
    void takeVisibleStrips();
    QVector<int> visibleStrips() const;
    const StripLayout& stripLayout() const;
    StripLayout layoutOn(const QRectF& rect, const StripLook& look, const QVector<int>& shown) const;
    StripLook screenLook() const;
    double focusWidth() const;
    void updatePicture();
    void drawOverlay(QPainter& painter) const;
    void drawPointer(QPainter& painter) const;

    StripPoint pointAt(const QPoint& pixel) const;
    StripPoint pointOfDrag(const QPoint& pixel) const;
    void beginDrag(const QPoint& pixel);
    void endDrag(const QPoint& pixel);
    void cancelDrag();
    bool canCancelDrag() const { return m_drag.isActive() || m_drag.showsDistance(); }
    void movePointer(const QPoint& pixel);
    bool handleKey(int key, Qt::KeyboardModifiers modifiers);
    void ensurePointer();
    void movePointerSideways(int steps);
    void movePointerToStrip(int steps);
    void toggleDrag();

    std::vector<Plot> m_plots;
    QVector<int> m_shown; ///< the strips that the picture shows
    LabelStore m_labels;
    MultiPlotScheme m_scheme;
    MultiPlotScheme m_drawnScheme; ///< as of the last redraw
    bool m_hasNewScheme = false;
    QString m_horzTitle;
    QString m_horzUnits;
    double m_horzGrid = 0.0;
    bool m_choosesGrid = true;
    int m_precision = 3;
    bool m_fastDrawing = false;
    double m_tolerance = 1.5;

    UserDrag m_drag;
    QPoint m_pointer;          ///< pixel of the widget
    StripPoint m_pointerPoint; ///< what stands there
    bool m_hasPointer = false;

    mutable StripLayout m_layout;
    mutable bool m_hasLayout = false;
    mutable double m_chosenGrid = 0.0; ///< what the layout chose
    QPixmap m_picture;
    bool m_hasPicture = false;
    QString m_ownName; ///< texts that were set here and so follow the language
    QString m_ownDescription;
};
