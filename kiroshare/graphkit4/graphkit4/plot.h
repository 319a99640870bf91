#pragma once

#include "samplestore.h"

#include <QString>

#include <cstdint>

/// One strip of a MultiPlot: the samples of one signal and how they are shown. A plain value; copies share
/// the samples.
///
/// A drawn value is the sample itself or, with `useCalib`, (sample - calibOffset) / calibFactor.
class Plot
{
public:
    enum ScaleType {
        Automatic = 0, ///< the limits follow the samples in the data range
        Fixed = 1,     ///< `scaleMin` and `scaleMax` are the limits
        Tracing = 2    ///< the span stays `scaleMax`, the middle follows the samples in the data range
    };

    std::int32_t dataType = 9;  ///< element type of the samples, the index in SampleArray
    double timePerSample = 1.0; ///< seconds
    double timeOffset = 0.0;    ///< seconds of the first sample
    bool show = true;
    ScaleType scaleType = Automatic;
    /// Limits in raw units, whether or not the strip draws calibrated values. With Automatic they are those
    /// of the samples in the data range as of the last followData(); with Tracing 0 and the span.
    double scaleMin = 0.0;
    double scaleMax = 1.0;
    double vertGrid = 0.0; ///< step of the vertical grid in drawn units; 0: the strip chooses it
    bool hasCalib = false;
    double calibFactor = 1.0;   ///< raw units per calibrated unit; 0 or not finite counts as uncalibrated
    double calibOffset = 0.0;   ///< raw value of calibrated zero
    bool useCalib = false;      ///< the strip draws calibrated values
    std::int32_t precision = 2; ///< decimals of the values that the strip prints

    /// Takes `count` samples of `data` from `start` on, -1 for all that follow; nothing is copied when they
    /// are all of `data`. The data range becomes all of them. False, and nothing changes, if `data` does not
    /// hold so many.
    bool setData(const QVector<std::int8_t>& data, int start, int count);
    bool setData(const QVector<std::uint8_t>& data, int start, int count);
    bool setData(const QVector<std::int16_t>& data, int start, int count);
    bool setData(const QVector<std::uint16_t>& data, int start, int count);
    bool setData(const QVector<std::int32_t>& data, int start, int count);
    bool setData(const QVector<std::uint32_t>& data, int start, int count);
    bool setData(const QVector<std::int64_t>& data, int start, int count);
    bool setData(const QVector<std::uint64_t>& data, int start, int count);
    bool setData(const QVector<float>& data, int start, int count);
    bool setData(const QVector<double>& data, int start, int count);

    /// All of `samples`, which may be those of other strips too. The data range becomes all of them.
    void setSamples(const SampleStore& samples);

    /// The samples; empty if they are of another type.
    QVector<std::int8_t> getDataInt8() const;
    QVector<std::uint8_t> getDataUInt8() const;
    QVector<std::int16_t> getDataInt16() const;
    QVector<std::uint16_t> getDataUInt16() const;
    QVector<std::int32_t> getDataInt32() const;
    QVector<std::uint32_t> getDataUInt32() const;
    QVector<std::int64_t> getDataInt64() const;
    QVector<std::uint64_t> getDataUInt64() const;
    QVector<float> getDataFloat() const;
    QVector<double> getDataDouble() const;

    int dataSize() const { return m_samples.count(); }
    const SampleStore& samples() const { return m_samples; }

    /// The samples that are drawn. False, and nothing changes, if they are not all there.
    bool setDataRange(int start, int count);
    int rangeStart() const { return m_first; }
    int rangeCount() const { return m_count; }

    /// Ignored unless finite, and the time per sample above 0.
    void setTimePerSample(double seconds);
    void setTimeOffset(double seconds);

    /// Limits in raw units; ignored unless finite.
    void setScale(double min, double max);
    void setScaleType(ScaleType type);

    void setTitle(const QString& title) { m_title = title; }
    QString title() const { return m_title; }
    void setCalibUnit(const QString& unit) { m_calibUnit = unit; }
    QString calibUnit() const { return m_calibUnit; }
    /// The unit of what is drawn: that of the calibration if it is used, else none.
    QString drawnUnit() const { return drawsCalibrated() ? m_calibUnit : QString(); }
    void setShowPlot(bool shown) { show = shown; }
    bool showPlot() const { return show; }

    /// Chooses `precision` so that a hundredth of the vertical range can be told.
    void adjustPrecision();

    /// With Automatic, sets `scaleMin` and `scaleMax` to the limits of the samples in the data range; without
    /// finite samples they stay.
    void followData();

    /// What the strip's lower and upper edge stand for, in drawn units: finite, the first below the second by
    /// enough to tell pixels apart. Limits that are equal are widened, reversed ones exchanged, and without
    /// finite samples Automatic gives 0 and 1.
    Extremes drawnLimits() const;

    double drawnValue(double raw) const { return (raw - drawnOffset()) / drawnFactor(); }
    double rawValue(double drawn) const { return drawn * drawnFactor() + drawnOffset(); }
    /// The calibration as it is drawn: 1 and 0 without.
    double drawnFactor() const { return drawsCalibrated() ? calibFactor : 1.0; }
    double drawnOffset() const { return drawsCalibrated() ? calibOffset : 0.0; }

    /// Index of the sample in the data range that is nearest in time, -1 if `seconds` is more than half a
    /// sample outside of it.
    int sampleAt(double seconds) const;
    double timeOfSample(int index) const { return timeOffset + index * timePerSample; }

private:
    bool drawsCalibrated() const;
    template <class T>
    bool take(const QVector<T>& data, int start, int count);
    template <class T>
    QVector<T> dataOf() const;

    SampleStore m_samples;
    int m_first = 0;
    int m_count = 0;
    QString m_title;
    QString m_calibUnit;
};
