#pragma once

#include "jobprogress.h"

/// Stops the work when the user stops the program, so that no half file stays behind. It reports to nobody.
class UntilInterrupted final : public JobProgress
{
public:
    /// From now on an interrupt no longer ends the process.
    UntilInterrupted();

    void setRange(int, int) override {}
    void setValue(int) override {}
    void setText(const QString&) override {}
    bool cancelled() override;
};
