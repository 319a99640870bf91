#pragma once

/// Values of an axis and the pixels that show them.
///
/// The centre of the first pixel stands for `min`, that of the last for `max`; pixel i covers [i, i + 1).
/// Either end may be the larger one, on both sides. A range of (next to) nothing is widened around its
/// middle, so that there always is a scale.
class AxisMapping
{
public:
    AxisMapping();
    /// The limits are finite and so is their difference; the pixels are not the same.
    AxisMapping(double min, double max, int firstPixel, int lastPixel);

    /// The limits in force: those given, or the widened ones.
    double min() const { return m_min; }
    double max() const { return m_max; }
    int firstPixel() const { return m_first; }
    int lastPixel() const { return m_last; }

    /// Place of a value, not rounded; `min` is at the first pixel + 0.5.
    double position(double value) const { return m_first + 0.5 + (value - m_min) * m_pixelsPerUnit; }
    /// The pixel that position() falls in, held within a billion; for a NaN the lower end of that.
    int pixel(double value) const;
    /// The value at the centre of a pixel: pixel(value(i)) is i.
    double value(int pixel) const;
    /// The value at any place: that of position() undone.
    double valueAt(double position) const;
    /// A distance in pixels as one in units of the axis; both have the same sign.
    double distance(int pixels) const;
    /// Signed; not 0.
    double pixelsPerUnit() const { return m_pixelsPerUnit; }

private:
    double m_min;
    double m_max;
    int m_first;
    int m_last;
    double m_pixelsPerUnit;
};
