#pragma once

#include <QDialog>

#include <memory>

class QColor;
class QPen;

namespace Ui
{
class PenSetupDialogBase;
}

/// Asks for the colour, width and style of a pen, with a preview. What is not changed stays as it was given,
/// such as caps, joins and a width of 0, which is shown as 1.
class PenSetupDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PenSetupDialog(QWidget* parent = nullptr);
    ~PenSetupDialog() override;

    /// Runs the dialog for `pen`, which the preview draws on `background`; gives the accepted pen, or `pen`
    /// itself if the dialog is cancelled.
    static QPen getPen(QWidget* parent, const QPen& pen, const QColor& background);

    void setPen(const QPen& pen);
    const QPen& pen() const;
    void setBackground(const QColor& background);

private slots:
    void onColor();
    void onWidth();
    void onStyle();

private:
    void showColor();

    std::unique_ptr<Ui::PenSetupDialogBase> m_ui;
};
