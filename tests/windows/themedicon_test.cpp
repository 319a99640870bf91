#include "themedicon.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPalette>

#include <gtest/gtest.h>

namespace
{

/// The mean colour of what is drawn.
QColor meanInk(const QIcon& icon, int size, QIcon::Mode mode = QIcon::Normal)
{
    const QImage image =
        icon.pixmap(QSize(size, size), mode).toImage().convertToFormat(QImage::Format_ARGB32);
    double red = 0;
    double green = 0;
    double blue = 0;
    double weight = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            red += pixel.redF() * pixel.alphaF();
            green += pixel.greenF() * pixel.alphaF();
            blue += pixel.blueF() * pixel.alphaF();
            weight += pixel.alphaF();
        }
    }
    return weight > 0 ? QColor::fromRgbF(red / weight, green / weight, blue / weight) : QColor();
}

QStringList iconNames()
{
    themedIcon(QStringLiteral("open")); // makes the images known
    QStringList names;
    for (const QString& file : QDir(QStringLiteral(":/images")).entryList({QStringLiteral("*.svg")}))
        names << file.section(QLatin1Char('.'), 0, 0);
    return names;
}

class PaletteRestorer
{
public:
    ~PaletteRestorer() { QApplication::setPalette(m_palette); }

private:
    QPalette m_palette = QApplication::palette();
};

} // namespace

TEST(ThemedIconTest, EveryImageDrawsAtEverySize)
{
    ASSERT_GE(iconNames().size(), 19);
    for (const QString& name : iconNames()) {
        for (const int size : {16, 24, 32, 48, 64})
            EXPECT_TRUE(meanInk(themedIcon(name), size).isValid()) << qPrintable(name) << " " << size;
    }
}

TEST(ThemedIconTest, UnknownNamesGiveNoIcon)
{
    EXPECT_TRUE(themedIcon(QStringLiteral("no-such-icon")).isNull());
}

TEST(ThemedIconTest, LinesFollowThePalette)
{
    const PaletteRestorer restorer;
    const QIcon icon = themedIcon(QStringLiteral("close")); // has no accent
    QPalette palette;
    palette.setColor(QPalette::WindowText, QColor(10, 20, 30));
    QApplication::setPalette(palette);
    const QColor dark = meanInk(icon, 48);
    EXPECT_NEAR(dark.red(), 10, 3);
    EXPECT_NEAR(dark.blue(), 30, 3);
    palette.setColor(QPalette::WindowText, QColor(240, 230, 220));
    palette.setColor(QPalette::Window, QColor(20, 20, 20));
    QApplication::setPalette(palette);
    const QColor light = meanInk(icon, 48);
    EXPECT_NEAR(light.red(), 240, 3);
    EXPECT_NEAR(light.blue(), 220, 3);
}

TEST(ThemedIconTest, DisabledIconsHaveNoAccent)
{
    const QColor disabled = QApplication::palette().color(QPalette::Disabled, QPalette::WindowText);
    const QColor mean = meanInk(themedIcon(QStringLiteral("open")), 48, QIcon::Disabled);
    EXPECT_NEAR(mean.red(), disabled.red(), 4);
    EXPECT_NEAR(mean.green(), disabled.green(), 4);
    EXPECT_NEAR(mean.blue(), disabled.blue(), 4);
}
