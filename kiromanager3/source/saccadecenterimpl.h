#pragma once

#include "eyecharts.h"
#include "saccadecentersettings.h"
#include "saccadedocument.h"
#include "timewindow.h"

#include <QMainWindow>

#include <array>
#include <functional>
#include <memory>
#include <optional>

class ElidedLabel;
class KiroHeader;
class KiroReader;
class QLabel;

namespace Ui
{
class SaccadeCenterBase;
}

/// The saccades browser: detects the saccades of a recording or opens a saccade file, shows a stretch of the
/// eye signals with saccades and blinks marked, and lets the user correct them.
class SaccadeCenter : public QMainWindow
{
    Q_OBJECT

public:
    explicit SaccadeCenter(QWidget* parent = nullptr);
    ~SaccadeCenter() override;

    /// Name of its section in the settings file.
    static QString section() { return SaccadeCenterSettings::section(); }

    /// Detects the saccades of a recording. What was shown before stays if the user cancels.
    void detectIn(const QString& path, bool blinksHorizontal);
    /// Shows a saccade file.
    void openFile(const QString& path);

    const SaccadeDocument& document() const { return m_document; }
    const TimeWindow& timeWindow() const { return m_timeWindow; }

public slots:
    void onPlotMousePress(int x, int y, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void onPlotMouseMove(int x, int y);
    void onPlotMouseRelease(int x, int y, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void onPlotMouseDoubleClick(int x, int y, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void onPlotMouseWheel(int x, int y, int delta);

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void customEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private slots:
    void on_actionFileDetect_triggered();
    void on_actionFileDetectBlinksHorz_triggered();
    void on_actionFileRedetect_triggered();
    void on_actionFileOpen_triggered();
    void on_actionFileSave_triggered();
    void on_actionFileSaveAs_triggered();
    void on_actionFileClose_triggered();
    void on_actionEditDetectParams_triggered();
    void on_actionEditBlinksDetectParams_triggered();
    void on_actionEditOptions_triggered();
    void on_scrollTime_valueChanged();
    void on_buttonTimeZoomIn_clicked();
    void on_buttonTimeZoomOut_clicked();
    void on_actionSaccFirst_triggered();
    void on_actionSaccPrev_triggered();
    void on_actionSaccCurrent_triggered();
    void on_actionSaccNext_triggered();
    void on_actionSaccLast_triggered();
    void on_actionSaccRemoveCurrent_triggered();
    void on_actionSaccRemoveSelected_triggered();
    void on_buttonPosScaleZoomIn_clicked();
    void on_buttonPosScaleZoomOut_clicked();
    void on_buttonPosScaleReset_clicked();
    void on_buttonVelScaleZoomIn_clicked();
    void on_buttonVelScaleZoomOut_clicked();
    void on_buttonVelScaleReset_clicked();

private:
    /// What the user wants done with unsaved changes before something else is shown.
    enum class Before { Detecting, Opening, Closing };

    /// One mouse drag over a chart.
    struct Drag
    {
        enum Kind { None, Panning, Adding };

        Kind kind = None;
        int slot = 0;
        int pressX = 0;
        int pressY = 0;
        int pressScroll = 0;
        std::array<ScaleRange, EyeCharts::Count> pressVert; ///< of all slots
    };

    void setUpCharts();
    void setUpActions();
    void setUpSidePanel();
    void setUpTabOrder();
    void loadSettings();
    void saveSettings();

    bool settleUnsaved(Before before);
    void detect(bool blinksHorizontal);
    bool openRecording(KiroReader& reader, const QString& path, const QString& unreadable,
                       const QString& empty);
    std::optional<EyeSignals> chooseSignals(const KiroHeader& header);
    bool loadSignals(const QString& path, const KiroHeader& header, const EyeLoadOptions& options,
                     EyeSignals& eyes, const QString& nextText, const std::function<void()>& next);
    bool loadSignalsOf(const KiroSaccHeader& header, const QString& dataFile, EyeSignals& eyes);
    void warnIfEmpty();
    std::optional<double> askFactor(const QString& name);
    QString locateRecording(const KiroSaccHeader& header, const QString& saccadeFile);
    void offerLeftEdits();
    bool takeUp(LeftEdits& edits);

    void showData();
    void setUpScroll();
    void setScroll(int value);
    void arrangeCharts();
    void applyLook();
    void redraw(bool resetScales);
    void resetPositionScale();
    void resetVelocityScale();
    void zoomTime(bool in);
    void goTo(int index);
    void showSaccade();
    void showDetection();
    void showTimeWindow();
    void showFiles();
    void onDocumentChanged();
    void enableActions();
    void endDrag();
    void pan(int x, int y);
    void mark(int x);
    void add(double t0, double t1);

    std::unique_ptr<Ui::SaccadeCenterBase> m_ui;
    SaccadeCenterSettings m_settings;
    SaccadeDocument m_document;
    TimeWindow m_timeWindow;
    std::unique_ptr<EyeCharts> m_eyeCharts;
    ElidedLabel* m_fileLabel;
    QLabel* m_stateLabel;
    Drag m_drag;
    int m_arrangedCharts = -1;
    bool m_shownBefore = false;
};
