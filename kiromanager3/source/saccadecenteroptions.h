#pragma once

#include "saccadecentersettings.h"

#include <QDialog>

#include <array>
#include <memory>

class PreviewFrame;
class QColor;
class QPushButton;

namespace Ui
{
class SaccadeCenterOptionsBase;
}

/// Edits the options of the saccades browser.
///
/// Of the settings it shows and changes all but the last folder, the parameters of the detections, the shown
/// time window and the place of the statistics dialog.
class SaccadeCenterOptions : public QDialog
{
    Q_OBJECT

public:
    explicit SaccadeCenterOptions(QWidget* parent = nullptr);
    ~SaccadeCenterOptions() override;

    /// Runs the dialog for `settings`, where it stood the last time, and keeps its place in the program's
    /// settings file. Changes `settings` and returns true if it is accepted.
    static bool edit(QWidget* parent, SaccadeCenterSettings& settings);
    /// The section with the dialog's place.
    static QString section();

    /// Shows settings; what lies beyond the limits of a spin box is cut to them.
    void setSettings(const SaccadeCenterSettings& settings);
    /// The settings that were set, or the edited ones once the dialog is accepted.
    const SaccadeCenterSettings& settings() const { return m_settings; }

private slots:
    void on_buttonBox_accepted();
    void on_buttonEyeSignal_clicked();
    void on_buttonSaccLeft_clicked();
    void on_buttonSaccRight_clicked();
    void on_buttonSaccSelected_clicked();
    void on_buttonBlinks_clicked();
    void on_buttonPrintEyeSignal_clicked();
    void on_buttonPrintSaccLeft_clicked();
    void on_buttonPrintSaccRight_clicked();
    void on_buttonPrintSaccSelected_clicked();
    void on_buttonPrintBlinks_clicked();
    void on_buttonSeparator_clicked();

private:
    struct ColorField
    {
        QPushButton* button;
        QColor* color;
    };
    struct PenField
    {
        QPushButton* button;
        PreviewFrame* preview;
        const QPen* pen;
    };
    /// The widgets of a look with what of `m_edited` they show.
    struct LookFields
    {
        SaccadePlotLook* look;
        QPushButton* font;
        std::array<PenField, 5> pens;
    };
    std::array<LookFields, 2> looks();
    std::array<ColorField, 8> colors();

    void editPen(const SaccadePlotLook& look, QPen& pen);
    void editFont(const LookFields& fields);
    void editColor(const ColorField& field);
    void showSimpleFields();
    void readSimpleFields();
    void showChosen();
    void showLook(const LookFields& fields);
    void showOnButton(QPushButton& button, const QString& text) const;
    QIcon patchOf(const QColor& color, const QSize& size) const;

    std::unique_ptr<Ui::SaccadeCenterOptionsBase> m_ui;
    SaccadeCenterSettings m_settings;
    SaccadeCenterSettings
        m_edited; ///< what is chosen in dialogs is here at once, the rest when it is accepted
};
