#pragma once

/// The stretch of time that a saccades browser shows, as its scroll bar and its zoom buttons move it. Numbers
/// are rounded half up where nothing else is said.
class TimeWindow
{
public:
    static constexpr double LengthAtStart = 3000.0;
    static constexpr double LeastLength = 500.0;
    static constexpr double GreatestLength = 60000.0;

    /// A stretch of samples, both ends included.
    struct Range
    {
        int first = 0;
        int last = -1;

        bool isEmpty() const { return last < first; }
        int count() const { return isEmpty() ? 0 : last - first + 1; }
    };

    /// Milliseconds.
    double length() const { return m_length; }
    /// Held within the limits.
    void setLength(double length);
    /// `msPerSample` must be above 0 and finite where there are samples.
    void setSamples(int sampleCount, double msPerSample);
    int sampleCount() const { return m_sampleCount; }
    double msPerSample() const { return m_msPerSample; }

    /// One step shorter or longer; false, and no change, at the limit.
    bool zoomIn();
    bool zoomOut();

    /// Of the scroll bar, in milliseconds from the first sample on; below 0 if the window is longer than the
    /// signal.
    int scrollMaximum() const;
    int pageStep() const;
    /// Where to scroll after the length was changed from `oldLength`, so that the middle stays.
    int scrollAfterZoom(int scroll, double oldLength) const;
    /// Where to scroll to have a sample in the middle.
    int scrollToCentre(int sample) const;
    /// Where to scroll after a turn of the wheel by `delta` eighths of a degree: a notch is a fifth of the
    /// window.
    int scrollAfterWheel(int scroll, int delta) const;

    /// The samples shown at a place of the scroll bar.
    Range range(int scroll) const;
    /// The samples that the window has room for, whether they are there or not.
    int room() const;
    /// Seconds from the first sample on.
    double secondsOf(int sample) const { return sample * m_msPerSample / 1000.0; }

private:
    double m_length = LengthAtStart;
    int m_sampleCount = 0;
    double m_msPerSample = 1.0;
};
