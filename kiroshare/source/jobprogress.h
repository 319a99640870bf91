#pragma once

#include <QString>

/// How long work tells its caller where it stands and asks whether to go on.
///
/// A window wraps a progress dialog in it, the command line its terminal, a test a recorder. Work calls
/// it from the thread it runs on; an implementation may handle events in each call.
class JobProgress
{
public:
    virtual ~JobProgress();

    virtual void setRange(int minimum, int maximum) = 0;
    virtual void setValue(int value) = 0;
    /// What is being done, for the user.
    virtual void setText(const QString& text) = 0;
    /// True once the user wants the work to stop.
    virtual bool cancelled() = 0;
};

/// Reports to nobody and is never cancelled.
class NoProgress final : public JobProgress
{
public:
    void setRange(int, int) override {}
    void setValue(int) override {}
    void setText(const QString&) override {}
    bool cancelled() override { return false; }
};
