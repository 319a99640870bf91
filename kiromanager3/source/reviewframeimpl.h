#pragma once

#include "interactionmode.h"
#include "labelhistory.h"
#include "loadedrecording.h"
#include "reviewsettings.h"
#include "signalviewstate.h"

#include <QPointF>
#include <QVector>
#include <QWidget>

#include <functional>
#include <memory>

class DialogProgress;
class JobProgress;
class MultiPlot;
class PositionSelector;
class QAction;
class QButtonGroup;
class QMenu;

namespace Ui
{
class ReviewFrameBase;
}

/// The signals browser: the signals of one recording as a stack of strips over a window of time.
///
/// All samples are in memory while a recording is shown; its file is not touched.
class ReviewFrame : public QWidget
{
    Q_OBJECT

public:
    explicit ReviewFrame(QWidget* parent = nullptr);
    ~ReviewFrame() override;

    /// Name of its section in the settings file.
    static QString section() { return ReviewSettings::section(); }

    /// Shows a recording. If that fails, which is told, or is cancelled, what was shown before stays.
    void loadFile(const QString& path);

    /// The recording that is shown; without one its path is empty.
    const LoadedRecording& recording() const { return m_recording; }
    InteractionMode mode() const { return m_mode; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void customEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void on_buttonLoad_clicked();
    /// Writes the calibration into the recording. The button is enabled while it differs from the file's.
    void on_buttonSave_clicked();
    void onMenuMRU(QAction* action);

    void on_spinDataWidth_valueChanged(int width);
    void on_buttonSetupLines_toggled(bool on);
    void on_buttonSetupHorzGrid_toggled(bool on);
    void on_buttonSetupVertGrid_toggled(bool on);
    void onGotoTime();
    void onSelectionTime();

    void on_listSignals_itemSelectionChanged();
    void onSignalShowAll();
    void onSignalOnly();
    void onSignalSwitch();
    void on_comboFavoriteViews_activated(const QString& name);
    void on_buttonFavoriteViewAdd_clicked();
    void on_buttonFavoriteViewRemove_clicked();

    void on_rangeSelector_selectorPositionMove(double position);
    void on_rangeSelector_selectorPositionChange(double position);
    void on_rangeSelector_selectorRangeChange(double range);

    void onModeChanged();
    void onMouseLeftPress(const QPoint& point, int plot, const QPointF& value, Qt::MouseButton button,
                          Qt::KeyboardModifiers modifiers);
    void onMouseLeftRelease(const QPoint& point, int plot, const QPointF& value, Qt::MouseButton button,
                            Qt::KeyboardModifiers modifiers);
    void onMouseLeftDoubleClick(const QPoint& point, int plot, const QPointF& value, Qt::MouseButton button,
                                Qt::KeyboardModifiers modifiers);
    void onMouseRightRelease(const QPoint& point, int plot, const QPointF& value, Qt::MouseButton button,
                             Qt::KeyboardModifiers modifiers);
    void onMouseMove(const QPoint& point, int plot, const QPointF& value);
    void onPeriodSelected(int plot, double from, double to);
    void onMouseWheelEvent(int delta);

    void onSignalScaleAuto();
    void onSignalScaleFixed();
    void onSignalScaleTracing();

    void onLoadMarkers();
    void onAddMarkers();
    void onSaveMarkers();
    void onSaveMarkersAs();
    void onNewMarkers();
    void onEditLabel();
    void onDeleteLabel();

private:
    void setUpNavigation();
    void setUpModes();
    void setUpStrips();
    void setUpContextMenu();
    void loadSettings();
    void saveSettings();

    bool isOpen() const { return !m_recording.currentFile.isEmpty(); }
    /// Whether what was changed and not stored may be left: it was stored, or is not wanted.
    bool settleUnsaved();
    void openAfterQuestions(const QString& path);
    bool loadInto(LoadedRecording& recording, DialogProgress& progress);
    void viewAsLeft(LoadedRecording& recording, SignalViewState& state, int& favoriteIndex);
    void storeViewState();
    void showRecording(LoadedRecording recording, const SignalViewState& state, int favoriteIndex);
    void fillFavoriteViews();
    void fillSignals();
    void fillRecentFiles();
    void showRange();
    void enableControls();

    void applyLook();
    void changeScheme(const std::function<void(MultiPlotScheme&)>& change);
    void redraw();
    void showWindowTexts();
    void windowMoved();
    void setWindowOfTime(double position, double range);
    void showStrips(const std::function<bool(int)>& isShown);
    void selectShown();
    QStringList signalNames() const;
    QStringList shownSignalNames() const;

    void showStatus(int plot, const QPointF& value);
    void showReadout(double seconds);
    void clearReadout();
    double labelTolerance() const;
    /// The label under the mouse and that of the context menu may be gone.
    void forgetFoundLabels();
    void makeLabel(KiroLabel label);
    bool editLabel(KiroLabel& label);
    void toDrawn(KiroLabel& label) const;
    void toRaw(KiroLabel& label) const;
    /// Makes a change of the labels by `change`, which can be undone.
    void changeLabels(const QString& text, const std::function<void()>& change);
    void takeLabels(const QList<KiroLabel>& labels);
    QList<KiroLabel> chooseLabels(QString& path);
    bool saveLabels(const QString& path);
    void setScaleType(Plot::ScaleType type, const std::function<void(Plot&)>& change);

    std::unique_ptr<Ui::ReviewFrameBase> m_ui;
    MultiPlot* m_plots; ///< of the form
    PositionSelector* m_selector;
    QButtonGroup* m_modeButtons;
    QMenu* m_recentMenu;
    QMenu* m_contextMenu;

    ReviewSettings m_settings;
    LoadedRecording m_recording;
    SignalViewState m_viewState; ///< of the recording, as it was loaded
    LabelHistory m_labelHistory;
    QString m_lastLabelFile;    ///< empty until labels are loaded or saved
    bool m_addedLabels = false; ///< whether those of that file were added to others, and not yet saved
    bool m_handingOnKey = false;

    InteractionMode m_mode = InteractionMode::Arrow;
    UserMode m_savedUserMode = UserModeArrow;            ///< what a press with Ctrl replaced
    InteractionMode m_savedMode = InteractionMode::Zoom; ///< where no such press goes on
    bool m_leftPressed = false;
    int m_pressPlot = -1;
    QPointF m_pressPoint;
    int m_contextPlot = -1; ///< of the last right click
    QPointF m_contextPoint;
    unsigned m_contextLabel = 0; ///< 0 for none

    QAction* m_openLabelsAction = nullptr;
    QAction* m_addLabelsAction = nullptr;
    QAction* m_saveLabelsAction = nullptr;
    QAction* m_saveLabelsAsAction = nullptr;
    QAction* m_exportLabelsAction = nullptr;
    QAction* m_manageLabelsAction = nullptr;
    QAction* m_clearLabelsAction = nullptr;
    QAction* m_gotoTimeAction = nullptr;
    QAction* m_selectionTimeAction = nullptr;
    QVector<QAction*> m_calibrationActions;
    QAction* m_editLabelAction = nullptr;
    QAction* m_deleteLabelAction = nullptr;
    QAction* m_scaleAutoAction = nullptr;
    QAction* m_scaleFixedAction = nullptr;
    QAction* m_scaleTracingAction = nullptr;
};
