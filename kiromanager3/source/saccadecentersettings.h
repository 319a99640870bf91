#pragma once

#include "curveplotscheme.h"
#include "detectionparams.h"
#include "saccadetimes.h"
#include "timewindow.h"

#include <QColor>
#include <QFont>
#include <QPen>
#include <QPoint>
#include <QSize>
#include <QString>

class IniStore;

/// How the charts of the saccades look, on the screen or on paper.
struct SaccadePlotLook
{
    QFont font; ///< of all texts; titles follow from it
    QColor background = Qt::white;
    QColor foreground = Qt::black; ///< of the frame and the texts
    QColor grid = Qt::lightGray;
    QPen eyeSignal;
    QPen saccadeLeft;     ///< saccades on the left eye's signals
    QPen saccadeRight;    ///< saccades on the right eye's signals
    QPen saccadeSelected; ///< the current saccade, of either eye
    QPen blinks;

    /// In the application's font, black on white.
    SaccadePlotLook();
};

/// The look as the charts take it: titles bold and two points larger than the other texts.
CurvePlotScheme curvePlotScheme(const SaccadePlotLook& look);

/// Of the text exports. The flags are kept for the user, and no export heeds them.
struct SaccadeTextExport
{
    bool includeTitle = true;
    bool includeFile = true;
    bool includeFrequency = true;
    bool includeFields = true;
    QString separator = QStringLiteral("\t"); ///< between the fields of a line; never empty
};

/// Of the export of saccades and blinks as labels.
struct SaccadeLabelExport
{
    bool onSignal = true; ///< labels of the eye signals, else of the time
    QColor saccadeColor = Qt::green;
    QColor blinkColor = Qt::cyan;
};

/// Of the export of activity indexes as a recording.
struct SaccadeIndexExport
{
    static constexpr int MostMs = 3600000; ///< of both times; the least is 1

    int windowMs = 3000; ///< what one index value counts
    int updateMs = 300;  ///< from one index value to the next
    /// Whether the proposed comment names the recording in place of the saccade file. Not kept in the store.
    bool commentNamesRecording = false;
};

/// Of the export of the samples of saccades. Only the last two have an effect; the others are kept for the
/// user.
struct SaccadeSampleExport
{
    bool arbitraryUnits = false;
    bool calibFactor = true;
    bool calibUnit = true;
    bool frequency = true;
    bool index = true;
    bool direction = true;
    bool offset = true; ///< subtracts the first sample of a saccade from all its samples
    bool invert = true; ///< writes a falling saccade from its end to its start
};

/// What the saccades browser keeps from one window to the next, in its own section. Its options dialog edits
/// most of it.
struct SaccadeCenterSettings
{
    static constexpr int ScreenshotLeastPixels = 64;  ///< of each side
    static constexpr int ScreenshotMostPixels = 8192; ///< of each side

    QString openFolder;                     ///< where the next file dialog starts
    bool askForSignals = true;              ///< shows the dialog of signals at every detection
    TimeUnit timeUnits = TimeUnit::Seconds; ///< how times are shown and written
    SaccadePlotLook plot;                   ///< on the screen
    bool ownPrintLook = true;               ///< prints with `print`, else as on the screen
    SaccadePlotLook print;                  ///< on paper; see printLook()
    SaccadeTextExport text;
    SaccadeLabelExport labels;
    SaccadeDetectionParams saccadeParams = SaccadeDetectionParams::atStart();
    BlinkDetectionParams blinkParams = BlinkDetectionParams::atStart();
    SaccadeIndexExport indexes;
    SaccadeSampleExport samples;
    QSize screenshotSize = {1600, 1200};              ///< pixels
    QString screenshotFormat = QStringLiteral("PNG"); ///< one of "PNG", "JPG", "BMP" and "XPM"
    QSize statDialogSize = {640, 480};
    QPoint statDialogPosition; ///< of the statistics dialog; at first that size stands in the screen's middle
    double timeWindowMs = TimeWindow::LengthAtStart; ///< length of the shown stretch

    SaccadeCenterSettings();

    /// Name of the section in the settings file.
    static QString section();
    /// The look to print with.
    const SaccadePlotLook& printLook() const { return ownPrintLook ? print : plot; }

    /// What the store does not hold keeps its value, and so does what it holds beyond the limits: a unit that
    /// there is not, times and pixels beyond the constants above and those of TimeWindow, fonts beyond 512
    /// points or pixels, pens wider than 99 or dashed in a way of their own, an empty separator.
    void load(const IniStore& store);
    /// Into the section, which must exist.
    void save(IniStore& store) const;
};
