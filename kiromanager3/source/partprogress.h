#pragma once

#include "jobprogress.h"

/// Shows work as a part of longer work: what the one reports in its own range goes into a stretch of the
/// other's. The texts stay those of the longer work.
class PartProgress final : public JobProgress
{
public:
    /// `whole` must outlive this; the part ends at `from` + `count` of its range.
    PartProgress(JobProgress& whole, int from, int count)
        : m_whole(whole)
        , m_from(from)
        , m_count(count)
    {
    }

    void setRange(int minimum, int maximum) override
    {
        m_minimum = minimum;
        m_maximum = maximum;
    }
    void setValue(int value) override
    {
        const double range = double(m_maximum) - m_minimum;
        const double part = range > 0.0 ? (double(value) - m_minimum) / range : 1.0;
        m_whole.setValue(m_from + int(part * m_count));
    }
    void setText(const QString&) override {}
    bool cancelled() override { return m_whole.cancelled(); }

private:
    JobProgress& m_whole;
    int m_from;
    int m_count;
    int m_minimum = 0;
    int m_maximum = 100;
};
