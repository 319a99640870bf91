#pragma once

#include "jobprogress.h"

#include <QProgressDialog>

/// Shows long work in a modal progress dialog over a window, from 0.3 s on, with a working Cancel.
class DialogProgress final : public JobProgress
{
public:
    /// `label` says what is being done.
    DialogProgress(QWidget* parent, const QString& label);

    void setRange(int minimum, int maximum) override;
    void setValue(int value) override;
    void setText(const QString& text) override;
    /// Also lets the dialog handle the user's events.
    bool cancelled() override;

private:
    QProgressDialog m_dialog;
};
