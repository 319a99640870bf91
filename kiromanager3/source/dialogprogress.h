#pragma once

#include "jobguard.h"
#include "jobprogress.h"

#include <QElapsedTimer>
#include <QProgressDialog>

class QProgressBar;

/// Shows long work in a modal progress dialog over a window, from 0.3 s on unless told, with a working
/// Cancel. The window is guarded from the beginning; closing it cancels the work.
class DialogProgress final : public JobProgress
{
public:
    static constexpr int QuietMs = 300;

    /// `label` says what is being done. Work that ends within `quietMs` shows no dialog.
    DialogProgress(QWidget* parent, const QString& label, int quietMs = QuietMs);

    void setRange(int minimum, int maximum) override;
    void setValue(int value) override;
    void setText(const QString& text) override;
    /// Also lets the dialog handle the user's events.
    bool cancelled() override;

private:
    void holdBar();

    JobGuard m_guard; // outlives the dialog, which belongs to the window too
    QProgressDialog m_dialog;
    QProgressBar* m_bar; // of the dialog
    QElapsedTimer m_sinceDrawn;
};
