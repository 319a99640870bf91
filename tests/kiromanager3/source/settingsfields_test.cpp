#include "settingsfields.h"

#include "inistore.h"
#include "reviewsettings.h"

#include <QApplication>
#include <QScreen>

#include <gtest/gtest.h>

namespace
{

const QString S = QStringLiteral("s");
const QString K = QStringLiteral("k");

/// Gives the application another font while it lives.
class FontChange
{
public:
    explicit FontChange(const QFont& font)
        : m_before(QApplication::font())
    {
        QApplication::setFont(font);
    }
    ~FontChange() { QApplication::setFont(m_before); }

private:
    Q_DISABLE_COPY(FontChange)
    const QFont m_before;
};

} // namespace

TEST(SettingsFieldsTest, WindowsAreCentredOnTheScreen)
{
    const QPoint centre = QApplication::primaryScreen()->availableGeometry().center();
    for (const QSize& size : {QSize(640, 480), QSize(801, 601), QSize(20000, 10)})
        EXPECT_EQ(QRect(centredOnScreen(size), size).center(), centre);
    const ReviewSettings settings;
    EXPECT_EQ(settings.videoDialog.position, centredOnScreen({640, 480}));
    EXPECT_EQ(settings.managerDialog.position, centredOnScreen({800, 600}));
}

TEST(SettingsFieldsTest, TheSelectorsFontIsTwoPointsSmallerButNotBelowSix)
{
    for (const auto& [application, selector] :
         {std::pair(12, 10), std::pair(9, 7), std::pair(8, 6), std::pair(7, 6), std::pair(4, 6)}) {
        const FontChange change(QFont(QStringLiteral("Sans"), application));
        const QFont found = ReviewSettings().setup.rangeTextFont;
        EXPECT_EQ(found.pointSize(), selector) << application;
        EXPECT_EQ(found.family(), QStringLiteral("Sans"));
    }
}

TEST(SettingsFieldsTest, LinesOfATextStandInOneLine)
{
    IniStore store;
    store.setSection(S);
    const QString text = QStringLiteral("one\n\ntwo = 2\n");
    writeText(store, S, K, text);
    EXPECT_EQ(store.toString().count(QLatin1Char('\n')), 3);
    IniStore read;
    read.parse(store.toString());
    EXPECT_EQ(readText(read, S, K, QString()), text);
    EXPECT_EQ(readText(read, S, QStringLiteral("none"), QStringLiteral("old")), QStringLiteral("old"));
}
