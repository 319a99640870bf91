#pragma once

#include "favoriteviews.h"
#include "labelmemory.h"
#include "multiplotscheme.h"
#include "multiplotschemes.h"
#include "recentfiles.h"

#include <QColor>
#include <QFont>
#include <QPoint>
#include <QSize>
#include <QString>

class IniStore;

/// What the options of the signals browser hold, and the setup of printers and statistics with them.
struct ReviewSetup
{
    static constexpr int FastDrawTimeMost = 86400; ///< seconds; the least is 0
    static constexpr double FastDrawPrecisionLeast = 0.1;
    static constexpr double FastDrawPrecisionMost = 100.0;

    bool useCustomPrintScheme = false; ///< prints with `printScheme`, else as on the screen
    bool fastDrawEnable = true;
    int fastDrawTime = 30;          ///< seconds shown from which on drawing is fast
    double fastDrawPrecision = 1.5; ///< pixels that fast drawing may be off
    MultiPlotScheme printScheme;
    int sigStatWindow = 300; ///< kept for older programs; nothing heeds it
    bool sigStatUseCalib = true;
    int printerPaperSource = 6; ///< a QPrinter::PaperSource; at first the automatic one
    int printerPageSize = 0;    ///< a QPageSize::PageSizeId; at first A4
    int printerOrientation = 1; ///< a QPageLayout::Orientation; at first landscape
    // The colours and the font of the position selector
    QColor rangeBkgColor = Qt::white;
    QColor rangeFrgColor = Qt::yellow;
    QColor rangeCenterColor = Qt::red;
    QFont rangeTextFont; ///< at first the application's, 2 points smaller but no smaller than 6
    QColor rangeTextColor = Qt::black;

    ReviewSetup();
};

/// Where a dialog stood when it closed last.
struct DialogPlace
{
    QPoint position;
    QSize size; ///< invalid where the dialog was never open: then it has its own size

    bool isKnown() const { return size.isValid(); }
};

/// What the signals browser keeps from one window to the next, in its own section.
struct ReviewSettings
{
    static constexpr int ScreenshotLeastPixels = 256; ///< of each side
    static constexpr int ScreenshotMostPixels = 3072; ///< of each side
    static constexpr int ListWidthMost = 4096;        ///< pixels
    static constexpr int VideoTimeFormatMost = 2;     ///< the least is 0

    DialogPlace videoDialog;      ///< at first 640 by 480 in the screen's middle
    int videoTimeFormat = 1;      ///< 0 hours to milliseconds, 1 seconds, 2 milliseconds
    QString labelExportFilter;    ///< the filter picked last for an export of labels
    LabelMemory labels;           ///< templates, and the look of the next label
    MultiPlotSchemes schemes;     ///< looks of the strips
    QString labelTemplatesFolder; ///< the user's documents at first
    QString lastDir;              ///< of data files; the user's documents at first
    ReviewSetup setup;
    int screenshotWidth = 1024;                       ///< pixels
    int screenshotHeight = 768;                       ///< pixels
    QString screenshotFormat = QStringLiteral("BMP"); ///< one of "PNG", "JPG", "BMP" and "XPM"
    QString screenshotFolder;                         ///< the user's documents at first
    DialogPlace managerDialog;                        ///< of labels; 800 by 600 in the middle at first
    DialogPlace statisticsDialog;                     ///< of a signal; unknown at first
    DialogPlace lookDialog;                           ///< of the schemes; unknown at first
    int listWidth = 0;                                ///< pixels of the list of signals; 0 for its own width
    RecentFiles mruFiles;
    FavoriteViews views;

    ReviewSettings();

    /// Name of the section in the settings file.
    static QString section();

    /// The look to print with; `onScreen` is that of the screen.
    MultiPlotScheme printScheme(const MultiPlotScheme& onScreen) const
    {
        return setup.useCustomPrintScheme ? setup.printScheme : onScreen;
    }

    /// What the store does not hold keeps its value, and so does what it holds beyond the limits: those of
    /// the constants above, enumerators that there are not, places beyond those that windows can have, fonts
    /// beyond 512 points or pixels, pens wider than 99 or dashed in a way of their own.
    void load(const IniStore& store);
    /// Into the section, which must exist.
    void save(IniStore& store) const;
};
