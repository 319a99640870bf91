#include "previewframe.h"

#include <QImage>

#include <gtest/gtest.h>

namespace
{

/// How many pixels inside of the border have a colour.
int pixelsOf(const QImage& image, const QColor& color)
{
    int count = 0;
    for (int y = 4; y < image.height() - 4; ++y) {
        for (int x = 4; x < image.width() - 4; ++x) {
            if (image.pixelColor(x, y) == color)
                ++count;
        }
    }
    return count;
}

QImage pictureOf(PreviewFrame& frame)
{
    frame.resize(200, 80);
    return frame.grab().toImage();
}

int innerPixels(const QImage& image)
{
    return (image.width() - 8) * (image.height() - 8);
}

} // namespace

TEST(PreviewFrameTest, StartsWithAThinBlackPenOnWhite)
{
    const PreviewFrame frame;
    EXPECT_EQ(frame.pen().color(), QColor(Qt::black));
    EXPECT_EQ(frame.pen().width(), 0);
    EXPECT_EQ(frame.pen().style(), Qt::SolidLine);
    EXPECT_EQ(frame.pen().capStyle(), Qt::FlatCap);
    EXPECT_EQ(frame.pen().joinStyle(), Qt::BevelJoin);
    EXPECT_EQ(frame.background(), QColor(Qt::white));
}

TEST(PreviewFrameTest, FillsTheBackground)
{
    PreviewFrame frame;
    frame.setBackground(QColor(10, 60, 110));
    frame.setPen(QPen(Qt::NoPen));
    const QImage image = pictureOf(frame);
    EXPECT_EQ(pixelsOf(image, QColor(10, 60, 110)), innerPixels(image));
}

TEST(PreviewFrameTest, DrawsTheSampleWithThePen)
{
    PreviewFrame frame;
    frame.setBackground(Qt::white);
    frame.setPen(QPen(QBrush(Qt::red), 4, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin));
    const int solid = pixelsOf(pictureOf(frame), Qt::red);
    EXPECT_GT(solid, 4 * 100);
    QPen dotted = frame.pen();
    dotted.setStyle(Qt::DotLine);
    frame.setPen(dotted);
    const int dots = pixelsOf(pictureOf(frame), Qt::red);
    EXPECT_GT(dots, solid / 8);
    EXPECT_LT(dots, solid * 3 / 4);
    QPen wide = frame.pen();
    wide.setStyle(Qt::SolidLine);
    wide.setWidth(12);
    frame.setPen(wide);
    EXPECT_GT(pixelsOf(pictureOf(frame), Qt::red), 2 * solid);
}

TEST(PreviewFrameTest, AnEmptyPenAndAHugeOneAreDrawn)
{
    PreviewFrame frame;
    frame.setPen(QPen(QBrush(Qt::red), 10000));
    const QImage image = pictureOf(frame);
    EXPECT_EQ(pixelsOf(image, Qt::red), innerPixels(image));
    frame.setPen(QPen(QBrush(Qt::black), 0));
    frame.resize(1, 1);
    EXPECT_FALSE(frame.grab().isNull());
}
