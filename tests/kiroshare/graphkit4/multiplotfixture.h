#pragma once

#include "multiplot.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>

#include <limits>

Q_DECLARE_METATYPE(Qt::MouseButton)
Q_DECLARE_METATYPE(Qt::KeyboardModifiers)

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr int SampleCount = 1001;

/// Three strips of 1001 samples over 10 s: value i, 2 i and -i of sample i, the second calibrated by 10.
class MultiPlotTest : public testing::Test
{
protected:
    MultiPlotTest()
    {
        // For QSignalSpy.
        qRegisterMetaType<Qt::MouseButton>("Qt::MouseButton");
        qRegisterMetaType<Qt::KeyboardModifiers>("Qt::KeyboardModifiers");
        plot.resize(800, 420);
        plot.setPlotCount(3);
        for (int i = 0; i < 3; ++i) {
            QVector<int> data(SampleCount);
            for (int k = 0; k < SampleCount; ++k)
                data[k] = i == 2 ? -k : k * (i + 1);
            plot.plot(i)->setData(data, 0, -1);
            plot.plot(i)->setTimePerSample(0.01);
            plot.plot(i)->setTitle(QStringLiteral("Signal %1").arg(i));
        }
        plot.plot(1)->hasCalib = true;
        plot.plot(1)->useCalib = true;
        plot.plot(1)->calibFactor = 10.0;
        plot.setHorzTitle(QStringLiteral("Time"));
        plot.setHorzUnits(QStringLiteral("s"));
        plot.setHorzScale(0.0, 10.0);
        plot.adjustHorzGrid();
        plot.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&plot));
        plot.redraw(true);
    }

    QPoint at(unsigned strip, double seconds, double value) const
    {
        return plot.getScreenPoint(strip, QPointF(seconds, value));
    }

    /// What a pixel stands for in time.
    double pixelSeconds() const { return 10.0 / (at(0, 10.0, 0.0).x() - at(0, 0.0, 0.0).x()); }

    void send(QEvent::Type type, const QPoint& point, Qt::MouseButton button,
              Qt::KeyboardModifiers modifiers = {})
    {
        QMouseEvent event(type, point, button, Qt::NoButton, modifiers);
        QApplication::sendEvent(&plot, &event);
    }

    void move(const QPoint& point) { send(QEvent::MouseMove, point, Qt::NoButton); }

    void drag(const QPoint& from, const QPoint& to)
    {
        QTest::mousePress(&plot, Qt::LeftButton, {}, from);
        move((from + to) / 2);
        move(to);
        QTest::mouseRelease(&plot, Qt::LeftButton, {}, to);
    }

    QImage picture() { return plot.grab().toImage(); }

    MultiPlot plot;
};

/// How many pixels of a column have a colour.
inline int countInColumn(const QImage& image, int x, const QColor& color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        count += image.pixelColor(x, y) == color ? 1 : 0;
    return count;
}

inline int countAll(const QImage& image, const QColor& color)
{
    int count = 0;
    for (int x = 0; x < image.width(); ++x)
        count += countInColumn(image, x, color);
    return count;
}
