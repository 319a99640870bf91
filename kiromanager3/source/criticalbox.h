#pragma once

#include <QString>
#include <QtGlobal>

/// Boxes can be shown while an object of this class lives: from the moment the application object is
/// complete until its event loop has ended. There is at most one.
class CriticalBoxPeriod
{
public:
    CriticalBoxPeriod();
    ~CriticalBoxPeriod();

private:
    Q_DISABLE_COPY(CriticalBoxPeriod)
};

/// Whether boxes can be shown now and on this thread, which is the case on the interface's thread within a
/// CriticalBoxPeriod.
bool canShowBox();

/// Shows `text`, as plain text, in a box with an OK button and no parent, and waits until it is answered.
/// Where no box can be shown it writes title and text to standard error instead.
void showCritical(const QString& title, const QString& text);

/// Whether a box of showCritical() waits for its answer.
bool isCriticalBoxOpen();
